#pragma once

#include <cmath>
#include <string>

namespace qvToolkit {

/// Coordinates beyond this are not drawn.
constexpr double MaxCoordinate = 1e9;

template <class Real>
bool isDrawable(Real number) {
  return std::abs(static_cast<double>(number)) <= MaxCoordinate;
}

/// Appends the shortest decimal text that reads back, without exponent and without "-0"; magnitudes below
/// 10^-9 are written as 0. The number must be finite.
void appendNumber(std::string& text, float number);
void appendNumber(std::string& text, double number);

}  // namespace qvToolkit
