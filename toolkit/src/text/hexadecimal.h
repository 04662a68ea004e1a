#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace qvToolkit {

enum class HexCase : std::uint8_t { Lower, Upper };

/// Appends the digits of a number without a prefix, at least `width` of them, which is at most 16.
void appendHex(std::string& text, std::uint64_t number, std::size_t width, HexCase digits = HexCase::Lower);

/// The same as a text of its own.
std::string toHexNumber(std::uint64_t number, std::size_t width, HexCase digits = HexCase::Lower);

/// Two digits for each byte.
std::string toHexBytes(std::string_view bytes, HexCase digits = HexCase::Lower);

/// True for 0 to 9, a to f and A to F.
constexpr bool isHexDigit(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

}  // namespace qvToolkit
