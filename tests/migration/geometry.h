#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <vector>

#include "ports/geometry.h"

namespace migrationTest {

using Point = Wm4::Vector2<float>;
using Point3 = Wm4::Vector3<float>;
using Matrix = Wm4::Matrix3<float>;

/// Equal within 1e-6 of the larger of 1 and the expected number.
inline void expectNear(float actual, float expected) {
  EXPECT_NEAR(actual, expected, 1e-6F * std::fmax(1.0F, std::fabs(expected)));
}

inline void expectPoint(Point const& actual, Point const& expected) {
  expectNear(actual.X(), expected.X());
  expectNear(actual.Y(), expected.Y());
}

inline void expectPoint(Point3 const& actual, Point3 const& expected) {
  expectNear(actual.X(), expected.X());
  expectNear(actual.Y(), expected.Y());
  expectNear(actual.Z(), expected.Z());
}

inline void expectPoints(std::vector<Point> const& actual, std::vector<Point> const& expected) {
  ASSERT_EQ(actual.size(), expected.size());
  for (std::size_t i = 0; i < actual.size(); ++i) {
    SCOPED_TRACE("point " + std::to_string(i));
    expectPoint(actual[i], expected[i]);
  }
}

inline void expectMatrix(Matrix const& actual, std::initializer_list<float> rows) {
  ASSERT_EQ(rows.size(), 9U);
  for (std::size_t i = 0; i < 9; ++i) {
    SCOPED_TRACE("entry " + std::to_string(i));
    expectNear(actual.data()[i], rows.begin()[i]);
  }
}

}  // namespace migrationTest
