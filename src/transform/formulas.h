#pragma once

#include "transform/linearAlgebra.h"
#include "transform/qvGenericTransformation.h"
#include "transform/steps.h"

/// The flags of a transformation choose the steps of its linear part, once for each call.
namespace qv::transform {

/// Hands the steps of p -> L p to `use`. Not for identities.
template <class Real, class Use>
[[gnu::always_inline]] inline auto withForwardSteps(qvGenericTransformation<Real> const& t, Use&& use) {
  Multiply<Real> const linear(t.m_matrix);
  return t.m_isRSMatrix ? use(Scale<Real>(t.m_scale), linear) : use(linear);
}

/// Hands the steps of p -> L^-1 p to `use`. Not for identities. A zero scale becomes an infinite factor.
template <class Real, class Use>
[[gnu::always_inline]] inline auto withInverseSteps(qvGenericTransformation<Real> const& t, Use&& use) {
  if (!t.m_isRSMatrix) return use(Multiply<Real>(inverted(t.m_matrix)));
  Multiply<Real> const rotateBack(t.m_matrix.Transpose());
  if (!t.m_isUniformScale) return use(rotateBack, Divide<Real>(t.m_scale));
  Real const factor = Real(1) / t.GetUniformScale();
  return use(rotateBack, Scale<Real>(Wm4::Vector3<Real>(factor, factor, factor)));
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
