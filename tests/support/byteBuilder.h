#pragma once

#include <bit>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

namespace qvTest {

/// Bytes of a stream, put together field by field, little-endian.
class ByteBuilder {
 public:
  ByteBuilder() = default;
  /// Hexadecimal digits in pairs; blanks and bars between them are for the reader.
  explicit ByteBuilder(std::string_view hex) {
    for (std::size_t i = 0; i < hex.size(); ++i) {
      if (hex[i] == ' ' || hex[i] == '|') continue;
      std::uint8_t value = 0;
      std::from_chars(hex.data() + i, hex.data() + i + 2, value, 16);
      u8(value);
      ++i;
    }
  }

  template <class Number>
  ByteBuilder& number(Number value) {
    if constexpr (std::is_floating_point_v<Number>) {
      if constexpr (sizeof(value) == 4) return number(std::bit_cast<std::uint32_t>(value));
      if constexpr (sizeof(value) == 8) return number(std::bit_cast<std::uint64_t>(value));
    } else {
      for (std::size_t i = 0; i < sizeof(value); ++i) {
        m_bytes += static_cast<char>(static_cast<std::uint64_t>(value) >> (8 * i) & 0xFFU);
      }
    }
    return *this;
  }
  ByteBuilder& u8(unsigned value) { return number(static_cast<std::uint8_t>(value)); }
  ByteBuilder& u16(std::uint16_t value) { return number(value); }
  ByteBuilder& u32(std::uint32_t value) { return number(value); }
  ByteBuilder& u64(std::uint64_t value) { return number(value); }
  ByteBuilder& i32(std::int32_t value) { return number(value); }
  ByteBuilder& f32(float value) { return number(value); }
  ByteBuilder& point(float x, float y, float z) { return f32(x).f32(y).f32(z); }
  ByteBuilder& raw(std::string_view bytes) {
    m_bytes += bytes;
    return *this;
  }
  /// 32-bit length and that many bytes.
  ByteBuilder& text(std::string_view bytes) {
    return u32(static_cast<std::uint32_t>(bytes.size())).raw(bytes);
  }
  ByteBuilder& append(ByteBuilder const& other) { return raw(other.m_bytes); }

  ByteBuilder prefix(std::size_t size) const { return ByteBuilder().raw(get().substr(0, size)); }
  std::size_t size() const noexcept { return m_bytes.size(); }
  std::string const& get() const noexcept { return m_bytes; }
  std::span<std::byte const> bytes() const { return std::as_bytes(std::span(m_bytes)); }

 private:
  std::string m_bytes;
};

}  // namespace qvTest
