#pragma once

#include "ports/geometry.h"
#include "rules/directions.h"

namespace qvLegacy::migration {

/// The components in the view plane.
[[nodiscard]] inline Wm4::Vector2<float> inPlane(Wm4::Vector3<float> const& v) {
  return {v.X(), v.Y()};
}

/// True when the vector is too short to have a direction, or its length is not a number.
[[nodiscard]] inline bool isDirectionless(Wm4::Vector2<float> const& v) {
  static_assert(rules::shortestDirection == Wm4::Math<float>::ZERO_TOLERANCE);
  return !rules::hasDirection(v.X(), v.Y());
}

/// The vector at length 1; zero when it has no direction.
[[nodiscard]] inline Wm4::Vector2<float> unitOrZero(Wm4::Vector2<float> const& v) {
  return isDirectionless(v) ? Wm4::Vector2<float>::ZERO : v * (1.0F / v.Length());
}

}  // namespace qvLegacy::migration
