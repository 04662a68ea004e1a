#include "bidiLevels.h"

#include <fribidi.h>

#include <algorithm>
#include <new>

#include "utf8.h"

namespace qv::text {

namespace {

struct Range {
  char32_t m_first;
  char32_t m_last;
};

/// Where the characters lie that run from right to left or embed text that does. The blocks hold others, too,
/// which costs time only.
constexpr Range BLOCKS[] = {
    {0x0590, 0x08FF}, {0x200F, 0x200F}, {0x202A, 0x202E},   {0x2066, 0x2069},
    {0xFB1D, 0xFDFF}, {0xFE70, 0xFEFC}, {0x10800, 0x10FFF}, {0x1E800, 0x1EFFF},
};

bool mayReorder(char32_t character) {
  if (character < BLOCKS[0].m_first) return false;
  return std::ranges::any_of(
      BLOCKS, [=](Range const& block) { return character >= block.m_first && character <= block.m_last; });
}

/// Blanks and the like, which take the paragraph's direction at the end of a line.
bool isTrailing(FriBidiCharType type) {
  return FRIBIDI_IS_EXPLICIT_OR_BN_OR_WS(type) || FRIBIDI_IS_ISOLATE(type);
}

}  // namespace

bool BidiLevels::isNeededFor(std::u32string_view text) noexcept {
  return std::ranges::any_of(text, mayReorder);
}

BidiLevels::BidiLevels(std::u32string_view line) {
  std::vector<FriBidiChar> characters(line.begin(), line.end());
  std::ranges::replace_if(characters, isUnshowable, static_cast<FriBidiChar>(REPLACEMENT_CHARACTER));
  auto const count = static_cast<FriBidiStrIndex>(line.size());
  std::vector<FriBidiCharType> types(line.size());
  std::vector<FriBidiBracketType> brackets(line.size());
  fribidi_get_bidi_types(characters.data(), count, types.data());
  fribidi_get_bracket_types(characters.data(), count, types.data(), brackets.data());
  std::vector<FriBidiLevel> levels(line.size());
  FriBidiParType direction = FRIBIDI_PAR_ON;
  auto const highest =
      fribidi_get_par_embedding_levels_ex(types.data(), brackets.data(), count, &direction, levels.data());
  if (highest == 0) throw std::bad_alloc();
  m_base = FRIBIDI_IS_RTL(direction) ? 1 : 0;
  for (std::size_t i = line.size(); i > 0 && isTrailing(types[i - 1]); --i) {
    levels[i - 1] = static_cast<FriBidiLevel>(m_base);
  }
  m_levels.assign(levels.begin(), levels.end());
}

}  // namespace qv::text
