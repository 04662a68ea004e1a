#include "jsonNumber.h"

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

}  // namespace

bool isIntegerText(std::string_view number) {
  return number.find_first_of(".eE") == std::string_view::npos;
}

bool isBeyondDouble(std::string_view number) {
  double value = 0.0;
  auto const result = std::from_chars(number.data(), number.data() + number.size(), value);
  if (result.ec != std::errc::result_out_of_range) return false;
  // Out of range at either end; the magnitudes of the two ends are hundreds of digits apart.
  std::string_view const mantissa = number.substr(0, number.find_first_of("eE"));
  return findMagnitude(mantissa) + readExponent(number) > 0;
}

}  // namespace qvToolkit
