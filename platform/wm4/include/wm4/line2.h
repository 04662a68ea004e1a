#pragma once

#include "wm4/vector2.h"

namespace Wm4 {

/// Line in 2D: Origin + t * Direction. Directions are meant to be of unit length; nothing checks it.
template <class Real>
class Line2 {
 public:
  constexpr Line2() noexcept = default;
  constexpr Line2(Vector2<Real> const& origin, Vector2<Real> const& direction) noexcept
      : Origin(origin), Direction(direction) {}

  Vector2<Real> Origin;
  Vector2<Real> Direction;
};

}  // namespace Wm4
