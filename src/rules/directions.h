#pragma once

#include <cmath>

namespace qvLegacy::rules {

/// What is shorter has no direction.
inline constexpr float shortestDirection = 1e-6F;

/// Whether a vector of the view plane has a direction: neither one that is too short nor one whose length is
/// not a number has.
inline bool hasDirection(float x, float y) noexcept {
  return std::sqrt(x * x + y * y) > shortestDirection;
}

}  // namespace qvLegacy::rules
