#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "annotationLegacy/qvAnnotationInterface.h"
#include "model/variantLookup.h"
#include "rules/fields.h"

namespace qvToolkit {

/// Versions at which the variant form of a view changed.
namespace gates {
/// One list of annotations in place of two; leaders as maps; children and metadata of annotations.
constexpr qv::qvStreamVersion OneList(
    qvLegacy::rules::gateOf(qvLegacy::rules::Since::oneAnnotationList).version);
/// Metadata of views.
constexpr qv::qvStreamVersion ViewMetadata(
    qvLegacy::rules::gateOf(qvLegacy::rules::Since::viewMetadata).version);
}  // namespace gates

/// Records of the variant form, each with keys of its own.
enum class RecordKind : std::uint8_t {
  View,
  TextAnnotation,
  RasterAnnotation,
  TextProperties,
  Run,
  Leader,
  MeasureLeader,
};

/// "views", "text annotations" and the like.
std::string_view getRecordName(RecordKind kind);

/// True when some version's reader looks at the key in such a record.
bool isKnownKey(RecordKind kind, std::string_view key);

/// The texts that a reader knows as values of a key, neutral ones included; null for a key whose value is no
/// such text.
qvLegacy::rules::ValueNames const* findValueNames(RecordKind kind, std::string_view key);

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
