#pragma once

#include <vector>

#include "ports/geometry.h"

namespace qvLegacy::migration {

/// A box in SVG coordinates, y down.
struct Extent {
  Wm4::Vector2<float> min;
  Wm4::Vector2<float> max;
  Wm4::Vector2<float> size;
};

/// The margin that makes a box of this size a square around the same centre.
[[nodiscard]] Wm4::Vector2<float> marginToSquare(Wm4::Vector2<float> const& size);

/// The corners of a flag or parallelogram around the box; their points jut out of it by 0.4 of its height.
[[nodiscard]] std::vector<Wm4::Vector2<float>> flagPoints(Extent const& box, bool pointLeft, bool pointRight);
[[nodiscard]] std::vector<Wm4::Vector2<float>> parallelogramPoints(Extent const& box);

}  // namespace qvLegacy::migration
