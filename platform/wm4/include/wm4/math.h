#pragma once

#include <limits>

namespace Wm4 {

/// Constants of the geometry library, each in its own precision.
template <class Real>
class Math;

template <>
class Math<float> {
 public:
  static constexpr float ZERO_TOLERANCE = 1e-6F;  ///< lengths and determinants below count as zero
  static constexpr float MAX_REAL = std::numeric_limits<float>::max();
  static constexpr float WM4_PI = 3.14159265358979323846F;
};

template <>
class Math<double> {
 public:
  static constexpr double ZERO_TOLERANCE = 1e-8;
  static constexpr double MAX_REAL = std::numeric_limits<double>::max();
  static constexpr double WM4_PI = 3.14159265358979323846;
};

}  // namespace Wm4
