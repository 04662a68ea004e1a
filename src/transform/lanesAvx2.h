#pragma once

#include <immintrin.h>

#include <cstddef>

/// Vectors of 32 bytes. Included only where the compiler may use AVX2.
namespace qv::transform {

/// A block of points is two neighbouring blocks of the 16-byte kind, one in each half of the vectors a, b, c:
/// so no rearrangement crosses the halves, which would be slow.
template <class Real>
struct LanesAvx2;

template <>
struct LanesAvx2<float> {
  using Number = float;
  using Vector [[gnu::vector_size(32)]] = float;
  static constexpr std::size_t width = 8;
  static constexpr std::size_t alignment = 32;

  [[gnu::always_inline]] static void load(float const* p, Vector& a, Vector& b, Vector& c) noexcept {
    a = _mm256_loadu2_m128(p + 12, p);
    b = _mm256_loadu2_m128(p + 16, p + 4);
    c = _mm256_loadu2_m128(p + 20, p + 8);
  }
  /// In halves: cheaper than to put whole vectors together.
  [[gnu::always_inline]] static void store(float* p, Vector a, Vector b, Vector c) noexcept {
    _mm256_storeu2_m128(p + 12, p, a);
    _mm256_storeu2_m128(p + 16, p + 4, b);
    _mm256_storeu2_m128(p + 20, p + 8, c);
  }
  /// Past the caches; `p` is aligned.
  [[gnu::always_inline]] static void stream(float* p, Vector a, Vector b, Vector c) noexcept {
    _mm256_stream_ps(p, _mm256_permute2f128_ps(a, b, 0x20));
    _mm256_stream_ps(p + 8, _mm256_blend_ps(c, a, 0xf0));
    _mm256_stream_ps(p + 16, _mm256_permute2f128_ps(b, c, 0x31));
  }
  /// (a[i], a[j], b[k], b[l]) in each half.
  template <int i, int j, int k, int l>
  [[gnu::always_inline]] static Vector pick(Vector a, Vector b) noexcept {
    return _mm256_shuffle_ps(a, b, i | j << 2 | k << 4 | l << 6);
  }
};

template <>
struct LanesAvx2<double> {
  using Number = double;
  using Vector [[gnu::vector_size(32)]] = double;
  static constexpr std::size_t width = 4;
  static constexpr std::size_t alignment = 32;

  [[gnu::always_inline]] static void load(double const* p, Vector& a, Vector& b, Vector& c) noexcept {
    a = _mm256_loadu2_m128d(p + 6, p);
    b = _mm256_loadu2_m128d(p + 8, p + 2);
    c = _mm256_loadu2_m128d(p + 10, p + 4);
  }
  [[gnu::always_inline]] static void store(double* p, Vector a, Vector b, Vector c) noexcept {
    _mm256_storeu_pd(p, _mm256_permute2f128_pd(a, b, 0x20));
    _mm256_storeu_pd(p + 4, _mm256_blend_pd(c, a, 0xc));
    _mm256_storeu_pd(p + 8, _mm256_permute2f128_pd(b, c, 0x31));
  }
  /// Past the caches; `p` is aligned.
  [[gnu::always_inline]] static void stream(double* p, Vector a, Vector b, Vector c) noexcept {
    _mm256_stream_pd(p, _mm256_permute2f128_pd(a, b, 0x20));
    _mm256_stream_pd(p + 4, _mm256_blend_pd(c, a, 0xc));
    _mm256_stream_pd(p + 8, _mm256_permute2f128_pd(b, c, 0x31));
  }
  /// (a[i], b[k]) in each half. Numbers that keep their places are blended, which more execution units can
  /// do.
  template <int i, int k>
  [[gnu::always_inline]] static Vector pick(Vector a, Vector b) noexcept {
    if constexpr (i == 0 && k == 1) {
      return _mm256_blend_pd(a, b, 0b1010);
    } else {
      return _mm256_shuffle_pd(a, b, i | k << 1 | i << 2 | k << 3);
    }
  }
};

}  // namespace qv::transform
