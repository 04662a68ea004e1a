#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace qv::text {

/// The embedding levels of a line by the Unicode bidirectional algorithm; the line is a paragraph of its own,
/// whose direction is that of its first strong character, left-to-right when it has none. An odd level stands
/// for right-to-left.
class BidiLevels {
 public:
  /// Of a line that runs from left to right.
  BidiLevels() noexcept = default;
  explicit BidiLevels(std::u32string_view line);

  /// False when the text changes nothing in a line that runs from left to right.
  static bool isNeededFor(std::u32string_view text) noexcept;

  bool isRightToLeft() const noexcept { return m_base % 2 != 0; }
  /// False when the whole line runs from left to right.
  bool areMixed() const noexcept { return !m_levels.empty(); }
  unsigned getLevel(std::size_t position) const { return m_levels.empty() ? m_base : m_levels[position]; }

 private:
  std::uint8_t m_base = 0;
  std::vector<std::uint8_t> m_levels;  // of the characters; empty when all are on the level 0
};

}  // namespace qv::text
