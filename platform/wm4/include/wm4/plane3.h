#pragma once

#include "wm4/vector3.h"

namespace Wm4 {

/// Plane in 3D: all points X with Normal . X = Constant. The normal need not be of unit length.
template <class Real>
class Plane3 {
 public:
  constexpr Plane3() noexcept = default;
  constexpr Plane3(Vector3<Real> const& normal, Real constant) noexcept
      : Normal(normal), Constant(constant) {}

  Vector3<Real> Normal;
  Real Constant = Real(0);
};

}  // namespace Wm4
