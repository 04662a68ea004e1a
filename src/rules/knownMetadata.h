#pragma once

#include <algorithm>
#include <array>
#include <string_view>

namespace qvLegacy::rules {

/// The metadata keys of annotations that are known, and known to be droppable.
inline constexpr std::array<std::string_view, 7> knownMetadataKeys{
    "ReferencedEntities",           "AnnotationGroup", "InactivationFlag", "NOA",
    "NOA_Graphical representation", "NOA_Type of Noa", "NOA_Hidden Text",
};

/// Keys are compared whole and case-sensitively.
[[nodiscard]] constexpr bool isKnownMetadataKey(std::string_view key) {
  return std::find(knownMetadataKeys.begin(), knownMetadataKeys.end(), key) != knownMetadataKeys.end();
}

}  // namespace qvLegacy::rules
