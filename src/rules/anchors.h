#pragma once

#include <array>
#include <cstdint>

namespace qvLegacy::rules {

/// The offset of an anchored sub-annotation's centre from its parent's, in multiples of both sizes.
struct AnchorRule {
  float parentWidths;
  float subWidths;
  float parentHeights;
  float subHeights;
};

/// The anchor of a sub-annotation that is placed by its own position.
inline constexpr std::uint32_t freeAnchor = 0;

/// From anchor 1 on; SVG coordinates, so that positive heights lie below.
inline constexpr std::array<AnchorRule, 12> anchorRules{{
    {-0.5F, 0.5F, 0.5F, 0.5F},    // bottom, left edges aligned
    {0.0F, 0.0F, 0.5F, 0.5F},     // bottom, centred
    {0.5F, -0.5F, 0.5F, 0.5F},    // bottom, right edges aligned
    {-0.5F, 0.5F, -0.5F, -0.5F},  // top, left edges aligned
    {0.0F, 0.0F, -0.5F, -0.5F},   // top, centred
    {0.5F, -0.5F, -0.5F, -0.5F},  // top, right edges aligned
    {-0.5F, -0.5F, 0.5F, -0.5F},  // left, bottom edges aligned
    {-0.5F, -0.5F, 0.0F, 0.0F},   // left, centred
    {-0.5F, -0.5F, -0.5F, 0.5F},  // left, top edges aligned
    {0.5F, 0.5F, 0.5F, -0.5F},    // right, bottom edges aligned
    {0.5F, 0.5F, 0.0F, 0.0F},     // right, centred
    {0.5F, 0.5F, -0.5F, 0.5F},    // right, top edges aligned
}};

/// Whether a sub-annotation at this anchor can be placed; the migration refuses all others.
constexpr bool isKnownAnchor(std::uint32_t anchor) noexcept {
  return anchor <= anchorRules.size();
}

/// The rule of an anchor; null for a free or unknown one.
constexpr AnchorRule const* findAnchorRule(std::uint32_t anchor) noexcept {
  return anchor == freeAnchor || !isKnownAnchor(anchor) ? nullptr : &anchorRules[anchor - 1];
}

}  // namespace qvLegacy::rules
