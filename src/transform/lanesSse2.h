#pragma once

#include <emmintrin.h>

#include <cstddef>

/// Vectors of 16 bytes, which every x86-64 processor has.
namespace qv::transform {

/// A block of points in memory order is three vectors: a, b, c. `load` reads and `store` writes them.
template <class Real>
struct LanesSse2;

template <>
struct LanesSse2<float> {
  using Number = float;
  using Vector [[gnu::vector_size(16)]] = float;
  static constexpr std::size_t width = 4;
  static constexpr std::size_t alignment = 16;

  [[gnu::always_inline]] static void load(float const* p, Vector& a, Vector& b, Vector& c) noexcept {
    a = _mm_loadu_ps(p);
    b = _mm_loadu_ps(p + 4);
    c = _mm_loadu_ps(p + 8);
  }
  [[gnu::always_inline]] static void store(float* p, Vector a, Vector b, Vector c) noexcept {
    _mm_storeu_ps(p, a);
    _mm_storeu_ps(p + 4, b);
    _mm_storeu_ps(p + 8, c);
  }
  /// Past the caches; `p` is aligned.
  [[gnu::always_inline]] static void stream(float* p, Vector a, Vector b, Vector c) noexcept {
    _mm_stream_ps(p, a);
    _mm_stream_ps(p + 4, b);
    _mm_stream_ps(p + 8, c);
  }
  /// (a[i], a[j], b[k], b[l]).
  template <int i, int j, int k, int l>
  [[gnu::always_inline]] static Vector pick(Vector a, Vector b) noexcept {
    return _mm_shuffle_ps(a, b, i | j << 2 | k << 4 | l << 6);
  }
};

template <>
struct LanesSse2<double> {
  using Number = double;
  using Vector [[gnu::vector_size(16)]] = double;
  static constexpr std::size_t width = 2;
  static constexpr std::size_t alignment = 16;

  [[gnu::always_inline]] static void load(double const* p, Vector& a, Vector& b, Vector& c) noexcept {
    a = _mm_loadu_pd(p);
    b = _mm_loadu_pd(p + 2);
    c = _mm_loadu_pd(p + 4);
  }
  [[gnu::always_inline]] static void store(double* p, Vector a, Vector b, Vector c) noexcept {
    _mm_storeu_pd(p, a);
    _mm_storeu_pd(p + 2, b);
    _mm_storeu_pd(p + 4, c);
  }
  /// Past the caches; `p` is aligned.
  [[gnu::always_inline]] static void stream(double* p, Vector a, Vector b, Vector c) noexcept {
    _mm_stream_pd(p, a);
    _mm_stream_pd(p + 2, b);
    _mm_stream_pd(p + 4, c);
  }
  /// (a[i], b[k]).
  template <int i, int k>
  [[gnu::always_inline]] static Vector pick(Vector a, Vector b) noexcept {
    return _mm_shuffle_pd(a, b, i | k << 1);
  }
};

}  // namespace qv::transform
