#pragma once

#include <cmath>
#include <cstddef>

namespace Wm4 {

/// Two numbers, laid out as a plain array: x, y.
template <class Real>
class Vector2 {
 public:
  static Vector2 const ZERO;
  static Vector2 const UNIT_X;
  static Vector2 const UNIT_Y;
  static Vector2 const ONE;

  constexpr Vector2() noexcept = default;
  constexpr Vector2(Real x, Real y) noexcept : m_tuple{x, y} {}

  constexpr Real X() const noexcept { return m_tuple[0]; }
  constexpr Real& X() noexcept { return m_tuple[0]; }
  constexpr Real Y() const noexcept { return m_tuple[1]; }
  constexpr Real& Y() noexcept { return m_tuple[1]; }
  constexpr Real operator[](std::size_t i) const noexcept { return m_tuple[i]; }
  constexpr Real& operator[](std::size_t i) noexcept { return m_tuple[i]; }

  constexpr Vector2 operator+(Vector2 const& v) const noexcept { return {X() + v.X(), Y() + v.Y()}; }
  constexpr Vector2 operator-(Vector2 const& v) const noexcept { return {X() - v.X(), Y() - v.Y()}; }
  constexpr Vector2 operator*(Real s) const noexcept { return {X() * s, Y() * s}; }
  constexpr Vector2 operator-() const noexcept { return {-X(), -Y()}; }
  constexpr Vector2& operator+=(Vector2 const& v) noexcept { return *this = *this + v; }
  constexpr Vector2& operator-=(Vector2 const& v) noexcept { return *this = *this - v; }
  friend constexpr Vector2 operator*(Real s, Vector2 const& v) noexcept { return v * s; }

  /// Compared as numbers: -0 equals +0, NaN equals nothing.
  friend constexpr bool operator==(Vector2 const& a, Vector2 const& b) noexcept {
    return a.X() == b.X() && a.Y() == b.Y();
  }

  constexpr Real Dot(Vector2 const& v) const noexcept { return X() * v.X() + Y() * v.Y(); }
  /// Perpendicular product: x * v.y - y * v.x.
  constexpr Real DotPerp(Vector2 const& v) const noexcept { return X() * v.Y() - Y() * v.X(); }
  constexpr Real SquaredLength() const noexcept { return Dot(*this); }
  Real Length() const noexcept { return std::sqrt(SquaredLength()); }

 private:
  Real m_tuple[2] = {};
};

template <class Real>
inline constexpr Vector2<Real> Vector2<Real>::ZERO{Real(0), Real(0)};
template <class Real>
inline constexpr Vector2<Real> Vector2<Real>::UNIT_X{Real(1), Real(0)};
template <class Real>
inline constexpr Vector2<Real> Vector2<Real>::UNIT_Y{Real(0), Real(1)};
template <class Real>
inline constexpr Vector2<Real> Vector2<Real>::ONE{Real(1), Real(1)};

}  // namespace Wm4
