// Array maps for processors with AVX2. The loops and formulas are the baseline's text, compiled for the wider
// vectors. Headers of others come first: no function of theirs may be compiled for a processor that the
// caller may not have.

#include <immintrin.h>

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "annotationLegacy/platform.h"

#if defined(__clang__)
#pragma clang attribute push(__attribute__((target("avx2"))), apply_to = function)
#else
#pragma GCC push_options
#pragma GCC target("avx2")
#endif

#include "transform/blocks.h"
#include "transform/kernels.h"
#include "transform/lanesAvx2.h"

namespace qv::transform {

namespace {

template <class Real>
constexpr Kernels<Real> table = tableFor<LanesAvx2<Real>>(static_cast<Kernels<Real> const*>(nullptr));

}  // namespace

}  // namespace qv::transform

#if defined(__clang__)
#pragma clang attribute pop
#else
#pragma GCC pop_options
#endif

namespace qv::transform {

template <class Real>
Kernels<Real> const& avx2Kernels() noexcept {
  return table<Real>;
}

template Kernels<float> const& avx2Kernels<float>() noexcept;
template Kernels<double> const& avx2Kernels<double>() noexcept;

}  // namespace qv::transform
