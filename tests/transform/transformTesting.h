#pragma once

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <random>
#include <type_traits>
#include <vector>

#include "transform/qvGenericTransformation.h"

/// What the tests of the transformation share: names, numbers, comparisons, random operands.
namespace transformTest {

template <class Real>
using Transformation = qv::qvGenericTransformation<Real>;
template <class Real>
using Vector = Wm4::Vector3<Real>;
template <class Real>
using Matrix = Wm4::Matrix3<Real>;

using Precisions = ::testing::Types<float, double>;

template <class Real>
inline constexpr Real nan = std::numeric_limits<Real>::quiet_NaN();
template <class Real>
inline constexpr Real infinity = std::numeric_limits<Real>::infinity();

/// A literal in the precision under test.
template <class Real>
constexpr Real real(double number) {
  return static_cast<Real>(number);
}

template <class Real>
Vector<Real> vector(double x, double y, double z) {
  return {real<Real>(x), real<Real>(y), real<Real>(z)};
}

template <class Real>
Matrix<Real> diagonal(double x, double y, double z) {
  return {real<Real>(x), 0, 0, 0, real<Real>(y), 0, 0, 0, real<Real>(z)};
}

/// The quarter turn about z: x to y.
template <class Real>
Matrix<Real> quarterTurn() {
  return {0, -1, 0, 1, 0, 0, 0, 0, 1};
}

template <class Real>
Transformation<Real> rotation(Matrix<Real> const& matrix, double scale, Vector<Real> const& translation) {
  Transformation<Real> t;
  t.SetRotate(matrix);
  t.SetUniformScale(real<Real>(scale));
  t.SetTranslate(translation);
  return t;
}

template <class Real>
Transformation<Real> scaling(double x, double y, double z, Vector<Real> const& translation = {}) {
  Transformation<Real> t;
  t.SetScale(vector<Real>(x, y, z));
  t.SetTranslate(translation);
  return t;
}

template <class Real>
Transformation<Real> general(Matrix<Real> const& matrix, Vector<Real> const& translation = {}) {
  Transformation<Real> t;
  t.SetMatrix(matrix);
  t.SetTranslate(translation);
  return t;
}

template <class Real>
Transformation<Real> translation(double x, double y, double z) {
  Transformation<Real> t;
  t.SetTranslate(vector<Real>(x, y, z));
  return t;
}

// Comparisons.

template <class Real>
auto bits(Real number) {
  return std::bit_cast<std::conditional_t<sizeof(Real) == 4, std::uint32_t, std::uint64_t>>(number);
}

/// Equal bits, or both NaN.
template <class Real>
bool sameNumber(Real a, Real b) {
  return bits(a) == bits(b) || (std::isnan(a) && std::isnan(b));
}

template <class Real>
bool sameVector(Vector<Real> const& a, Vector<Real> const& b) {
  return sameNumber(a.X(), b.X()) && sameNumber(a.Y(), b.Y()) && sameNumber(a.Z(), b.Z());
}

template <class Real>
::testing::AssertionResult near(Vector<Real> const& a, Vector<Real> const& b, double tolerance = 1e-6) {
  double const size = std::fmax(1.0, static_cast<double>(b.Length()));
  if (static_cast<double>((a - b).Length()) <= tolerance * size) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << '(' << a.X() << ", " << a.Y() << ", " << a.Z() << ") is not ("
                                       << b.X() << ", " << b.Y() << ", " << b.Z() << ')';
}

template <class Real>
::testing::AssertionResult near(Matrix<Real> const& a, Matrix<Real> const& b, double tolerance = 1e-6) {
  for (std::size_t i = 0; i < 3; ++i) {
    auto const row = near(a.row(i), b.row(i), tolerance);
    if (!row) return row;
  }
  return ::testing::AssertionSuccess();
}

template <class Real>
void expectFlags(Transformation<Real> const& t, bool identity, bool rs, bool uniform) {
  EXPECT_EQ(t.m_isIdentity, identity) << "identity flag";
  EXPECT_EQ(t.m_isRSMatrix, rs) << "rotation-and-scale flag";
  EXPECT_EQ(t.m_isUniformScale, uniform) << "uniform-scale flag";
}

// Random operands, the same in every run.

using Random = std::mt19937_64;

template <class Real>
Real number(Random& random, double low = -4, double high = 4) {
  double const unit = static_cast<double>(random() >> 11) * 0x1p-53;
  return real<Real>(low + (high - low) * unit);
}

template <class Real>
Vector<Real> randomVector(Random& random) {
  Real const x = number<Real>(random);
  Real const y = number<Real>(random);
  Real const z = number<Real>(random);
  return {x, y, z};
}

template <class Real>
Matrix<Real> randomMatrix(Random& random) {
  Matrix<Real> m;
  for (std::size_t i = 0; i < 9; ++i) m.data()[i] = number<Real>(random);
  return m;
}

/// The rotation of a random unit quaternion.
template <class Real>
Matrix<Real> randomRotation(Random& random) {
  double q[4];
  double square = 0;
  do {
    square = 0;
    for (double& component : q) {
      component = number<double>(random, -1, 1);
      square += component * component;
    }
  } while (square < 0.01 || square > 1);
  for (double& component : q) component /= std::sqrt(square);
  auto const [w, x, y, z] = q;
  return {real<Real>(1 - 2 * (y * y + z * z)), real<Real>(2 * (x * y - w * z)),
          real<Real>(2 * (x * z + w * y)),     real<Real>(2 * (x * y + w * z)),
          real<Real>(1 - 2 * (x * x + z * z)), real<Real>(2 * (y * z - w * x)),
          real<Real>(2 * (x * z - w * y)),     real<Real>(2 * (y * z + w * x)),
          real<Real>(1 - 2 * (x * x + y * y))};
}

/// One transformation of each kind that the flags tell apart, at random.
template <class Real>
std::vector<Transformation<Real>> oneOfEachKind(Random& random) {
  Real const size = number<Real>(random, 0.25, 4);
  Transformation<Real> uniform;
  uniform.SetRotate(randomRotation<Real>(random));
  uniform.SetUniformScale(size);
  uniform.SetTranslate(randomVector<Real>(random));
  Transformation<Real> nonUniform = uniform;
  nonUniform.SetScale({size, number<Real>(random, 0.25, 4), number<Real>(random, -4, -0.25)});
  Transformation<Real> mirrored = uniform;
  mirrored.SetScale({size, -size, size});
  Transformation<Real> stretched = nonUniform;
  stretched.SetRotate(Matrix<Real>::IDENTITY);
  Transformation<Real> moved;
  moved.SetTranslate(randomVector<Real>(random));
  Transformation<Real> anyMatrix;
  anyMatrix.SetMatrix(randomMatrix<Real>(random));
  anyMatrix.SetTranslate(randomVector<Real>(random));
  return {Transformation<Real>(), moved, uniform, nonUniform, mirrored, stretched, anyMatrix};
}

/// Numbers at which formulas go wrong.
template <class Real>
std::vector<Real> specialNumbers() {
  using Limits = std::numeric_limits<Real>;
  std::vector<Real> numbers;
  for (Real const n : {Real(0), Real(1), Limits::denorm_min(), Limits::min() / 2, Limits::min(),
                       Limits::epsilon(), real<Real>(1.0 / 3.0), Limits::max(), Limits::infinity()}) {
    numbers.push_back(n);
    numbers.push_back(-n);
  }
  numbers.push_back(nan<Real>);
  return numbers;
}

}  // namespace transformTest
