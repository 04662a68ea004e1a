#pragma once

#include <cstddef>
#include <string_view>

#include "annotationLegacy/qvAnnotationInterface.h"
#include "model/variantLookup.h"

namespace qvToolkit {

/// The kind that an annotation record names under "type"; `Unknown` for every text but "text" and "raster".
qvLegacy::qvAnnotationInterface::Type getNamedType(VariantMap const& record);

/// Why the readers pass over an annotation record of a kind, as the end of a sentence; empty when they keep
/// it. Its children do not matter here, but for one rule: an element that is no map costs the whole record.
std::string_view findRefusal(qv::qvVariant const& record, qvLegacy::qvAnnotationInterface::Type type,
                             qv::qvStreamVersion version);

/// The list of children that the reader takes; null when it takes none.
VariantList const* findChildren(VariantMap const& record, qv::qvStreamVersion version);

/// How many annotation records stand under a record at all levels, whether they can be read or not.
std::size_t countDescendants(VariantMap const& record);

/// How many records a list of annotations holds at all levels.
std::size_t countRecords(VariantList const& records);

/// True for a list of exactly `count` integers and reals.
bool isNumberList(qv::qvVariant const& value, std::size_t count);

}  // namespace qvToolkit
