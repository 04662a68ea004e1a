#pragma once

#include "transform/linearAlgebra.h"
#include "transform/qvGenericTransformation.h"
#include "transform/steps.h"

/// The flags of a transformation choose the formula of its linear part, once for each call. Not for
/// identities. A formula is built in place, without copies, because short arrays feel every one.
namespace qv::transform {

/// Hands the formula of p -> L p, followed by the step or steps `last`, to `use`.
template <class Real, class Use, class... Last>
[[gnu::always_inline]] inline auto withForward(qvGenericTransformation<Real> const& t, Use&& use,
                                               Last const&... last) {
  return t.m_isRSMatrix ? use(Chain{Scale<Real>(t.m_scale), Multiply<Real>(t.m_matrix), last...})
                        : use(Chain{Multiply<Real>(t.m_matrix), last...});
}

/// Hands the formula of p -> L^-1 p, after the step or steps `first`, to `use`. A zero scale becomes an
/// infinite factor.
template <class Real, class Use, class... First>
[[gnu::always_inline]] inline auto withInverse(qvGenericTransformation<Real> const& t, Use&& use,
                                               First const&... first) {
  if (!t.m_isRSMatrix) return use(Chain{first..., Multiply<Real>(inverted(t.m_matrix))});
  Wm4::Matrix3<Real> const back = t.m_matrix.Transpose();
  if (!t.m_isUniformScale) return use(Chain{first..., Multiply<Real>(back), Divide<Real>(t.m_scale)});
  Real const factor = Real(1) / t.GetUniformScale();
  return use(Chain{first..., Multiply<Real>(back), Scale<Real>(Wm4::Vector3<Real>(factor, factor, factor))});
}

/// The formula's result for one point.
template <class Real, class Formula>
[[gnu::always_inline]] inline Wm4::Vector3<Real> applied(Formula const& formula,
                                                         Wm4::Vector3<Real> const& point) {
  Real x = point.X();
  Real y = point.Y();
  Real z = point.Z();
  formula(x, y, z);
  return {x, y, z};
}

}  // namespace qv::transform
