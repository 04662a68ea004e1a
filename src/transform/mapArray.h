#pragma once

#include <unistd.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "annotationLegacy/platform.h"
#include "transform/formulas.h"
#include "transform/kernels.h"
#include "transform/steps.h"

/// A formula over an array: which loop runs, and where.
namespace qv::transform {

/// True for so few points that one by one is the fastest, since the kernels want a formula in memory first.
constexpr bool areFew(int count) noexcept {
  return count < 4;
}

/// True when the two ranges of `bytes` share some bytes without being the same range.
inline bool overlapPartly(void const* in, void const* out, std::size_t bytes) noexcept {
  auto const first = reinterpret_cast<std::uintptr_t>(in);
  auto const second = reinterpret_cast<std::uintptr_t>(out);
  return first != second && (first < second ? second - first : first - second) < bytes;
}

/// The size of an output that the last-level cache cannot hold.
inline std::size_t lastLevelCacheSize() noexcept {
  constexpr long assumed = 32L << 20;
  static long const reported = sysconf(_SC_LEVEL3_CACHE_SIZE);
  return static_cast<std::size_t>(reported > 0 ? reported : assumed);
}

inline StoreWay storeWayFor(void const* in, void const* out, std::size_t bytes) noexcept {
  constexpr std::size_t alwaysCached = std::size_t(1) << 20;  // no need to ask for the cache's size
  bool const large = bytes > alwaysCached && in != out && bytes > lastLevelCacheSize();
  return large ? StoreWay::streamed : StoreWay::cached;
}

/// Point by point in ascending order, each read whole before it is written; none for a count of 0 or less.
template <class Real, class Map>
void mapAscending(Map const& map, int count, Wm4::Vector3<Real> const* in, Wm4::Vector3<Real>* out) noexcept {
  for (int i = 0; i < count; ++i) {
    out[i] = map(in[i]);
    // KEEP: no instruction, but no compiler may join points. g++ 12 at -O3 vectorises the plain loop behind
    // an overlap check that misses ranges one point apart.
    std::atomic_signal_fence(std::memory_order_seq_cst);
  }
}

/// Apart, so that the rare case does not have the compiler prepare registers for it in every call.
template <class Real, class Formula>
[[gnu::noinline]] void mapOverlapping(Formula const& formula, int count, Wm4::Vector3<Real> const* in,
                                      Wm4::Vector3<Real>* out) noexcept {
  mapAscending([&](Wm4::Vector3<Real> const& p) { return applied(formula, p); }, count, in, out);
}

/// Maps at least one point.
template <class Real, class Formula>
void mapArray(Formula const& formula, int count, Wm4::Vector3<Real> const* in,
              Wm4::Vector3<Real>* out) noexcept {
  static_assert(sizeof(Wm4::Vector3<Real>) == 3 * sizeof(Real), "points are plain triples of numbers");
  auto const points = static_cast<std::size_t>(count);
  std::size_t const bytes = points * sizeof(*in);
  if (overlapPartly(in, out, bytes)) return mapOverlapping(formula, count, in, out);
  auto const& kernels = __builtin_cpu_supports("avx2") ? Avx2<Real>::kernels : Baseline<Real>::kernels;
  kernels.of(formula)(formula, points, reinterpret_cast<Real const*>(in), reinterpret_cast<Real*>(out),
                      storeWayFor(in, out, bytes));
}

/// Copies points; none for a count of 0 or less.
template <class Real>
void copyArray(int count, Wm4::Vector3<Real> const* in, Wm4::Vector3<Real>* out) noexcept {
  if (count <= 0 || in == out) return;
  std::size_t const bytes = static_cast<std::size_t>(count) * sizeof(*in);
  if (areFew(count) || overlapPartly(in, out, bytes)) {
    return mapAscending([](Wm4::Vector3<Real> const& p) { return p; }, count, in, out);
  }
  std::memcpy(static_cast<void*>(out), in, bytes);
}

}  // namespace qv::transform
