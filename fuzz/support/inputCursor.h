#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <span>
#include <string>

namespace qvFuzz {

/// Turns the bytes of one input into values, first to last. Behind its end everything is zero, so that each
/// input means something and shorter ones mean less.
class InputCursor {
 public:
  explicit InputCursor(std::span<std::uint8_t const> bytes) noexcept : m_bytes(bytes) {}

  bool isAtEnd() const noexcept { return m_bytes.empty(); }

  std::uint8_t takeByte() noexcept { return takeNumber<std::uint8_t>(); }
  bool takeFlag() noexcept { return (takeByte() & 1U) != 0; }
  /// From 0 to `limit` - 1; the limit is at most 256.
  unsigned takeBelow(unsigned limit) noexcept { return takeByte() % limit; }

  template <class Number>
  Number takeNumber() noexcept {
    Number number{};
    std::size_t const size = std::min(sizeof(number), m_bytes.size());
    if (size > 0) std::memcpy(&number, m_bytes.data(), size);
    m_bytes = m_bytes.subspan(size);
    return number;
  }

  /// Mostly round numbers, now and then an odd one, or any bits.
  template <class Real = float>
  Real takeReal() noexcept;

  /// Up to `maxLength` bytes behind a byte that gives their number.
  std::string takeText(std::size_t maxLength) {
    std::size_t const wanted = takeByte() % (maxLength + 1);
    std::size_t const length = std::min(wanted, m_bytes.size());
    std::string const text(reinterpret_cast<char const*>(m_bytes.data()), length);
    m_bytes = m_bytes.subspan(length);
    return text;
  }

  template <class Value, std::size_t size>
  Value const& takeOneOf(std::array<Value, size> const& values) noexcept {
    static_assert(size > 0 && size <= 256);
    return values[takeByte() % size];
  }

  /// The last byte: what controls the run stands there, so that an ordinary document is a prefix of an input.
  std::uint8_t takeLastByte() noexcept {
    if (m_bytes.empty()) return 0;
    std::uint8_t const last = m_bytes.back();
    m_bytes = m_bytes.first(m_bytes.size() - 1);
    return last;
  }

  std::span<std::uint8_t const> takeRest() noexcept {
    auto const rest = m_bytes;
    m_bytes = {};
    return rest;
  }
  std::string takeRestAsText() {
    auto const rest = takeRest();
    return {reinterpret_cast<char const*>(rest.data()), rest.size()};
  }

 private:
  std::span<std::uint8_t const> m_bytes;
};

template <class Real>
Real InputCursor::takeReal() noexcept {
  using Limits = std::numeric_limits<Real>;
  constexpr std::array<Real, 16> Odd{Real(0),
                                     -Real(0),
                                     Real(1),
                                     Real(-1),
                                     Limits::quiet_NaN(),
                                     Limits::infinity(),
                                     -Limits::infinity(),
                                     Limits::max(),
                                     Limits::lowest(),
                                     Limits::min(),
                                     Limits::denorm_min(),
                                     Limits::epsilon(),
                                     Real(1e-6),
                                     Real(1e9),
                                     Real(-0.5),
                                     Real(655.35)};
  std::uint8_t const choice = takeByte();
  if (choice < 8) return takeNumber<Real>();
  if (choice < 40) return takeOneOf(Odd);
  return static_cast<Real>(takeNumber<std::int16_t>()) / Real(64);
}

}  // namespace qvFuzz
