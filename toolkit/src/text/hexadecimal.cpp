#include "text/hexadecimal.h"

#include <algorithm>
#include <bit>

namespace qvToolkit {

namespace {

constexpr std::size_t BitsOfDigit = 4;

constexpr std::string_view getDigits(HexCase digits) {
  return digits == HexCase::Lower ? "0123456789abcdef" : "0123456789ABCDEF";
}

}  // namespace

void appendHex(std::string& text, std::uint64_t number, std::size_t width, HexCase digits) {
  std::string_view const characters = getDigits(digits);
  auto const bits = static_cast<std::size_t>(std::bit_width(number));
  text.append(std::max(width, (bits + BitsOfDigit - 1) / BitsOfDigit), '0');
  for (auto digit = text.rbegin(); number > 0; number >>= BitsOfDigit) *digit++ = characters[number & 0x0FU];
}

std::string toHexNumber(std::uint64_t number, std::size_t width, HexCase digits) {
  std::string text;
  appendHex(text, number, width, digits);
  return text;
}

std::string toHexBytes(std::string_view bytes, HexCase digits) {
  std::string text;
  text.reserve(2 * bytes.size());
  for (char const byte : bytes) appendHex(text, static_cast<unsigned char>(byte), 2, digits);
  return text;
}

}  // namespace qvToolkit
