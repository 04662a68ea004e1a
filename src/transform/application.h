#pragma once

#include "transform/formulas.h"
#include "transform/linearAlgebra.h"
#include "transform/mapArray.h"
#include "transform/qvGenericTransformation.h"
#include "transform/state.h"

/// Maps of points, vectors, planes and normals.
namespace qv {

namespace transform {

/// L p, plus the translation on demand. Not for identities.
template <class Real>
[[gnu::always_inline]] inline Wm4::Vector3<Real> forwardImage(qvGenericTransformation<Real> const& t,
                                                              Wm4::Vector3<Real> const& point,
                                                              bool withTranslation) noexcept {
  auto const map = [&](auto const& formula) { return applied(formula, point); };
  return withTranslation ? withForward(t, map, Add<Real>(t.m_translate)) : withForward(t, map);
}

/// L^-1 p, or L^-1 (p - t). Not for identities. Zero scales are not guarded.
template <class Real>
[[gnu::always_inline]] inline Wm4::Vector3<Real> inverseImage(qvGenericTransformation<Real> const& t,
                                                              Wm4::Vector3<Real> const& point,
                                                              bool withTranslation) noexcept {
  auto const map = [&](auto const& formula) { return applied(formula, point); };
  return withTranslation ? withInverse(t, map, Subtract<Real>(t.m_translate)) : withInverse(t, map);
}

/// True for a uniform scale of zero, which the maps of single points guard.
template <class Real>
bool isCollapsed(qvGenericTransformation<Real> const& t) noexcept {
  return t.IsUniformScale() && t.GetUniformScale() == Real(0);
}

}  // namespace transform

template <class Real>
auto qvGenericTransformation<Real>::ApplyForward(Vector3 const& point, bool withTranslation) const noexcept
    -> Vector3 {
  return m_isIdentity ? point : transform::forwardImage(*this, point, withTranslation);
}

template <class Real>
void qvGenericTransformation<Real>::ApplyForward(int count, Vector3 const* in, Vector3* out,
                                                 bool withTranslation) const noexcept {
  if (m_isIdentity) return transform::copyArray(count, in, out);
  if (transform::areFew(count)) {
    auto const map = [&](Vector3 const& p) { return transform::forwardImage(*this, p, withTranslation); };
    return transform::mapAscending(map, count, in, out);
  }
  auto const map = [&](auto const& formula) { transform::mapArray(formula, count, in, out); };
  return withTranslation ? transform::withForward(*this, map, transform::Add<Real>(m_translate))
                         : transform::withForward(*this, map);
}

template <class Real>
auto qvGenericTransformation<Real>::ApplyInverse(Vector3 const& point, bool withTranslation) const noexcept
    -> Vector3 {
  constexpr Real maximum = Wm4::Math<Real>::MAX_REAL;
  if (m_isIdentity) return point;
  if (transform::isCollapsed(*this)) return {maximum, maximum, maximum};
  return transform::inverseImage(*this, point, withTranslation);
}

template <class Real>
void qvGenericTransformation<Real>::ApplyInverse(int count, Vector3 const* in, Vector3* out) const noexcept {
  // KEEP: no guard against a zero uniform scale, other than in the point form.
  if (m_isIdentity) return transform::copyArray(count, in, out);
  if (transform::areFew(count)) {
    auto const map = [&](Vector3 const& p) { return transform::inverseImage(*this, p, true); };
    return transform::mapAscending(map, count, in, out);
  }
  auto const map = [&](auto const& formula) { transform::mapArray(formula, count, in, out); };
  transform::withInverse(*this, map, transform::Subtract<Real>(m_translate));
}

template <class Real>
auto qvGenericTransformation<Real>::InvertVector(Vector3 const& vector) const noexcept -> Vector3 {
  return ApplyInverse(vector, false);
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
