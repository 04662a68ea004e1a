#include <Eigen/Core>

#include "benchmarks/transform/peers.h"

namespace transformBenchmark {

namespace {

template <class Real>
using Column = Eigen::Matrix<Real, 3, 1>;
template <class Real>
using Square = Eigen::Matrix<Real, 3, 3>;
template <class Real>
using Points = Eigen::Matrix<Real, 3, Eigen::Dynamic>;

template <class Real>
Square<Real> linearOf(Affine<Real> const& map) {
  return Eigen::Map<Eigen::Matrix<Real, 3, 3, Eigen::RowMajor> const>(map.rows);
}

}  // namespace

template <class Real>
void eigenExpression(Affine<Real> const& map, std::size_t count, Real const* in, Real* out) {
  auto const columns = static_cast<Eigen::Index>(count);
  Square<Real> const linear = linearOf(map);
  Column<Real> const translation(map.translation);
  Eigen::Map<Points<Real> const> const points(in, 3, columns);
  Eigen::Map<Points<Real>>(out, 3, columns) = linear.lazyProduct(points).colwise() + translation;
}

template <class Real>
void eigenPoints(Affine<Real> const& map, std::size_t count, Real const* in, Real* out) {
  Square<Real> const linear = linearOf(map);
  Column<Real> const translation(map.translation);
  for (std::size_t i = 0; i < count; ++i) {
    Eigen::Map<Column<Real> const> const point(in + 3 * i);
    Eigen::Map<Column<Real>>(out + 3 * i).noalias() = linear * point + translation;
  }
}

template void eigenExpression(Affine<float> const&, std::size_t, float const*, float*);
template void eigenExpression(Affine<double> const&, std::size_t, double const*, double*);
template void eigenPoints(Affine<float> const&, std::size_t, float const*, float*);
template void eigenPoints(Affine<double> const&, std::size_t, double const*, double*);

}  // namespace transformBenchmark
