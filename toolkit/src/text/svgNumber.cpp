#include "text/svgNumber.h"

#include <array>
#include <charconv>

namespace qvToolkit {

namespace {

template <class Real>
void appendShortest(std::string& text, Real number) {
  if (std::abs(number) < Real(MinMagnitude)) number = Real(0);
  // Enough for the largest double without exponent.
  std::array<char, 400> digits;
  auto const result =
      std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed);
  text.append(digits.data(), result.ptr);
}

}  // namespace

void appendNumber(std::string& text, float number) {
  appendShortest(text, number);
}

void appendNumber(std::string& text, double number) {
  appendShortest(text, number);
}

}  // namespace qvToolkit
