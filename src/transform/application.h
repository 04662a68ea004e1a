#pragma once

#include "transform/formulas.h"
#include "transform/linearAlgebra.h"
#include "transform/mapArray.h"
#include "transform/qvGenericTransformation.h"
#include "transform/state.h"

/// Maps of points, vectors, planes and normals.
namespace qv {

template <class Real>
auto qvGenericTransformation<Real>::ApplyForward(Vector3 const& point, bool withTranslation) const noexcept
    -> Vector3 {
  if (m_isIdentity) return point;
  return transform::withForwardSteps(*this, [&](auto const&... steps) {
    return withTranslation
               ? transform::applied(transform::Chain{steps..., transform::Add<Real>(m_translate)}, point)
               : transform::applied(transform::Chain{steps...}, point);
  });
}

template <class Real>
void qvGenericTransformation<Real>::ApplyForward(int count, Vector3 const* in, Vector3* out,
                                                 bool withTranslation) const noexcept {
  if (m_isIdentity) return transform::copyArray(count, in, out);
  transform::withForwardSteps(*this, [&](auto const&... steps) {
    if (withTranslation) {
      transform::mapArray(transform::Chain{steps..., transform::Add<Real>(m_translate)}, count, in, out);
    } else {
      transform::mapArray(transform::Chain{steps...}, count, in, out);
    }
  });
}

template <class Real>
auto qvGenericTransformation<Real>::InvertVector(Vector3 const& vector) const noexcept -> Vector3 {
  if (m_isIdentity) return vector;
  constexpr Real maximum = Wm4::Math<Real>::MAX_REAL;
  if (IsUniformScale() && GetUniformScale() == Real(0)) return {maximum, maximum, maximum};
  return transform::withInverseSteps(
      *this, [&](auto const&... steps) { return transform::applied(transform::Chain{steps...}, vector); });
}

template <class Real>
auto qvGenericTransformation<Real>::ApplyInverse(Vector3 const& point, bool withTranslation) const noexcept
    -> Vector3 {
  if (m_isIdentity) return point;
  return InvertVector(withTranslation ? transform::applied(transform::Subtract<Real>(m_translate), point)
                                      : point);
}

template <class Real>
void qvGenericTransformation<Real>::ApplyInverse(int count, Vector3 const* in, Vector3* out) const noexcept {
  // KEEP: no guard against a zero uniform scale, other than in the point form.
  if (m_isIdentity) return transform::copyArray(count, in, out);
  transform::withInverseSteps(*this, [&](auto const&... steps) {
    transform::mapArray(transform::Chain{transform::Subtract<Real>(m_translate), steps...}, count, in, out);
  });
}

template <class Real>
auto qvGenericTransformation<Real>::ApplyForward(Plane3 const& plane) const noexcept -> Plane3 {
  if (m_isIdentity) return plane;
  if (IsUniformScale()) {
    // KEEP: this normal is not renormalised.
    Vector3 const normal = m_matrix * plane.Normal;
    return {normal, normal.Dot(m_translate) + GetUniformScale() * plane.Constant};
  }
  Vector3 const image = m_isRSMatrix
                            ? m_matrix * transform::applied(transform::Divide<Real>(m_scale), plane.Normal)
                            : transform::inverted(m_matrix).Transpose() * plane.Normal;
  Real const reciprocal = Real(1) / image.Length();
  return {image * reciprocal, (image.Dot(m_translate) + plane.Constant) * reciprocal};
}

template <class Real>
auto qvGenericTransformation<Real>::ApplyNormal(Vector3 const& normal) const noexcept -> Vector3 {
  qvGenericTransformation inverse;
  Inverse(inverse);
  return transform::unitOrZero(transform::linearPart(inverse).Transpose() * normal);
}

}  // namespace qv
