#pragma once

#include <qvSystem/qvBaseStream.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

#include "tests/support/byteBuilder.h"

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

using Bytes = qvTest::ByteBuilder;

/// A stream over a fresh allocation of exactly the given bytes, so that a sanitizer sees each byte read
/// beyond them.
class ByteStream : public qv::qvBaseStream {
 public:
  ByteStream(Bytes const& bytes, std::uint32_t version)
      : qv::qvBaseStream(version), m_bytes(new std::uint8_t[bytes.size()]), m_size(bytes.size()) {
    std::ranges::copy(bytes.get(), m_bytes.get());
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
