#pragma once

#include "annotationLegacy/platform.h"
#include "inputCursor.h"

namespace qvFuzz {

/// A map that looks like an element of a variant document: mostly known keys and names, with values of the
/// expected kind and of all others. `depth` bounds its nesting.
qv::qvVariant::qvVariantMapImpl takeVariantMap(InputCursor& input, int depth);

/// A version around the gates of the readers, or any number.
std::uint32_t takeVersion(InputCursor& input);

}  // namespace qvFuzz
