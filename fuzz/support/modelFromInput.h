#pragma once

#include "annotationLegacy/qvAnnotationView.h"
#include "inputCursor.h"

namespace qvFuzz {

/// A view whose every field may hold every value that a reader can leave there, children and nulls included.
qv::qvPointer<qvLegacy::qvAnnotationView> takeView(InputCursor& input);

}  // namespace qvFuzz
