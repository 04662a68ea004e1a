#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace qvToolkit {

/// Names of the legacy model's persisted numbers, as the variant form spells them; empty for a number without
/// name.
std::string_view getTypeName(std::uint8_t type);
std::string_view getHeadName(std::uint8_t head);
std::string_view getArrowDirectionName(std::uint8_t direction);
std::string_view getAnchorName(std::uint32_t anchor);
/// Of the low four bits of a style byte.
std::string_view getFrameShapeName(std::uint8_t style);
std::string_view getSegmentTypeName(std::uint8_t type);

/// All names of one enumeration, in the order of its numbers.
std::span<std::string_view const> getHeadNames();
std::span<std::string_view const> getArrowDirectionNames();
std::span<std::string_view const> getAnchorNames();
std::span<std::string_view const> getFrameShapeNames();
std::span<std::string_view const> getSegmentTypeNames();

}  // namespace qvToolkit
