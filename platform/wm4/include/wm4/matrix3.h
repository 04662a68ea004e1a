#pragma once

#include <cstddef>

#include "wm4/vector3.h"

namespace Wm4 {

/// 3x3 matrix, row-major: entry (i, j) is at index 3 * i + j. Applied to column vectors.
template <class Real>
class Matrix3 {
 public:
  static Matrix3 const ZERO;
  static Matrix3 const IDENTITY;

  /// The zero matrix.
  constexpr Matrix3() noexcept = default;
  constexpr Matrix3(Real m00, Real m01, Real m02, Real m10, Real m11, Real m12, Real m20, Real m21,
                    Real m22) noexcept
      : m_entry{m00, m01, m02, m10, m11, m12, m20, m21, m22} {}

  constexpr Real operator()(std::size_t row, std::size_t column) const noexcept {
    return m_entry[3 * row + column];
  }
  constexpr Real& operator()(std::size_t row, std::size_t column) noexcept {
    return m_entry[3 * row + column];
  }

  /// The nine entries in row-major order.
  constexpr Real const* data() const noexcept { return m_entry; }
  constexpr Real* data() noexcept { return m_entry; }

  constexpr Vector3<Real> operator*(Vector3<Real> const& v) const noexcept {
    return {row(0).Dot(v), row(1).Dot(v), row(2).Dot(v)};
  }

  constexpr Matrix3 operator*(Matrix3 const& m) const noexcept {
    Matrix3 product;
    for (std::size_t i = 0; i < 3; ++i) {
      for (std::size_t j = 0; j < 3; ++j) product(i, j) = row(i).Dot(m.column(j));
    }
    return product;
  }

  constexpr Matrix3 operator*(Real s) const noexcept {
    Matrix3 product;
    for (std::size_t i = 0; i < 9; ++i) product.m_entry[i] = m_entry[i] * s;
    return product;
  }

  constexpr Matrix3 Transpose() const noexcept {
    Matrix3 const& m = *this;
    return {m(0, 0), m(1, 0), m(2, 0), m(0, 1), m(1, 1), m(2, 1), m(0, 2), m(1, 2), m(2, 2)};
  }

  constexpr Vector3<Real> row(std::size_t i) const noexcept {
    return {m_entry[3 * i], m_entry[3 * i + 1], m_entry[3 * i + 2]};
  }
  constexpr Vector3<Real> column(std::size_t j) const noexcept {
    return {m_entry[j], m_entry[3 + j], m_entry[6 + j]};
  }

  /// Compared as numbers: -0 equals +0, NaN equals nothing.
  friend constexpr bool operator==(Matrix3 const& a, Matrix3 const& b) noexcept {
    for (std::size_t i = 0; i < 9; ++i) {
      if (!(a.m_entry[i] == b.m_entry[i])) return false;
    }
    return true;
  }

 private:
  Real m_entry[9] = {};
};

template <class Real>
inline constexpr Matrix3<Real> Matrix3<Real>::ZERO{};
template <class Real>
inline constexpr Matrix3<Real> Matrix3<Real>::IDENTITY{Real(1), Real(0), Real(0), Real(0), Real(1),
                                                       Real(0), Real(0), Real(0), Real(1)};

}  // namespace Wm4
