#pragma once

#include <cmath>
#include <cstddef>

namespace Wm4 {

/// Three numbers, laid out as a plain array: x, y, z.
template <class Real>
class Vector3 {
 public:
  static Vector3 const ZERO;
  static Vector3 const UNIT_X;
  static Vector3 const UNIT_Y;
  static Vector3 const UNIT_Z;
  static Vector3 const ONE;

  constexpr Vector3() noexcept = default;
  constexpr Vector3(Real x, Real y, Real z) noexcept : m_tuple{x, y, z} {}

  constexpr Real X() const noexcept { return m_tuple[0]; }
  constexpr Real& X() noexcept { return m_tuple[0]; }
  constexpr Real Y() const noexcept { return m_tuple[1]; }
  constexpr Real& Y() noexcept { return m_tuple[1]; }
  constexpr Real Z() const noexcept { return m_tuple[2]; }
  constexpr Real& Z() noexcept { return m_tuple[2]; }
  constexpr Real operator[](std::size_t i) const noexcept { return m_tuple[i]; }
  constexpr Real& operator[](std::size_t i) noexcept { return m_tuple[i]; }

  constexpr Vector3 operator+(Vector3 const& v) const noexcept {
    return {X() + v.X(), Y() + v.Y(), Z() + v.Z()};
  }
  constexpr Vector3 operator-(Vector3 const& v) const noexcept {
    return {X() - v.X(), Y() - v.Y(), Z() - v.Z()};
  }
  constexpr Vector3 operator*(Real s) const noexcept { return {X() * s, Y() * s, Z() * s}; }
  constexpr Vector3 operator-() const noexcept { return {-X(), -Y(), -Z()}; }
  constexpr Vector3& operator+=(Vector3 const& v) noexcept { return *this = *this + v; }
  constexpr Vector3& operator-=(Vector3 const& v) noexcept { return *this = *this - v; }
  friend constexpr Vector3 operator*(Real s, Vector3 const& v) noexcept { return v * s; }

  /// Compared as numbers: -0 equals +0, NaN equals nothing.
  friend constexpr bool operator==(Vector3 const& a, Vector3 const& b) noexcept {
    return a.X() == b.X() && a.Y() == b.Y() && a.Z() == b.Z();
  }

  constexpr Real Dot(Vector3 const& v) const noexcept { return X() * v.X() + Y() * v.Y() + Z() * v.Z(); }
  constexpr Vector3 Cross(Vector3 const& v) const noexcept {
    return {Y() * v.Z() - Z() * v.Y(), Z() * v.X() - X() * v.Z(), X() * v.Y() - Y() * v.X()};
  }
  constexpr Real SquaredLength() const noexcept { return Dot(*this); }
  Real Length() const noexcept { return std::sqrt(SquaredLength()); }

 private:
  Real m_tuple[3] = {};
};

template <class Real>
inline constexpr Vector3<Real> Vector3<Real>::ZERO{Real(0), Real(0), Real(0)};
template <class Real>
inline constexpr Vector3<Real> Vector3<Real>::UNIT_X{Real(1), Real(0), Real(0)};
template <class Real>
inline constexpr Vector3<Real> Vector3<Real>::UNIT_Y{Real(0), Real(1), Real(0)};
template <class Real>
inline constexpr Vector3<Real> Vector3<Real>::UNIT_Z{Real(0), Real(0), Real(1)};
template <class Real>
inline constexpr Vector3<Real> Vector3<Real>::ONE{Real(1), Real(1), Real(1)};

}  // namespace Wm4
