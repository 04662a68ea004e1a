#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace qvLegacy::rules {

/// A corner in multiples of the head size: along the leader's direction, and across it to the left.
struct HeadCorner {
  float along;
  float across;
};

/// A line through the leader's end point, in arms; not turned with the leader.
struct HeadArm {
  float fromX;
  float fromY;
  float toX;
  float toY;
};

/// How a head is drawn: as a filled polygon, as a filled circle, or as lines.
struct HeadRule {
  std::span<HeadCorner const> corners{};
  bool circle = false;
  std::span<HeadArm const> arms{};
  bool armsFollowSize = false;

  /// Whether the head needs the leader's direction; without one it collapses into a point.
  constexpr bool turnsWithLeader() const noexcept { return !corners.empty(); }
};

namespace tables {

inline constexpr std::array<HeadCorner, 4> squareCorners{
    {{-0.5F, -0.5F}, {-0.5F, 0.5F}, {0.5F, 0.5F}, {0.5F, -0.5F}}};
inline constexpr std::array<HeadCorner, 3> arrowCorners{{{-1.0F, 0.3F}, {0.0F, 0.0F}, {-1.0F, -0.3F}}};
inline constexpr std::array<HeadCorner, 3> triangleCorners{{{0.0F, -0.5F}, {-1.0F, 0.0F}, {0.0F, 0.5F}}};

inline constexpr std::array<HeadArm, 2> plusArms{{{-1.0F, 0.0F, 1.0F, 0.0F}, {0.0F, -1.0F, 0.0F, 1.0F}}};
inline constexpr std::array<HeadArm, 2> crossArms{{{-1.0F, -1.0F, 1.0F, 1.0F}, {1.0F, -1.0F, -1.0F, 1.0F}}};

}  // namespace tables

/// In the order of the heads' values.
inline constexpr std::array<HeadRule, 7> headRules{{
    {},                                                   // none
    {.corners = tables::squareCorners},                   // square
    {.circle = true},                                     // circle
    {.corners = tables::arrowCorners},                    // arrow
    {.arms = tables::plusArms},                           // plus. KEEP: the one head whose size is fixed
    {.arms = tables::crossArms, .armsFollowSize = true},  // cross
    {.corners = tables::triangleCorners},                 // triangle
}};

/// The rule of a head's value; null for a value that has none: such a head is not drawn.
constexpr HeadRule const* findHeadRule(std::uint8_t head) noexcept {
  return head < headRules.size() ? &headRules[head] : nullptr;
}

}  // namespace qvLegacy::rules
