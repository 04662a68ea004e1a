#pragma once

#include <algorithm>
#include <cmath>
#include <cstring>

#include "transform/linearAlgebra.h"
#include "transform/qvGenericTransformation.h"

/// State of a transformation: reset, setters, queries.
namespace qv {

namespace transform {

/// Bound of `Equals` and of the decomposition.
inline constexpr double equalityTolerance = 1e-6;

template <class Real>
bool sameBits(Wm4::Matrix3<Real> const& a, Wm4::Matrix3<Real> const& b) noexcept {
  return std::memcmp(a.data(), b.data(), 9 * sizeof(Real)) == 0;
}

/// True for differences below the tolerance; the difference is rounded in Real first.
template <class Real>
bool isSmall(Real difference) noexcept {
  return static_cast<double>(difference) < equalityTolerance;
}

template <class Real>
bool equalComponents(Wm4::Vector3<Real> const& v) noexcept {
  return v[0] == v[1] && v[0] == v[2];
}

template <class Real>
Real absoluteSum(Wm4::Vector3<Real> const& v) noexcept {
  return std::abs(v[0]) + std::abs(v[1]) + std::abs(v[2]);
}

/// The linear part L: matrix times diag(scale), or a general matrix alone.
template <class Real>
Wm4::Matrix3<Real> linearPart(qvGenericTransformation<Real> const& t) noexcept {
  Wm4::Matrix3<Real> linear = t.m_matrix;
  if (!t.m_isRSMatrix) return linear;
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t j = 0; j < 3; ++j) linear(i, j) *= t.m_scale[j];
  }
  return linear;
}

}  // namespace transform

template <class Real>
void qvGenericTransformation<Real>::MakeIdentity() noexcept {
  *this = qvGenericTransformation();
}

template <class Real>
void qvGenericTransformation<Real>::MakeUnitScale() noexcept {
  // KEEP: the identity flag is not recomputed here, other than in every other setter.
  m_scale = Vector3::ONE;
  m_isUniformScale = true;
}

template <class Real>
void qvGenericTransformation<Real>::SetRotate(Matrix3 const& rotation) noexcept {
  m_matrix = rotation;
  m_isRSMatrix = true;
  recomputeIsIdentity();
}

template <class Real>
void qvGenericTransformation<Real>::SetMatrix(Matrix3 const& matrix) noexcept {
  m_matrix = matrix;
  m_isRSMatrix = false;
  m_isUniformScale = false;
  recomputeIsIdentity();
}

template <class Real>
void qvGenericTransformation<Real>::SetTranslate(Vector3 const& translation) noexcept {
  m_translate = translation;
  recomputeIsIdentity();
}

template <class Real>
void qvGenericTransformation<Real>::SetScale(Vector3 const& scale) noexcept {
  // KEEP: a general matrix stays general, so the scale has no effect until `SetRotate`.
  m_scale = scale;
  m_isUniformScale = transform::equalComponents(scale);
  recomputeIsIdentity();
}

template <class Real>
void qvGenericTransformation<Real>::SetUniformScale(Real scale) noexcept {
  // KEEP: a general matrix stays general, so the scale has no effect until `SetRotate`.
  m_scale = Vector3(scale, scale, scale);
  m_isUniformScale = true;
  recomputeIsIdentity();
}

template <class Real>
void qvGenericTransformation<Real>::recomputeIsIdentity() noexcept {
  // KEEP: numbers for the vectors, bits for the matrix.
  m_isIdentity = m_translate == Vector3::ZERO && m_scale == Vector3::ONE &&
                 transform::sameBits(m_matrix, Matrix3::IDENTITY);
}

template <class Real>
bool qvGenericTransformation<Real>::IsFinite() const noexcept {
  auto const finite = [](Vector3 const& v) {
    return transform::isFinite(v[0]) && transform::isFinite(v[1]) && transform::isFinite(v[2]);
  };
  return finite(m_matrix.row(0)) && finite(m_matrix.row(1)) && finite(m_matrix.row(2)) &&
         finite(m_translate) && finite(m_scale);
}

template <class Real>
Real qvGenericTransformation<Real>::GetNorm() const noexcept {
  // KEEP: a scaled rotation tells its largest scale, a pure one its row sums.
  auto const [smallest, largest] =
      std::minmax({std::abs(m_scale[0]), std::abs(m_scale[1]), std::abs(m_scale[2])});
  bool const unitScale = smallest == Real(1) && largest == Real(1);
  if (m_isRSMatrix && !unitScale) return largest;
  return std::max({transform::absoluteSum(m_matrix.row(0)), transform::absoluteSum(m_matrix.row(1)),
                   transform::absoluteSum(m_matrix.row(2))});
}

template <class Real>
void qvGenericTransformation<Real>::GetHomogeneous(Matrix4& out) const noexcept {
  Matrix3 const l = transform::linearPart(*this);
  Vector3 const& t = m_translate;
  constexpr Real zero(0);
  out = Matrix4(l(0, 0), l(1, 0), l(2, 0), zero,  //
                l(0, 1), l(1, 1), l(2, 1), zero,  //
                l(0, 2), l(1, 2), l(2, 2), zero,  //
                t.X(), t.Y(), t.Z(), Real(1));
}

template <class Real>
bool qvGenericTransformation<Real>::operator==(qvGenericTransformation const& other) const noexcept {
  return transform::sameBits(m_matrix, other.m_matrix) && m_translate == other.m_translate &&
         m_scale == other.m_scale && m_isIdentity == other.m_isIdentity &&
         m_isRSMatrix == other.m_isRSMatrix && m_isUniformScale == other.m_isUniformScale;
}

template <class Real>
bool qvGenericTransformation<Real>::Equals(qvGenericTransformation const& other) const noexcept {
  for (std::size_t i = 0; i < 9; ++i) {
    if (!transform::isSmall(std::abs(m_matrix.data()[i] - other.m_matrix.data()[i]))) return false;
  }
  return transform::isSmall((m_translate - other.m_translate).SquaredLength()) &&
         transform::isSmall((m_scale - other.m_scale).SquaredLength());
}

}  // namespace qv
