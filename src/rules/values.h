#pragma once

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

/// How values of a document become values of the model. Each conversion says as well whether anything was
/// lost on the way: a reader has no use for that, an audit reports it.
namespace qvLegacy::rules {

/// What a conversion makes of a value.
template <class Value>
struct Converted {
  Value value{};
  bool isExact = true;
};

/// Rounding to the nearest single-precision number is exact; one that is too large for it is not.
inline Converted<float> toSingle(double number) noexcept {
  auto const single = static_cast<float>(number);
  return {single, std::isfinite(single) || !std::isfinite(number)};
}

inline constexpr float largestHeight = 655.35F;  ///< in ems

/// A height in ems as the model keeps it, in hundredths. Cutting off what is below a hundredth is the rule; a
/// height that loses more than one hundredth, or is no number, is not exact.
inline Converted<std::uint16_t> toHundredths(float ems) noexcept {
  // KEEP: 655.35 is not exact in single precision, so the largest result is 65534.
  bool const isPositive = ems > 0.0F;  // NaN is not
  auto const hundredths =
      static_cast<std::uint16_t>(isPositive ? std::min(ems, largestHeight) * 100.0F : 0.0F);
  return {hundredths, std::abs(static_cast<double>(ems) * 100.0 - hundredths) <= 1.0};
}

/// Whether nothing of a height in ems was cut off.
inline bool isWhole(float ems, std::uint16_t hundredths) noexcept {
  return static_cast<float>(hundredths / 100.0) == ems;
}

/// A colour: red, green, blue.
using Rgb = std::array<std::uint8_t, 3>;

/// The colour that six hexadecimal digits stand for; none for a text that is refused.
inline std::optional<Converted<Rgb>> toColor(std::string_view text) noexcept {
  if (text.size() != 6) return std::nullopt;
  std::uint32_t value = 0;
  // KEEP: what follows the leading digits is ignored, so that a text of fewer digits is a number of fewer
  // digits.
  char const* const end = std::from_chars(text.data(), text.data() + text.size(), value, 16).ptr;
  if (value == 0 && text != "000000") return std::nullopt;
  auto const byteAt = [value](unsigned shift) { return static_cast<std::uint8_t>((value >> shift) & 0xFFU); };
  return Converted<Rgb>{{byteAt(16), byteAt(8), byteAt(0)}, end == text.data() + text.size()};
}

/// The longest text of a run, in bytes.
inline constexpr std::size_t longestRun = std::numeric_limits<std::uint16_t>::max();

/// True when a run shows nothing: no character but blanks. A tab is text.
constexpr bool isBlankRun(std::string_view text) noexcept {
  return text.find_first_not_of(' ') == std::string_view::npos;
}

}  // namespace qvLegacy::rules
