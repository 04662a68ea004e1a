#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qvTest {

/// Builds the bytes of a stream, little-endian.
class ByteWriter {
 public:
  template <class T>
  ByteWriter& number(T value) {
    auto const before = m_bytes.size();
    m_bytes.resize(before + sizeof(T));
    std::memcpy(m_bytes.data() + before, &value, sizeof(T));
    return *this;
  }
  ByteWriter& u8(unsigned value) { return number(static_cast<std::uint8_t>(value)); }
  ByteWriter& u32(std::uint32_t value) { return number(value); }
  ByteWriter& i32(std::int32_t value) { return number(value); }
  ByteWriter& u64(std::uint64_t value) { return number(value); }
  ByteWriter& raw(std::string_view text) {
    for (char const c : text) u8(static_cast<unsigned char>(c));
    return *this;
  }
  ByteWriter& counted(std::string_view text) { return i32(static_cast<std::int32_t>(text.size())).raw(text); }
  ByteWriter& append(ByteWriter const& other) {
    m_bytes.insert(m_bytes.end(), other.m_bytes.begin(), other.m_bytes.end());
    return *this;
  }

  std::size_t size() const { return m_bytes.size(); }
  std::span<std::byte const> bytes() const { return m_bytes; }

 private:
  std::vector<std::byte> m_bytes;
};

/// Head of an object stream document.
inline ByteWriter document(std::uint32_t version, std::uint32_t objectCount) {
  ByteWriter out;
  out.raw("qvStream").u32(version).u32(objectCount);
  return out;
}

/// One object of a document.
inline ByteWriter object(std::uint32_t id, std::string_view typeName, ByteWriter const& payload) {
  ByteWriter out;
  out.u32(id).counted(typeName).u64(payload.size()).append(payload);
  return out;
}

}  // namespace qvTest
