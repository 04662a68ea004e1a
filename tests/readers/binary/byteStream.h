#pragma once

#include <qvSystem/qvBaseStream.h>

#include <algorithm>
#include <bit>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

namespace readersTest {

/// Packed stream versions.
constexpr std::uint32_t v6_12 = 0x6000C;
constexpr std::uint32_t v6_13 = 0x6000D;
constexpr std::uint32_t v6_14 = 0x6000E;
constexpr std::uint32_t v6_15 = 0x6000F;
constexpr std::uint32_t v6_16 = 0x60010;
constexpr std::uint32_t v6_17 = 0x60011;
constexpr std::uint32_t v6_21 = 0x60015;
constexpr std::uint32_t v6_22 = 0x60016;
constexpr std::uint32_t v6_26 = 0x6001A;
constexpr std::uint32_t v6_27 = 0x6001B;

/// Bytes of a record, put together field by field.
class Bytes {
 public:
  Bytes() = default;
  /// Hexadecimal digits in pairs; blanks and bars between them are for the reader.
  explicit Bytes(std::string_view hex) {
    for (std::size_t i = 0; i < hex.size(); ++i) {
      if (hex[i] == ' ' || hex[i] == '|') continue;
      std::uint8_t value = 0;
      std::from_chars(hex.data() + i, hex.data() + i + 2, value, 16);
      u8(value);
      ++i;
    }
  }

  Bytes& u8(std::uint8_t value) {
    m_bytes.push_back(value);
    return *this;
  }
  Bytes& u16(std::uint16_t value) {
    return u8(static_cast<std::uint8_t>(value & 0xFFU)).u8(static_cast<std::uint8_t>(value >> 8));
  }
  Bytes& u32(std::uint32_t value) {
    return u16(static_cast<std::uint16_t>(value & 0xFFFFU)).u16(static_cast<std::uint16_t>(value >> 16));
  }
  Bytes& f32(float value) { return u32(std::bit_cast<std::uint32_t>(value)); }
  Bytes& vector(float x, float y, float z) { return f32(x).f32(y).f32(z); }
  Bytes& raw(std::string_view text) {
    for (char const c : text) u8(static_cast<std::uint8_t>(c));
    return *this;
  }
  /// 32-bit length and characters.
  Bytes& text(std::string_view text) { return u32(static_cast<std::uint32_t>(text.size())).raw(text); }
  Bytes& add(Bytes const& other) {
    m_bytes.insert(m_bytes.end(), other.m_bytes.begin(), other.m_bytes.end());
    return *this;
  }

  Bytes prefix(std::size_t size) const {
    Bytes result;
    result.m_bytes.assign(m_bytes.begin(), m_bytes.begin() + static_cast<std::ptrdiff_t>(size));
    return result;
  }
  std::size_t size() const noexcept { return m_bytes.size(); }
  std::uint8_t const* data() const noexcept { return m_bytes.data(); }

 private:
  std::vector<std::uint8_t> m_bytes;
};

/// A stream over a fresh allocation of exactly the given bytes, so that a sanitizer sees each byte read
/// beyond them.
class ByteStream : public qv::qvBaseStream {
 public:
  ByteStream(Bytes const& bytes, std::uint32_t version)
      : qv::qvBaseStream(version), m_bytes(new std::uint8_t[bytes.size()]), m_size(bytes.size()) {
    std::copy_n(bytes.data(), bytes.size(), m_bytes.get());
  }

  std::size_t ReadRaw(std::size_t count, void* destination) override {
    m_reads.push_back(count);
    std::size_t const delivered = std::min(count, m_size - m_position);
    if (delivered > 0) std::memcpy(destination, m_bytes.get() + m_position, delivered);
    m_position += delivered;
    return delivered;
  }
  std::uint64_t GetBytesLeft() const noexcept override { return left(); }

  std::size_t left() const noexcept { return m_size - m_position; }
  /// Sizes asked of the raw read, in order.
  std::vector<std::size_t> const& reads() const noexcept { return m_reads; }

 private:
  std::unique_ptr<std::uint8_t[]> m_bytes;
  std::size_t m_size;
  std::size_t m_position = 0;
  std::vector<std::size_t> m_reads;
};

}  // namespace readersTest
