#pragma once

#include "annotationLegacy/platform.h"

/// The arithmetic of the point maps, each step written once. A step works on lanes: one number of a point, or
/// a vector of that number of several points. Both see the same operations in the same order, hence the same
/// bits. Everything that computes is always inlined, so that no copy compiled for a newer processor is left
/// for other callers.
namespace qv::transform {

/// Each component times its own factor.
template <class Real>
class Scale {
 public:
  explicit Scale(Wm4::Vector3<Real> const& s) noexcept : m_factor{s[0], s[1], s[2]} {}

  template <class Lane>
  [[gnu::always_inline]] void operator()(Lane& x, Lane& y, Lane& z) const noexcept {
    x = x * m_factor[0];
    y = y * m_factor[1];
    z = z * m_factor[2];
  }

 private:
  Real m_factor[3];
};

/// Each component divided by its scale, through the reciprocal of the product of all three. Zeros are not
/// guarded.
template <class Real>
class Divide {
 public:
  explicit Divide(Wm4::Vector3<Real> const& s) noexcept
      : m_cofactor{s[1] * s[2], s[0] * s[2], s[0] * s[1]}, m_reciprocal(Real(1) / (s[0] * s[1] * s[2])) {}

  template <class Lane>
  [[gnu::always_inline]] void operator()(Lane& x, Lane& y, Lane& z) const noexcept {
    x = x * m_cofactor[0] * m_reciprocal;
    y = y * m_cofactor[1] * m_reciprocal;
    z = z * m_cofactor[2] * m_reciprocal;
  }

 private:
  Real m_cofactor[3];
  Real m_reciprocal;
};

/// Matrix times column vector.
template <class Real>
class Multiply {
 public:
  explicit Multiply(Wm4::Matrix3<Real> const& m) noexcept
      : m_entry{m(0, 0), m(0, 1), m(0, 2), m(1, 0), m(1, 1), m(1, 2), m(2, 0), m(2, 1), m(2, 2)} {}

  template <class Lane>
  [[gnu::always_inline]] void operator()(Lane& x, Lane& y, Lane& z) const noexcept {
    Real const* const m = m_entry;
    Lane const p = x;
    Lane const q = y;
    Lane const r = z;
    x = p * m[0] + q * m[1] + r * m[2];
    y = p * m[3] + q * m[4] + r * m[5];
    z = p * m[6] + q * m[7] + r * m[8];
  }

 private:
  Real m_entry[9];
};

/// Plus a translation.
template <class Real>
class Add {
 public:
  explicit Add(Wm4::Vector3<Real> const& t) noexcept : m_offset{t[0], t[1], t[2]} {}

  template <class Lane>
  [[gnu::always_inline]] void operator()(Lane& x, Lane& y, Lane& z) const noexcept {
    x = x + m_offset[0];
    y = y + m_offset[1];
    z = z + m_offset[2];
  }

 private:
  Real m_offset[3];
};

/// Minus a translation.
template <class Real>
class Subtract {
 public:
  explicit Subtract(Wm4::Vector3<Real> const& t) noexcept : m_offset{t[0], t[1], t[2]} {}

  template <class Lane>
  [[gnu::always_inline]] void operator()(Lane& x, Lane& y, Lane& z) const noexcept {
    x = x - m_offset[0];
    y = y - m_offset[1];
    z = z - m_offset[2];
  }

 private:
  Real m_offset[3];
};

/// A formula: steps of different kinds, one after the other.
template <class... Steps>
struct Chain : Steps... {
  template <class Lane>
  [[gnu::always_inline]] void operator()(Lane& x, Lane& y, Lane& z) const noexcept {
    (static_cast<Steps const&>(*this)(x, y, z), ...);
  }
};
template <class... Steps>
Chain(Steps...) -> Chain<Steps...>;

}  // namespace qv::transform
