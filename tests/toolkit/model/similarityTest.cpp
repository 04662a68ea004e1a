#include "qvToolkit/model/similarity.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>

namespace {

using qvToolkit::Similarity;
using qvToolkit::takeApart;
using Matrix = Wm4::Matrix3<double>;

/// Any proper rotation, from a random unit quaternion.
Matrix makeRotation(std::mt19937& random) {
  std::normal_distribution<double> number;
  double w = number(random), x = number(random), y = number(random), z = number(random);
  double const length = std::sqrt(w * w + x * x + y * y + z * z);
  w /= length, x /= length, y /= length, z /= length;
  return {1 - 2 * (y * y + z * z), 2 * (x * y - w * z),     2 * (x * z + w * y),
          2 * (x * y + w * z),     1 - 2 * (x * x + z * z), 2 * (y * z - w * x),
          2 * (x * z - w * y),     2 * (y * z + w * x),     1 - 2 * (x * x + y * y)};
}

/// As somebody would print it.
double roundTo(int digits, double number) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*g", digits, number);
  return std::strtod(text, nullptr);
}

double getDifference(Matrix const& a, Matrix const& b) {
  double difference = 0;
  for (std::size_t i = 0; i < 9; ++i) difference = std::max(difference, std::abs(a.data()[i] - b.data()[i]));
  return difference;
}

bool isIdentity(Similarity const& s) {
  return s.m_rotation == Matrix::IDENTITY && s.m_scale == 1 && s.m_translation == Wm4::Vector3<double>::ZERO;
}

TEST(Similarity, TakesAnyTurnTimesAScaleApartFromSevenDigitsOn) {
  std::mt19937 random(13);
  std::uniform_real_distribution<double> exponent(-10, 10);
  for (int i = 0; i < 2000; ++i) {
    Matrix const rotation = makeRotation(random);
    double const scale = i % 4 == 0 ? 1 : std::pow(10, exponent(random));
    Matrix linear = rotation * scale;
    for (std::size_t k = 0; k < 9; ++k) linear.data()[k] = roundTo(7 + i % 3, linear.data()[k]);
    Similarity similarity;
    ASSERT_EQ(takeApart(linear, similarity), "");
    EXPECT_LE(getDifference(similarity.m_rotation * similarity.m_scale, linear), 3e-6 * scale);
    Matrix const square = similarity.m_rotation * similarity.m_rotation.Transpose();
    EXPECT_LE(getDifference(square, Matrix::IDENTITY), 1e-14);
    if (scale == 1) {
      EXPECT_EQ(similarity.m_scale, 1);
    }
  }
}

TEST(Similarity, TakesQuarterTurnsAndScalesApartExactly) {
  Similarity similarity;
  EXPECT_EQ(takeApart({0, -3, 0, 3, 0, 0, 0, 0, 3}, similarity), "");
  EXPECT_EQ(similarity.m_rotation, Matrix(0, -1, 0, 1, 0, 0, 0, 0, 1));
  EXPECT_EQ(similarity.m_scale, 3);
}

TEST(Similarity, KeepsAScaleThatIsJustNotOne) {
  Similarity similarity;
  EXPECT_EQ(takeApart(Matrix::IDENTITY * 1.00001, similarity), "");
  EXPECT_NEAR(similarity.m_scale, 1.00001, 1e-12);
}

TEST(Similarity, IsNoMatrixThatMirrorsShearsFlattensOrStretches) {
  struct Case {
    Matrix m_linear;
    char const* m_reason;
  };
  Matrix const turn(0.6, -0.8, 0, 0.8, 0.6, 0, 0, 0, 1);
  Matrix const stretch(1, 0, 0, 0, 2, 0, 0, 0, 1);
  for (Case const& refused :
       {Case{{-1, 0, 0, 0, 1, 0, 0, 0, 1}, "mirrors"}, Case{{-2, 0, 0, 0, -2, 0, 0, 0, -2}, "mirrors"},
        Case{turn * Matrix(1, 0, 0, 0, 1, 0, 0, 0, -1), "mirrors"},
        Case{{1, 0.1, 0, 0, 1, 0, 0, 0, 1}, "shears"}, Case{{1, 1e-5, 0, 0, 1, 0, 0, 0, 1}, "shears"},
        Case{turn * stretch * turn, "shears"}, Case{stretch, "non-uniformly, by 1, 2 and 1 "},
        Case{turn * stretch, "non-uniformly, by 1, 2 and 1 "},
        Case{stretch * turn, "non-uniformly, by 1, 2 and 1 "},
        Case{{1, 0, 0, 0, 1.00001, 0, 0, 0, 1}, "non-uniformly, by 1, 1.00001 and 1 "},
        Case{Matrix::ZERO, "singular"}, Case{{1, 0, 0, 0, 1, 0, 0, 0, 0}, "singular"},
        Case{{1, 2, 3, 2, 4, 6, 0, 0, 1}, "singular"}, Case{Matrix::IDENTITY * 1e-13, "from 1e-12 to 1e+12"},
        Case{Matrix::IDENTITY * 1e13, "from 1e-12 to 1e+12"}, Case{Matrix::IDENTITY * NAN, "singular"}}) {
    Similarity similarity;
    std::string const problem = takeApart(refused.m_linear, similarity);
    EXPECT_NE(problem.find(refused.m_reason), std::string::npos) << problem;
    EXPECT_TRUE(isIdentity(similarity));
  }
}

}  // namespace
