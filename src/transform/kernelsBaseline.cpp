// Array maps for every x86-64 processor.

#include "transform/blocks.h"
#include "transform/kernels.h"
#include "transform/lanesSse2.h"

namespace qv::transform {

template <class Real>
Kernels<Real> const& baselineKernels() noexcept {
  static constexpr Kernels<Real> table =
      tableFor<LanesSse2<Real>>(static_cast<Kernels<Real> const*>(nullptr));
  return table;
}

template Kernels<float> const& baselineKernels<float>() noexcept;
template Kernels<double> const& baselineKernels<double>() noexcept;

}  // namespace qv::transform
