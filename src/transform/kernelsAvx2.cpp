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

template <class Real>
constinit Kernels<Real> const Avx2<Real>::kernels = TableOf<LanesAvx2<Real>, Kernels<Real>>::value;

template struct Avx2<float>;
template struct Avx2<double>;

}  // namespace qv::transform

#if defined(__clang__)
#pragma clang attribute pop
#else
#pragma GCC pop_options
#endif
