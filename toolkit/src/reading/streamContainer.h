#pragma once

#include <cstdint>
#include <string_view>

namespace qvToolkit {

/// What the container and its base objects hold.
constexpr std::string_view StreamMark = "qvStream";
constexpr std::uint32_t AnnotationMetadataType = 5;

/// Maps and lists of metadata may nest this deep, the outermost map counted.
constexpr int MaxVariantLevel = 64;

}  // namespace qvToolkit
