#include <glm/glm.hpp>

#include "benchmarks/transform/peers.h"

namespace transformBenchmark {

template <class Real>
void glmPoints(Affine<Real> const& map, std::size_t count, Real const* in, Real* out) {
  using Column = glm::vec<3, Real>;
  Real const* const m = map.rows;
  glm::mat<3, 3, Real> const linear(m[0], m[3], m[6], m[1], m[4], m[7], m[2], m[5], m[8]);
  Column const translation(map.translation[0], map.translation[1], map.translation[2]);
  auto const* const points = reinterpret_cast<Column const*>(in);
  auto* const mapped = reinterpret_cast<Column*>(out);
  for (std::size_t i = 0; i < count; ++i) mapped[i] = linear * points[i] + translation;
}

template void glmPoints(Affine<float> const&, std::size_t, float const*, float*);
template void glmPoints(Affine<double> const&, std::size_t, double const*, double*);

}  // namespace transformBenchmark
