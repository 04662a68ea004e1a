#pragma once

#include <xmmintrin.h>

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "transform/kernels.h"
#include "transform/lanesSse2.h"

/// The loops of the array maps, over blocks of as many points as a vector has numbers. The lanes say what a
/// vector is and how it meets memory. All loads of a block come before its stores, so a map in place is
/// exact.
namespace qv::transform {

/// From three vectors in memory order to the vectors of all x, all y and all z.
template <class L, class Vector>
[[gnu::always_inline]] inline void separate(Vector a, Vector b, Vector c, Vector& x, Vector& y,
                                            Vector& z) noexcept {
  if constexpr (std::is_same_v<typename L::Number, float>) {
    Vector const xy = L::template pick<2, 3, 1, 2>(b, c);  // x2 y2 x3 y3
    Vector const yz = L::template pick<1, 2, 0, 1>(a, b);  // y0 z0 y1 z1
    x = L::template pick<0, 3, 0, 2>(a, xy);
    y = L::template pick<0, 2, 1, 3>(yz, xy);
    z = L::template pick<1, 3, 0, 3>(yz, c);
  } else {
    x = L::template pick<0, 1>(a, b);
    y = L::template pick<1, 0>(a, c);
    z = L::template pick<0, 1>(b, c);
  }
}

/// The way back.
template <class L, class Vector>
[[gnu::always_inline]] inline void interleave(Vector x, Vector y, Vector z, Vector& a, Vector& b,
                                              Vector& c) noexcept {
  if constexpr (std::is_same_v<typename L::Number, float>) {
    Vector const xy = L::template pick<0, 2, 0, 2>(x, y);  // x0 x2 y0 y2
    Vector const yz = L::template pick<1, 3, 1, 3>(y, z);  // y1 y3 z1 z3
    Vector const zx = L::template pick<0, 2, 1, 3>(z, x);  // z0 z2 x1 x3
    a = L::template pick<0, 2, 0, 2>(xy, zx);
    b = L::template pick<0, 2, 1, 3>(yz, xy);
    c = L::template pick<1, 3, 1, 3>(zx, yz);
  } else {
    a = L::template pick<0, 0>(x, y);
    b = L::template pick<0, 1>(z, x);
    c = L::template pick<1, 1>(y, z);
  }
}

/// One block, from `in` to `out`.
template <class L, StoreWay way, class Formula>
[[gnu::always_inline]] inline void mapBlock(Formula const& formula, typename L::Number const* in,
                                            typename L::Number* out) noexcept {
  typename L::Vector a, b, c, x, y, z;
  L::load(in, a, b, c);
  separate<L>(a, b, c, x, y, z);
  formula(x, y, z);
  interleave<L>(x, y, z, a, b, c);
  if constexpr (way == StoreWay::streamed) {
    L::stream(out, a, b, c);
  } else {
    L::store(out, a, b, c);
  }
}

/// One point.
template <class Real, class Formula>
[[gnu::always_inline]] inline void mapPoint(Formula const& formula, Real const* in, Real* out) noexcept {
  Real x = in[0];
  Real y = in[1];
  Real z = in[2];
  formula(x, y, z);
  out[0] = x;
  out[1] = y;
  out[2] = z;
}

/// Points of an array that are still to be mapped.
template <class Real>
struct Remainder {
  std::size_t count;
  Real const* in;
  Real* out;

  [[gnu::always_inline]] void advance(std::size_t points) noexcept {
    count -= points;
    in += 3 * points;
    out += 3 * points;
  }
};

/// Maps whole blocks through the caches, as many as there are. Two at a time: 3 to 5 % faster, since the
/// loop's own counting takes a tenth of the instructions.
template <class L, class Formula, class Real>
[[gnu::always_inline]] inline void mapBlocks(Formula const& formula, Remainder<Real>& left) noexcept {
#pragma GCC unroll 2
  for (; left.count >= L::width; left.advance(L::width)) {
    mapBlock<L, StoreWay::cached>(formula, left.in, left.out);
  }
}

/// So many points win more by an aligned output than the single points before it cost.
constexpr std::size_t worthAligning = 128;

/// Maps single points until the output is aligned to whole vectors, which then never straddle two cache
/// lines. A step of one point moves by a multiple of the number's size only, so an output that is not even
/// aligned to its numbers never gets there. Returns whether it did.
template <class L, class Formula, class Real>
[[gnu::always_inline]] inline bool alignOutput(Formula const& formula, Remainder<Real>& left) noexcept {
  auto const aligned = [&] { return reinterpret_cast<std::uintptr_t>(left.out) % L::alignment == 0; };
  for (std::size_t i = 0; i < L::alignment / sizeof(Real) && left.count > 0 && !aligned();
       ++i, left.advance(1)) {
    mapPoint(formula, left.in, left.out);
  }
  return aligned();
}

/// Maps whole blocks past the caches to an aligned output, as many as there are. Input is asked for ahead.
template <class L, class Formula, class Real>
[[gnu::always_inline]] inline void streamBlocks(Formula const& formula, Remainder<Real>& left) noexcept {
  constexpr std::size_t bytesAhead = 4096;
  constexpr std::size_t cacheLine = 64;
  for (; left.count >= L::width; left.advance(L::width)) {
    auto const* const ahead = reinterpret_cast<char const*>(left.in) + bytesAhead;
    _mm_prefetch(ahead, _MM_HINT_T0);
    if constexpr (3 * L::width * sizeof(Real) > cacheLine) _mm_prefetch(ahead + cacheLine, _MM_HINT_T0);
    mapBlock<L, StoreWay::streamed>(formula, left.in, left.out);
  }
  _mm_sfence();
}

/// Maps an array in the widest blocks that fit, then in blocks of 16-byte vectors, then point by point. No
/// store reaches the formula, so its numbers stay in registers.
template <class Widest, class Formula, class Real>
void mapPoints(Formula const& __restrict formula, std::size_t count, Real const* in, Real* out,
               StoreWay way) noexcept {
  Remainder<Real> left{count, in, out};
  bool const align = way == StoreWay::streamed || count >= worthAligning;
  bool const aligned = align && alignOutput<Widest>(formula, left);
  if (aligned && way == StoreWay::streamed) streamBlocks<Widest>(formula, left);
  mapBlocks<Widest>(formula, left);
  if constexpr (!std::is_same_v<Widest, LanesSse2<Real>>) mapBlocks<LanesSse2<Real>>(formula, left);
  for (; left.count > 0; left.advance(1)) mapPoint(formula, left.in, left.out);
}

/// The table of the loops for one kind of lanes.
template <class Widest, class Table>
struct TableOf;

template <class Widest, class Real, class... Formulas>
struct TableOf<Widest, KernelTable<Real, Formulas...>> {
  static constexpr KernelTable<Real, Formulas...> value{{&mapPoints<Widest, Formulas, Real>}...};
};

}  // namespace qv::transform
