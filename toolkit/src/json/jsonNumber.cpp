#include "json/jsonNumber.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <system_error>

namespace qvToolkit {

namespace {

/// Exponents beyond this decide alone: no text is long enough to make up for them.
constexpr std::int64_t MaxExponent = std::int64_t{1} << 40;

/// Integers of so many digits are doubles, and so are these powers of ten. The quotient of two doubles is the
/// double that is nearest to the exact one.
constexpr std::size_t MaxExactDigits = 15;
constexpr double PowersOfTen[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6, 1e7,
                                  1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14};
static_assert(std::size(PowersOfTen) == MaxExactDigits);

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

std::optional<double> readShortReal(std::string_view text) {
  bool const isNegative = text.starts_with('-');
  if (isNegative) text.remove_prefix(1);
  if (text.size() > MaxExactDigits + 1) return std::nullopt;
  std::size_t point = 0;
  std::int64_t digits = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] >= '0' && text[i] <= '9') {
      digits = 10 * digits + (text[i] - '0');
    } else if (text[i] == '.' && point == 0 && i > 0) {
      point = i;
    } else {
      return std::nullopt;
    }
  }
  bool const isLeadingZero = text.starts_with('0') && point != 1;
  if (point == 0 || point + 1 == text.size() || isLeadingZero) return std::nullopt;
  double const value = static_cast<double>(digits) / PowersOfTen[text.size() - point - 1];
  return isNegative ? -value : value;
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
