#include "migration/frameGeometry.h"

#include <array>
#include <cmath>
#include <cstddef>

namespace qvLegacy::migration {

namespace {

using Outline = FrameRule::Outline;

constexpr FrameRule plainBox{};

/// KEEP: diamond, triangle, hexagon, pentagon, circle and the oblongs are boxes on purpose.
constexpr std::array<FrameRule, 15> frameRules{{
    {.outline = Outline::Box, .border = false},                         // no frame
    plainBox,                                                           // rectangle
    {.outline = Outline::Square},                                       // square
    plainBox,                                                           // diamond
    plainBox,                                                           // triangle
    {.outline = Outline::Flag, .pointRight = true},                     // flag right
    {.outline = Outline::Flag, .pointLeft = true},                      // flag left
    {.outline = Outline::Flag, .pointLeft = true, .pointRight = true},  // flag both
    {.outline = Outline::Parallelogram},                                // parallelogram
    plainBox,                                                           // hexagon
    plainBox,                                                           // pentagon
    plainBox,                                                           // circle
    plainBox,                                                           // oblong
    plainBox,                                                           // oblong left
    plainBox,                                                           // oblong right
}};

/// How far points jut out, in heights of the box.
constexpr float jut = 0.4F;

}  // namespace

FrameRule const* findFrameRule(int shape) {
  if (shape < 0 || static_cast<std::size_t>(shape) >= frameRules.size()) return nullptr;
  return &frameRules[static_cast<std::size_t>(shape)];
}

Wm4::Vector2<float> marginToSquare(Wm4::Vector2<float> const& size) {
  float const margin = std::abs(size.X() - size.Y()) * 0.5F;
  return size.Y() < size.X() ? Wm4::Vector2<float>(0.0F, margin) : Wm4::Vector2<float>(margin, 0.0F);
}

std::vector<Wm4::Vector2<float>> flagPoints(Extent const& box, bool pointLeft, bool pointRight) {
  float const w = box.size.X();
  float const h = box.size.Y();
  std::vector<Wm4::Vector2<float>> points{{box.min.X() - jut * h, box.min.Y() + 0.5F * h},  // left point
                                          {box.min.X(), box.min.Y() + h},
                                          {box.min.X() + w, box.min.Y() + h},
                                          {box.max.X() + jut * h, box.max.Y() - 0.5F * h},  // right point
                                          {box.min.X() + w, box.min.Y()},
                                          {box.min.X(), box.min.Y()}};
  if (!pointRight) points.erase(points.begin() + 3);
  if (!pointLeft) points.erase(points.begin());
  return points;
}

std::vector<Wm4::Vector2<float>> parallelogramPoints(Extent const& box) {
  float const w = box.size.X();
  float const h = box.size.Y();
  return {{box.min.X(), box.min.Y()},
          {box.min.X() - jut * h, box.min.Y() + h},
          {box.max.X(), box.max.Y()},
          {box.min.X() + w + jut * h, box.min.Y()}};
}

}  // namespace qvLegacy::migration
