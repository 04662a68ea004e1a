#pragma once

#include "wm4/matrix3.h"
#include "wm4/vector2.h"

namespace qv::svg {

/// The point mapped by the upper two rows of the matrix.
inline Wm4::Vector2<float> mapPoint(Wm4::Matrix3<float> const& matrix,
                                    Wm4::Vector2<float> const& point) noexcept {
  return {matrix(0, 0) * point.X() + matrix(0, 1) * point.Y() + matrix(0, 2),
          matrix(1, 0) * point.X() + matrix(1, 1) * point.Y() + matrix(1, 2)};
}

}  // namespace qv::svg
