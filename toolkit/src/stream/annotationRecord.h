#pragma once

#include <cstdint>

#include "annotationLegacy/qvAnnotationInterface.h"
#include "stream/streamBytes.h"

namespace qvToolkit {

/// Writes the record of a text or raster annotation with all its sub-annotations, as far as the version can
/// hold it. Depth costs no call stack.
void writeAnnotationRecord(StreamBytes& out, qvLegacy::qvAnnotationInterface const& annotation,
                           std::uint32_t version);

/// The kind byte of an annotation in a child list: 0 for one that no record can hold, and for null.
std::uint8_t getRecordKind(qvLegacy::qvAnnotationInterface const* annotation);

/// The byte of an anchor; one that does not fit is written as 0, free.
std::uint8_t getAnchorByte(std::uint32_t anchor);

}  // namespace qvToolkit
