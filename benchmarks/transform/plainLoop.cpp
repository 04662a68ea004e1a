#include "benchmarks/transform/peers.h"

namespace transformBenchmark {

template <class Real>
void plainLoop(RotationAndScale<Real> const& map, std::size_t count, Real const* __restrict in,
               Real* __restrict out) {
  Real const* const m = map.rotation.rows;
  Real const* const t = map.rotation.translation;
  for (std::size_t i = 0; i < count; ++i) {
    Real const x = in[3 * i] * map.scale[0];
    Real const y = in[3 * i + 1] * map.scale[1];
    Real const z = in[3 * i + 2] * map.scale[2];
    out[3 * i] = x * m[0] + y * m[1] + z * m[2] + t[0];
    out[3 * i + 1] = x * m[3] + y * m[4] + z * m[5] + t[1];
    out[3 * i + 2] = x * m[6] + y * m[7] + z * m[8] + t[2];
  }
}

template <class Real>
void plainLoop(Affine<Real> const& map, std::size_t count, Real const* __restrict in, Real* __restrict out) {
  Real const* const m = map.rows;
  Real const* const t = map.translation;
  for (std::size_t i = 0; i < count; ++i) {
    Real const x = in[3 * i];
    Real const y = in[3 * i + 1];
    Real const z = in[3 * i + 2];
    out[3 * i] = x * m[0] + y * m[1] + z * m[2] + t[0];
    out[3 * i + 1] = x * m[3] + y * m[4] + z * m[5] + t[1];
    out[3 * i + 2] = x * m[6] + y * m[7] + z * m[8] + t[2];
  }
}

template void plainLoop(RotationAndScale<float> const&, std::size_t, float const*, float*);
template void plainLoop(RotationAndScale<double> const&, std::size_t, double const*, double*);
template void plainLoop(Affine<float> const&, std::size_t, float const*, float*);
template void plainLoop(Affine<double> const&, std::size_t, double const*, double*);

}  // namespace transformBenchmark
