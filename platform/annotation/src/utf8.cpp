#include "utf8.h"

#include <cstddef>

namespace qv::text {

namespace {

/// What a first byte announces: how many bytes follow, the bits it brings, and the range of the second byte,
/// which excludes overlong forms, surrogates and values beyond U+10FFFF.
struct Lead {
  unsigned m_first;
  unsigned m_last;
  unsigned m_following;
  unsigned m_mask;
  unsigned m_secondMin;
  unsigned m_secondMax;
};

constexpr Lead LEADS[] = {
    {0x00, 0x7F, 0, 0x7F, 0x00, 0x00}, {0xC2, 0xDF, 1, 0x1F, 0x80, 0xBF}, {0xE0, 0xE0, 2, 0x0F, 0xA0, 0xBF},
    {0xE1, 0xEC, 2, 0x0F, 0x80, 0xBF}, {0xED, 0xED, 2, 0x0F, 0x80, 0x9F}, {0xEE, 0xEF, 2, 0x0F, 0x80, 0xBF},
    {0xF0, 0xF0, 3, 0x07, 0x90, 0xBF}, {0xF1, 0xF3, 3, 0x07, 0x80, 0xBF}, {0xF4, 0xF4, 3, 0x07, 0x80, 0x8F},
};

Lead const* findLead(unsigned byte) {
  for (Lead const& lead : LEADS) {
    if (byte >= lead.m_first && byte <= lead.m_last) return &lead;
  }
  return nullptr;
}

unsigned byteAt(std::string_view text, std::size_t position) {
  return static_cast<unsigned char>(text[position]);
}

/// Reads one character and moves `position` past it, or past the maximal ill-formed piece.
char32_t readCharacter(std::string_view text, std::size_t& position) {
  Lead const* const lead = findLead(byteAt(text, position));
  if (lead == nullptr) {
    ++position;
    return REPLACEMENT_CHARACTER;
  }
  char32_t character = byteAt(text, position++) & lead->m_mask;
  for (unsigned i = 0; i < lead->m_following; ++i, ++position) {
    unsigned const lowest = i == 0 ? lead->m_secondMin : 0x80;
    unsigned const highest = i == 0 ? lead->m_secondMax : 0xBF;
    if (position >= text.size() || byteAt(text, position) < lowest || byteAt(text, position) > highest) {
      return REPLACEMENT_CHARACTER;
    }
    character = character << 6 | (byteAt(text, position) & 0x3F);
  }
  return character;
}

bool isShowable(char32_t character) {
  if (character == U'\t') return true;
  if (character < 0x20 || (character >= 0x7F && character < 0xA0)) return false;
  return character != 0x2028 && character != 0x2029 && character != 0xFFFE && character != 0xFFFF;
}

}  // namespace

std::u32string decodeForDisplay(std::string_view utf8) {
  std::u32string characters;
  characters.reserve(utf8.size());
  for (std::size_t position = 0; position < utf8.size();) {
    char32_t const character = readCharacter(utf8, position);
    characters.push_back(isShowable(character) ? character : REPLACEMENT_CHARACTER);
  }
  return characters;
}

void appendUtf8(std::string& text, char32_t character) {
  auto const append = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
  if (character < 0x80) {
    append(character);
    return;
  }
  if (character < 0x800) {
    append(0xC0 | character >> 6);
  } else if (character < 0x10000) {
    append(0xE0 | character >> 12);
    append(0x80 | (character >> 6 & 0x3F));
  } else {
    append(0xF0 | character >> 18);
    append(0x80 | (character >> 12 & 0x3F));
    append(0x80 | (character >> 6 & 0x3F));
  }
  append(0x80 | (character & 0x3F));
}

}  // namespace qv::text
