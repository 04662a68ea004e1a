#include "optionNumbers.h"

#include <array>
#include <charconv>
#include <limits>
#include <system_error>

namespace qvannot {

namespace {

constexpr std::string_view SizeLetters = "KMGT";
constexpr unsigned BitsPerLetter = 10;

/// The number that the whole text is.
template <class Number, class... Base>
std::optional<Number> readWhole(std::string_view text, Base... base) {
  Number number{};
  auto const result = std::from_chars(text.data(), text.data() + text.size(), number, base...);
  bool const isNumber = result.ec == std::errc() && result.ptr == text.data() + text.size();
  return isNumber ? std::optional(number) : std::nullopt;
}

template <class Number>
std::optional<Number> keepWithin(NumberRange<Number> range, std::optional<Number> number) {
  return number.has_value() && range.holds(*number) ? number : std::nullopt;
}

}  // namespace

std::optional<std::uint64_t> readCount(std::string_view text, CountRange range) {
  return keepWithin(range, readWhole<std::uint64_t>(text));
}

std::optional<std::uint64_t> readSize(std::string_view text, CountRange range) {
  std::size_t const letter = text.empty() ? std::string_view::npos : SizeLetters.find(text.back());
  bool const hasLetter = letter != std::string_view::npos;
  unsigned const shift = hasLetter ? BitsPerLetter * static_cast<unsigned>(letter + 1) : 0;
  if (hasLetter) text.remove_suffix(1);
  auto const number = readWhole<std::uint64_t>(text);
  if (!number.has_value() || *number > std::numeric_limits<std::uint64_t>::max() >> shift)
    return std::nullopt;
  return keepWithin(range, std::optional(*number << shift));
}

std::optional<std::uint64_t> readOffset(std::string_view text) {
  constexpr int Decimal = 10;
  constexpr int Hexadecimal = 16;
  bool const isHexadecimal = text.starts_with("0x");
  if (isHexadecimal) text.remove_prefix(2);
  return readWhole<std::uint64_t>(text, isHexadecimal ? Hexadecimal : Decimal);
}

std::optional<float> readLength(std::string_view text, NumberRange<float> range) {
  return keepWithin(range, readWhole<float>(text));
}

std::string formatSize(std::uint64_t bytes) {
  constexpr std::uint64_t LowBits = (std::uint64_t{1} << BitsPerLetter) - 1;
  std::size_t letters = 0;
  while (letters < SizeLetters.size() && bytes > 0 && (bytes & LowBits) == 0) {
    bytes >>= BitsPerLetter;
    ++letters;
  }
  std::string const number = std::to_string(bytes);
  return letters == 0 ? number : number + SizeLetters[letters - 1];
}

std::string formatLength(float length) {
  std::array<char, 32> text;
  auto const end =
      std::to_chars(text.data(), text.data() + text.size(), length, std::chars_format::fixed).ptr;
  return {text.data(), end};
}

std::string refuseNumber(std::string_view text, std::string_view what, std::string_view least,
                         std::string_view most) {
  std::string message = "'";
  message.append(text).append("' is no ").append(what);
  return message.append(" from ").append(least).append(" to ").append(most);
}

}  // namespace qvannot
