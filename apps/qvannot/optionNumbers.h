#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qvannot {

/// The numbers that an option takes, both ends included.
template <class Number>
struct NumberRange {
  Number m_least;
  Number m_most;

  /// False for not-a-number, too.
  constexpr bool holds(Number number) const noexcept { return number >= m_least && number <= m_most; }
};

using CountRange = NumberRange<std::uint64_t>;

/// Heads smaller than the least one cannot be seen, those larger than the most hide every sheet.
inline constexpr NumberRange<float> HeadSizes{0.001F, 1000.0F};

// The words of numbers are bound to no locale; no sign "+", no blank, nothing behind the number. Each reader
// gives nothing for a word that is no number, or one out of range.

/// Decimal digits.
std::optional<std::uint64_t> readCount(std::string_view text, CountRange range);
/// Decimal digits, and K, M, G or T for 1,024 times the one before, or none.
std::optional<std::uint64_t> readSize(std::string_view text, CountRange range);
/// Decimal digits, or hexadecimal ones behind "0x".
std::optional<std::uint64_t> readOffset(std::string_view text);
/// A number as in a document, such as 3 or 2.5.
std::optional<float> readLength(std::string_view text, NumberRange<float> range);

/// A size in the shortest form that `readSize` takes: "512K".
std::string formatSize(std::uint64_t bytes);
/// The shortest text that `readLength` reads as this number: "0.001".
std::string formatLength(float length);

/// What is said of a word that a reader gave nothing for: "'0' is no number from 1 to 9".
std::string refuseNumber(std::string_view text, std::string_view what, std::string_view least,
                         std::string_view most);

}  // namespace qvannot
