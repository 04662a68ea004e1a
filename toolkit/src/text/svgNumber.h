#pragma once

#include <cmath>
#include <string>

namespace qvToolkit {

/// Coordinates beyond this are not drawn.
constexpr double MaxCoordinate = 1e9;
/// What is smaller is not to be seen.
constexpr double MinMagnitude = 1e-9;

template <class Real>
bool isDrawable(Real number) {
  return std::abs(static_cast<double>(number)) <= MaxCoordinate;
}

/// Appends the shortest decimal text that reads back, without exponent and without "-0"; magnitudes below
/// `MinMagnitude` are written as 0. The number must be finite.
void appendNumber(std::string& text, float number);
void appendNumber(std::string& text, double number);

}  // namespace qvToolkit
