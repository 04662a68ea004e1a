#pragma once

#include <cmath>

#include "transform/linearAlgebra.h"
#include "transform/qvGenericTransformation.h"
#include "transform/state.h"

/// Product and inverse.
namespace qv {

namespace transform {

template <class Real>
Wm4::Vector3<Real> componentProduct(Wm4::Vector3<Real> const& a, Wm4::Vector3<Real> const& b) noexcept {
  return {a[0] * b[0], a[1] * b[1], a[2] * b[2]};
}

/// a after b for rotations with scale, a's scale being uniform.
template <class Real>
qvGenericTransformation<Real> uniformAfterRotation(qvGenericTransformation<Real> const& a,
                                                   qvGenericTransformation<Real> const& b) noexcept {
  Real const s = a.GetUniformScale();
  qvGenericTransformation<Real> product;
  product.SetRotate(a.m_matrix * b.m_matrix);
  product.SetTranslate((a.m_matrix * b.m_translate) * s + a.m_translate);
  product.SetScale(b.m_scale * s);
  // A flag of b that says uniform stays, even where the numbers (a NaN) would not say so.
  if (b.m_isUniformScale) product.m_isUniformScale = true;
  return product;
}

/// a after b, a being a scale and translation without rotation.
template <class Real>
qvGenericTransformation<Real> scaleAfterRotation(qvGenericTransformation<Real> const& a,
                                                 qvGenericTransformation<Real> const& b) noexcept {
  // KEEP: scaling after a rotation is taken as scaling before it, which is no true composition when b is
  // rotated.
  qvGenericTransformation<Real> product;
  product.SetRotate(b.m_matrix);
  product.SetScale(componentProduct(a.m_scale, b.m_scale));
  product.SetTranslate(linearPart(a) * b.m_translate + a.m_translate);
  return product;
}

template <class Real>
qvGenericTransformation<Real> generalProduct(qvGenericTransformation<Real> const& a,
                                             qvGenericTransformation<Real> const& b) noexcept {
  Wm4::Matrix3<Real> const linear = linearPart(a);
  qvGenericTransformation<Real> product;
  product.SetMatrix(linear * linearPart(b));
  product.SetTranslate(linear * b.m_translate + a.m_translate);
  return product;
}

/// a after b when neither is flagged as the identity.
template <class Real>
qvGenericTransformation<Real> composed(qvGenericTransformation<Real> const& a,
                                       qvGenericTransformation<Real> const& b) noexcept {
  auto const rotates = [](auto const& t) { return !sameBits(t.m_matrix, Wm4::Matrix3<Real>::IDENTITY); };
  if (!a.m_isRSMatrix || !b.m_isRSMatrix) return generalProduct(a, b);
  if (a.m_isUniformScale) return uniformAfterRotation(a, b);
  if (!rotates(a) && (b.m_isUniformScale || !rotates(b))) return scaleAfterRotation(a, b);
  return generalProduct(a, b);
}

/// The inverse with this linear part, stored as a general matrix.
template <class Real>
qvGenericTransformation<Real> generalInverse(Wm4::Matrix3<Real> const& linear,
                                             Wm4::Vector3<Real> const& translation) noexcept {
  qvGenericTransformation<Real> inverse;
  inverse.SetMatrix(linear);
  inverse.SetTranslate(-(linear * translation));
  return inverse;
}

template <class Real>
qvGenericTransformation<Real> uniformInverse(qvGenericTransformation<Real> const& t) noexcept {
  Real const factor = Real(1) / t.GetUniformScale();
  qvGenericTransformation<Real> inverse;
  inverse.SetRotate(t.m_matrix.Transpose());
  inverse.SetUniformScale(factor);
  inverse.SetTranslate((inverse.m_matrix * t.m_translate) * -factor);
  return inverse;
}

/// diag(1 / scale) times the transposed rotation.
template <class Real>
Wm4::Matrix3<Real> scaledBack(qvGenericTransformation<Real> const& t) noexcept {
  Wm4::Matrix3<Real> back = t.m_matrix.Transpose();
  for (std::size_t i = 0; i < 3; ++i) {
    Real const factor = Real(1) / t.m_scale[i];
    for (std::size_t j = 0; j < 3; ++j) back(i, j) *= factor;
  }
  return back;
}

/// The inverse of scales +-a: rows change sign with their scale, and where that mirrors, so does the first
/// column and the x scale, which keeps the rotation proper.
template <class Real>
qvGenericTransformation<Real> mirroredInverse(qvGenericTransformation<Real> const& t) noexcept {
  bool negative[3];
  for (std::size_t i = 0; i < 3; ++i) negative[i] = t.m_scale[i] < Real(0);
  bool const mirrors = (negative[0] != negative[1]) != negative[2];
  Wm4::Matrix3<Real> rotation = t.m_matrix.Transpose();
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t j = 0; j < 3; ++j) {
      bool const negate = negative[i] != (mirrors && j == 0);
      if (negate) rotation(i, j) = -rotation(i, j);
    }
  }
  Real const factor = Real(1) / std::abs(t.m_scale[0]);
  qvGenericTransformation<Real> inverse;
  inverse.SetRotate(rotation);
  inverse.SetScale({mirrors ? -factor : factor, factor, factor});
  // By the signs alone: factors of zero compare equal whatever their signs.
  inverse.m_isUniformScale = !mirrors;
  inverse.SetTranslate(-(linearPart(inverse) * t.m_translate));
  return inverse;
}

/// The inverse of a transformation that is not flagged as the identity.
template <class Real>
qvGenericTransformation<Real> invertedTransformation(qvGenericTransformation<Real> const& t) noexcept {
  if (!t.m_isRSMatrix) return generalInverse(inverted(t.m_matrix), t.m_translate);
  if (t.m_isUniformScale) return uniformInverse(t);
  Wm4::Vector3<Real> const& s = t.m_scale;
  bool const equalSizes = equalComponents(Wm4::Vector3<Real>(std::abs(s[0]), std::abs(s[1]), std::abs(s[2])));
  return equalSizes ? mirroredInverse(t) : generalInverse(scaledBack(t), t.m_translate);
}

}  // namespace transform

template <class Real>
void qvGenericTransformation<Real>::Product(qvGenericTransformation const& a,
                                            qvGenericTransformation const& b) noexcept {
  if (a.m_isIdentity) {
    *this = b;
  } else if (b.m_isIdentity) {
    *this = a;
    m_isIdentity = false;
  } else {
    *this = transform::composed(a, b);
  }
}

template <class Real>
void qvGenericTransformation<Real>::Inverse(qvGenericTransformation& out) const noexcept {
  out = m_isIdentity ? *this : transform::invertedTransformation(*this);
}

}  // namespace qv
