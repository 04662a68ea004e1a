#include "qvSystem/qvStreamVersion.h"

#include <charconv>
#include <string_view>

namespace qv {

namespace {

/// Digits only: no sign, no blank. False for an empty text and for a number above 65535.
bool parseNumber(std::string_view text, std::uint16_t& number) {
  auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size();
}

}  // namespace

qvStreamVersion::qvStreamVersion(std::string const& text) {
  auto const dot = text.find('.');
  if (dot == std::string::npos) return;
  std::string_view const whole = text;
  std::uint16_t majorNumber = 0;
  std::uint16_t minorNumber = 0;
  if (parseNumber(whole.substr(0, dot), majorNumber) && parseNumber(whole.substr(dot + 1), minorNumber)) {
    *this = qvStreamVersion(majorNumber, minorNumber);
  }
}

std::string qvStreamVersion::toString() const {
  return std::to_string(GetMajor()) + '.' + std::to_string(GetMinor());
}

}  // namespace qv
