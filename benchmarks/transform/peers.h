#pragma once

#include <cstddef>

/// Other ways to map `count` points, three numbers each: what the array forms are measured against.
namespace transformBenchmark {

/// rows * p + translation, where rows are the nine numbers of the linear part.
template <class Real>
struct Affine {
  Real rows[9];
  Real translation[3];
};

/// Rotation and scale as the transformation keeps them: rotation (scale * p) + translation.
template <class Real>
struct RotationAndScale {
  Affine<Real> rotation;
  Real scale[3];
};

/// A plain loop with the transformation's own arithmetic, left to the compiler's vectoriser.
template <class Real>
void plainLoop(RotationAndScale<Real> const& map, std::size_t count, Real const* in, Real* out);
template <class Real>
void plainLoop(Affine<Real> const& map, std::size_t count, Real const* in, Real* out);

/// Eigen over the whole array as one expression.
template <class Real>
void eigenExpression(Affine<Real> const& map, std::size_t count, Real const* in, Real* out);
/// Eigen point by point.
template <class Real>
void eigenPoints(Affine<Real> const& map, std::size_t count, Real const* in, Real* out);

/// glm point by point.
template <class Real>
void glmPoints(Affine<Real> const& map, std::size_t count, Real const* in, Real* out);

}  // namespace transformBenchmark
