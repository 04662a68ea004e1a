#pragma once

#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "annotationLegacy/platform.h"
#include "transform/formulas.h"
#include "transform/kernels.h"
#include "transform/steps.h"

/// A formula over an array: which loop runs, and where.
namespace qv::transform {

/// Below this number of points a plain loop is the fastest.
inline constexpr std::size_t fewestPointsForKernels = 4;

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

/// Point by point in ascending order, each read whole before it is written.
template <class Real, class Formula>
void mapAscending(Formula const& formula, std::size_t count, Wm4::Vector3<Real> const* in,
                  Wm4::Vector3<Real>* out) noexcept {
  for (std::size_t i = 0; i < count; ++i) out[i] = applied(formula, in[i]);
}

/// Maps `count` points; none for 0 or less.
template <class Real, class Formula>
void mapArray(Formula const& formula, int count, Wm4::Vector3<Real> const* in,
              Wm4::Vector3<Real>* out) noexcept {
  static_assert(sizeof(Wm4::Vector3<Real>) == 3 * sizeof(Real), "points are plain triples of numbers");
  if (count <= 0) return;
  auto const points = static_cast<std::size_t>(count);
  std::size_t const bytes = points * sizeof(*in);
  if (points < fewestPointsForKernels || overlapPartly(in, out, bytes))
    return mapAscending(formula, points, in, out);
  Kernels<Real> const& kernels =
      __builtin_cpu_supports("avx2") ? avx2Kernels<Real>() : baselineKernels<Real>();
  kernels.of(formula)(formula, points, reinterpret_cast<Real const*>(in), reinterpret_cast<Real*>(out),
                      storeWayFor(in, out, bytes));
}

/// Copies `count` points; none for 0 or less.
template <class Real>
void copyArray(int count, Wm4::Vector3<Real> const* in, Wm4::Vector3<Real>* out) noexcept {
  if (count <= 0 || in == out) return;
  auto const points = static_cast<std::size_t>(count);
  std::size_t const bytes = points * sizeof(*in);
  if (overlapPartly(in, out, bytes)) return mapAscending(Chain<>{}, points, in, out);
  std::memcpy(static_cast<void*>(out), in, bytes);
}

}  // namespace qv::transform
