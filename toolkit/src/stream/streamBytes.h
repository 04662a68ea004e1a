#pragma once

#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "annotationLegacy/platform.h"

namespace qvToolkit {

/// Collects the bytes of an object stream: numbers little-endian, texts with their length in front.
class StreamBytes {
 public:
  template <std::unsigned_integral Number>
  void number(Number value) {
    for (std::size_t i = 0; i < sizeof(Number); ++i) {
      m_bytes += static_cast<char>(static_cast<std::uint64_t>(value) >> (8 * i) & 0xFFU);
    }
  }
  void byte(std::uint8_t value) { number(value); }
  /// Sizes beyond 32 bits cannot come from a document, which is smaller than that.
  void count(std::size_t value) { number(static_cast<std::uint32_t>(value)); }
  void real(float value) { number(std::bit_cast<std::uint32_t>(value)); }
  void real(double value) { number(std::bit_cast<std::uint64_t>(value)); }
  void point(Wm4::Vector3<float> const& value) {
    real(value.X());
    real(value.Y());
    real(value.Z());
  }
  void raw(std::string_view bytes) { m_bytes += bytes; }
  void text(std::string_view value) {
    count(value.size());
    raw(value);
  }

  std::string const& get() const noexcept { return m_bytes; }

 private:
  std::string m_bytes;
};

}  // namespace qvToolkit
