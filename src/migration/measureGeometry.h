#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "ports/geometry.h"
#include "rules/arrows.h"

namespace qvLegacy::migration {

/// A line from one point to another, in view-plane coordinates.
struct Segment {
  Wm4::Vector3<float> from;
  Wm4::Vector3<float> to;
};

/// What a dimension drawing depends on, in view-plane coordinates.
struct Measure {
  Wm4::Vector3<float> pointA;  ///< first measured point
  Wm4::Vector3<float> pointB;  ///< second measured point
  Wm4::Vector3<float> offset;  ///< from the measured points to the dimension line
  rules::ArrowRule arrows;     ///< at the feet
  Wm4::Vector3<float> origin;  ///< a point of the dimension line
  float headSize;              ///< length of the barbs' projection on the dimension line
};

/// The direction of the extension lines: the offset's, else across the measured distance, else (-0, 0).
[[nodiscard]] Wm4::Vector2<float> extensionDirection(Measure const& measure);

/// The two feet on the dimension line, at A's and at B's side.
struct Feet {
  Wm4::Vector2<float> atA;
  Wm4::Vector2<float> atB;
};

/// Where the extension lines along `direction` meet the dimension line across it; none without a direction.
[[nodiscard]] std::optional<Feet> findFeet(Measure const& measure, Wm4::Vector2<float> const& direction);

/// Dimension line, the four barbs of the arrows, and the two extension lines; none when there is no dimension
/// line.
[[nodiscard]] std::optional<std::vector<Segment>> measureSegments(Measure const& measure);

}  // namespace qvLegacy::migration
