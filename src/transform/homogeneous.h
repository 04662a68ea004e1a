#pragma once

#include <cmath>

#include "transform/linearAlgebra.h"
#include "transform/qvGenericTransformation.h"
#include "transform/state.h"

/// Decomposition of 4x4 matrices.
namespace qv {

namespace transform {

template <class Real>
Wm4::Matrix3<Real> fromColumns(Wm4::Vector3<Real> const& a, Wm4::Vector3<Real> const& b,
                               Wm4::Vector3<Real> const& c) noexcept {
  return {a[0], b[0], c[0], a[1], b[1], c[1], a[2], b[2], c[2]};
}

/// A linear part taken apart into a matrix of unit columns and a scale.
template <class Real>
struct Decomposition {
  Wm4::Matrix3<Real> rotation;
  Wm4::Vector3<Real> scale;
  bool isRotationAndScale = false;
  bool isUniformScale = false;
};

/// True when the inverse of q is its transpose.
template <class Real>
bool isOrthonormal(Wm4::Matrix3<Real> const& q) noexcept {
  Wm4::Matrix3<Real> const inverse = inverted(q);
  Wm4::Matrix3<Real> const transposed = q.Transpose();
  for (std::size_t j = 0; j < 3; ++j) {
    if (!((inverse.column(j) - transposed.column(j)).SquaredLength() < Real(equalityTolerance))) return false;
  }
  return true;
}

/// True when every column of `linear` has no part along the other columns of `rotation`.
template <class Real>
bool isFreeOfShear(Wm4::Matrix3<Real> const& linear, Wm4::Matrix3<Real> const& rotation) noexcept {
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t j = 0; j < 3; ++j) {
      // KEEP: signed and one-sided, a large negative projection passes.
      if (i != j && !(linear.column(i).Dot(rotation.column(j)) < Real(equalityTolerance))) return false;
    }
  }
  return true;
}

template <class Real>
Decomposition<Real> decomposed(Wm4::Matrix3<Real> const& linear) noexcept {
  Wm4::Vector3<Real> const a[3] = {linear.column(0), linear.column(1), linear.column(2)};
  Wm4::Vector3<Real> u[3] = {unitOrZero(a[0]), unitOrZero(a[1]), unitOrZero(a[2])};
  Wm4::Matrix3<Real> const units = fromColumns(u[0], u[1], u[2]);
  if (!isOrthonormal(units)) return {};
  if (determinant(units) < Real(0)) u[0] = -u[0];
  Decomposition<Real> result;
  result.rotation = fromColumns(u[0], u[1], u[2]);
  result.scale = {a[0].Dot(u[0]), a[1].Dot(u[1]), a[2].Dot(u[2])};
  result.isRotationAndScale = isFreeOfShear(linear, result.rotation);
  auto const close = [](Real p, Real q) { return std::abs(p - q) < Real(equalityTolerance); };
  result.isUniformScale = close(result.scale[1], result.scale[0]) && close(result.scale[2], result.scale[1]);
  return result;
}

/// True when every entry is within the tolerance of the identity.
template <class Real>
bool isNearIdentity(Wm4::Matrix3<Real> const& m) noexcept {
  for (std::size_t i = 0; i < 9; ++i) {
    if (!isSmall(std::abs(m.data()[i] - Wm4::Matrix3<Real>::IDENTITY.data()[i]))) return false;
  }
  return true;
}

/// Stores what differs from the identity; `t` is reset before.
template <class Real>
void storeRotationAndScale(qvGenericTransformation<Real>& t, Decomposition<Real> const& parts) noexcept {
  if (!isNearIdentity(parts.rotation)) t.SetRotate(parts.rotation);
  if (!parts.isUniformScale) return t.SetScale(parts.scale);
  Real const s = parts.scale[0];
  if (!(std::abs(s - Real(1)) <= Real(equalityTolerance))) t.SetUniformScale(s);
}

}  // namespace transform

template <class Real>
void qvGenericTransformation<Real>::FromHomogeneousMatrix(Matrix4 const& matrix, bool transposed) noexcept {
  auto const entry = [&](std::size_t i, std::size_t j) { return transposed ? matrix(j, i) : matrix(i, j); };
  auto const column = [&](std::size_t j) { return Vector3(entry(0, j), entry(1, j), entry(2, j)); };
  Matrix3 const linear = transform::fromColumns(column(0), column(1), column(2));
  Vector3 const translation = column(3);
  transform::Decomposition<Real> const parts = transform::decomposed(linear);

  MakeIdentity();
  if (static_cast<double>(translation.SquaredLength()) >= transform::equalityTolerance)
    SetTranslate(translation);
  if (!parts.isRotationAndScale) {
    SetMatrix(linear);
  } else if (!transform::isNearIdentity(linear)) {
    transform::storeRotationAndScale(*this, parts);
  }
}

}  // namespace qv
