#pragma once

#include <cstddef>

#include "transform/steps.h"

/// Array maps for one kind of processor: a table with one function for each formula.
namespace qv::transform {

/// How results leave the processor: through its caches, or past them, for outputs that no cache holds.
/// Outputs that go past the caches share no byte with the input.
enum class StoreWay { cached, streamed };

/// Maps `count` points, three numbers each, from `in` to `out`, which are the same range or share no byte.
template <class Formula, class Real>
using MapFunction = void (*)(Formula const& formula, std::size_t count, Real const* in, Real* out,
                             StoreWay way);

template <class Real, class... Formulas>
struct KernelTable;

/// One entry of the table.
template <class Formula, class Real>
struct Kernel {
  MapFunction<Formula, Real> map;
};

template <class Real, class... Formulas>
struct KernelTable : Kernel<Formulas, Real>... {
  template <class Formula>
  MapFunction<Formula, Real> of(Formula const&) const noexcept {
    return static_cast<Kernel<Formula, Real> const&>(*this).map;
  }
};

/// The table of all formulas that the flags can choose: forward with and without translation, and inverse.
template <class Real>
using Kernels = KernelTable<Real,                                                 //
                            Chain<Scale<Real>, Multiply<Real>>,                   //
                            Chain<Scale<Real>, Multiply<Real>, Add<Real>>,        //
                            Chain<Multiply<Real>>,                                //
                            Chain<Multiply<Real>, Add<Real>>,                     //
                            Chain<Subtract<Real>, Multiply<Real>, Scale<Real>>,   //
                            Chain<Subtract<Real>, Multiply<Real>, Divide<Real>>,  //
                            Chain<Subtract<Real>, Multiply<Real>>>;

/// The table for every x86-64 processor.
template <class Real>
struct Baseline {
  static Kernels<Real> const kernels;
};

/// The table for processors with AVX2 only. No fused multiply-add, which would change bits.
template <class Real>
struct Avx2 {
  static Kernels<Real> const kernels;
};

extern template struct Baseline<float>;
extern template struct Baseline<double>;
extern template struct Avx2<float>;
extern template struct Avx2<double>;

}  // namespace qv::transform
