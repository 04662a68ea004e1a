// Array maps for every x86-64 processor.

#include "transform/blocks.h"
#include "transform/kernels.h"
#include "transform/lanesSse2.h"

namespace qv::transform {

template <class Real>
constinit Kernels<Real> const Baseline<Real>::kernels = TableOf<LanesSse2<Real>, Kernels<Real>>::value;

template struct Baseline<float>;
template struct Baseline<double>;

}  // namespace qv::transform
