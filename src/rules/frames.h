#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace qvLegacy::rules {

/// How a frame shape is drawn.
struct FrameRule {
  enum class Outline : std::uint8_t { Box, Square, Flag, Parallelogram };
  Outline outline = Outline::Box;
  bool border = true;
  bool pointLeft = false;   ///< flags only
  bool pointRight = false;  ///< flags only
  /// The shape has no geometry of its own: it looks like a rectangle.
  bool standIn = false;
};

/// In the order of the frame shapes' values.
/// KEEP: diamond, triangle, hexagon, pentagon, circle and the oblongs are boxes on purpose.
inline constexpr std::array<FrameRule, 15> frameRules{{
    {.border = false},                                                             // no frame
    {},                                                                            // rectangle
    {.outline = FrameRule::Outline::Square},                                       // square
    {.standIn = true},                                                             // diamond
    {.standIn = true},                                                             // triangle
    {.outline = FrameRule::Outline::Flag, .pointRight = true},                     // flag right
    {.outline = FrameRule::Outline::Flag, .pointLeft = true},                      // flag left
    {.outline = FrameRule::Outline::Flag, .pointLeft = true, .pointRight = true},  // flag both
    {.outline = FrameRule::Outline::Parallelogram},                                // parallelogram
    {.standIn = true},                                                             // hexagon
    {.standIn = true},                                                             // pentagon
    {.standIn = true},                                                             // circle
    {.standIn = true},                                                             // oblong
    {.standIn = true},                                                             // oblong left
    {.standIn = true},                                                             // oblong right
}};

/// The rule of a frame shape's value; null for a value that has none, which the migration refuses.
constexpr FrameRule const* findFrameRule(int shape) noexcept {
  if (shape < 0 || static_cast<std::size_t>(shape) >= frameRules.size()) return nullptr;
  return &frameRules[static_cast<std::size_t>(shape)];
}

}  // namespace qvLegacy::rules
