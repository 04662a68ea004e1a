#include "json/jsonNumber.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <system_error>

namespace qvToolkit {

namespace {

/// Exponents beyond this decide alone: no text is long enough to make up for them.
constexpr std::int64_t MaxExponent = std::int64_t{1} << 40;

std::int64_t readExponent(std::string_view number) {
  std::size_t const mark = number.find_first_of("eE");
  if (mark == std::string_view::npos) return 0;
  std::string_view digits = number.substr(mark + 1);
  bool const isNegative = digits.front() == '-';
  if (isNegative || digits.front() == '+') digits.remove_prefix(1);
  std::int64_t exponent = 0;
  if (std::from_chars(digits.data(), digits.data() + digits.size(), exponent).ec != std::errc())
    exponent = MaxExponent;
  exponent = std::min(exponent, MaxExponent);
  return isNegative ? -exponent : exponent;
}

/// The place of the first digit that is not zero: 1 for units, 2 for tens, 0 for tenths, and so on.
std::int64_t findMagnitude(std::string_view mantissa) {
  std::size_t const point = std::min(mantissa.find('.'), mantissa.size());
  std::size_t const first = std::min(mantissa.find_first_of("123456789"), mantissa.size());
  auto const distance = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
  return first < point ? distance : distance + 1;
}

bool takeAnyOf(std::string_view& text, std::string_view characters) {
  if (text.empty() || characters.find(text.front()) == std::string_view::npos) return false;
  text.remove_prefix(1);
  return true;
}

/// Takes the digits in front; false when there is none.
bool takeDigits(std::string_view& text) {
  auto const isDigit = [](char c) { return c >= '0' && c <= '9'; };
  auto const end = std::find_if_not(text.begin(), text.end(), isDigit);
  bool const hasDigits = end != text.begin();
  text.remove_prefix(static_cast<std::size_t>(end - text.begin()));
  return hasDigits;
}

}  // namespace

NumberForm getNumberForm(std::string_view text) {
  takeAnyOf(text, "-");
  if (!takeAnyOf(text, "0") && !takeDigits(text)) return NumberForm::None;
  NumberForm const form = text.empty() ? NumberForm::Integer : NumberForm::Real;
  if (takeAnyOf(text, ".") && !takeDigits(text)) return NumberForm::None;
  if (takeAnyOf(text, "eE")) {
    takeAnyOf(text, "+-");
    if (!takeDigits(text)) return NumberForm::None;
  }
  return text.empty() ? form : NumberForm::None;
}

std::optional<double> readReal(std::string_view number) {
  double value = 0.0;
  auto const result = std::from_chars(number.data(), number.data() + number.size(), value);
  if (result.ec != std::errc::result_out_of_range) return value;
  // Out of range at either end; the magnitudes of the two ends are hundreds of digits apart.
  std::string_view const mantissa = number.substr(0, number.find_first_of("eE"));
  if (findMagnitude(mantissa) + readExponent(number) > 0) return std::nullopt;
  return number.front() == '-' ? -0.0 : 0.0;
}

}  // namespace qvToolkit
