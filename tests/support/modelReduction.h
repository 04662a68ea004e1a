#pragma once

#include <cstdint>

#include "annotationLegacy/qvAnnotationView.h"

namespace qvStreamTest {

/// Takes away in place what a stream version cannot hold, and orders the annotations as it does: what a view
/// looks like after it was written at that version and read again. True when anything but the order changed.
bool reduceTo(qvLegacy::qvAnnotationView& view, std::uint32_t version);

}  // namespace qvStreamTest
