#include "migration/frameGeometry.h"

#include <cmath>

namespace qvLegacy::migration {

namespace {

/// How far points jut out, in heights of the box.
constexpr float jut = 0.4F;

}  // namespace

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
