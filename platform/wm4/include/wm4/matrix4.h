#pragma once

#include <cstddef>

namespace Wm4 {

/// 4x4 matrix, row-major: entry (i, j) is at index 4 * i + j.
template <class Real>
class Matrix4 {
 public:
  static Matrix4 const ZERO;
  static Matrix4 const IDENTITY;

  /// The zero matrix.
  constexpr Matrix4() noexcept = default;
  constexpr Matrix4(Real m00, Real m01, Real m02, Real m03, Real m10, Real m11, Real m12, Real m13, Real m20,
                    Real m21, Real m22, Real m23, Real m30, Real m31, Real m32, Real m33) noexcept
      : m_entry{m00, m01, m02, m03, m10, m11, m12, m13, m20, m21, m22, m23, m30, m31, m32, m33} {}

  constexpr Real operator()(std::size_t row, std::size_t column) const noexcept {
    return m_entry[4 * row + column];
  }
  constexpr Real& operator()(std::size_t row, std::size_t column) noexcept {
    return m_entry[4 * row + column];
  }

  /// The sixteen entries in row-major order.
  constexpr Real const* data() const noexcept { return m_entry; }
  constexpr Real* data() noexcept { return m_entry; }

  /// Compared as numbers: -0 equals +0, NaN equals nothing.
  friend constexpr bool operator==(Matrix4 const& a, Matrix4 const& b) noexcept {
    for (std::size_t i = 0; i < 16; ++i) {
      if (!(a.m_entry[i] == b.m_entry[i])) return false;
    }
    return true;
  }

 private:
  Real m_entry[16] = {};
};

template <class Real>
inline constexpr Matrix4<Real> Matrix4<Real>::ZERO{};
template <class Real>
inline constexpr Matrix4<Real> Matrix4<Real>::IDENTITY{Real(1), Real(0), Real(0), Real(0), Real(0), Real(1),
                                                       Real(0), Real(0), Real(0), Real(0), Real(1), Real(0),
                                                       Real(0), Real(0), Real(0), Real(1)};

}  // namespace Wm4
