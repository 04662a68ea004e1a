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

constexpr unsigned LENGTH_SHIFT = 24;

/// The marker above Unicode for at most three bytes.
char32_t makeUnshowable(std::string_view bytes) {
  auto character = static_cast<char32_t>(bytes.size()) << LENGTH_SHIFT;
  for (std::size_t i = 0; i < bytes.size(); ++i) character |= byteAt(bytes, i) << 8 * i;
  return character;
}

bool isSurrogate(std::string_view text) {
  return text.size() >= 3 && byteAt(text, 0) == 0xED && byteAt(text, 1) >= 0xA0 && byteAt(text, 1) <= 0xBF &&
         byteAt(text, 2) >= 0x80 && byteAt(text, 2) <= 0xBF;
}

/// A character, or 0 for an ill-formed piece, and how many bytes it takes.
struct Decoded {
  char32_t m_character;
  std::size_t m_length;
};

/// Reads the first character, or the maximal ill-formed piece.
Decoded readCharacter(std::string_view text) {
  if (isSurrogate(text)) return {0, 3};
  Lead const* const lead = findLead(byteAt(text, 0));
  if (lead == nullptr) return {0, 1};
  char32_t character = byteAt(text, 0) & lead->m_mask;
  for (std::size_t i = 1; i <= lead->m_following; ++i) {
    unsigned const lowest = i == 1 ? lead->m_secondMin : 0x80;
    unsigned const highest = i == 1 ? lead->m_secondMax : 0xBF;
    if (i >= text.size() || byteAt(text, i) < lowest || byteAt(text, i) > highest) return {0, i};
    character = character << 6 | (byteAt(text, i) & 0x3F);
  }
  return {character, lead->m_following + 1U};
}

bool isShowable(char32_t character) {
  if (character == U'\t') return true;
  if (character < 0x20 || (character >= 0x7F && character < 0xA0)) return false;
  return character != 0x2028 && character != 0x2029 && character != 0xFFFE && character != 0xFFFF;
}

}  // namespace

std::string getUnshowableBytes(char32_t character) {
  std::string bytes(character >> LENGTH_SHIFT, '\0');
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(character >> 8 * i & 0xFF);
  return bytes;
}

void decodeForDisplay(std::string_view utf8, std::u32string& characters) {
  characters.clear();
  while (!utf8.empty()) {
    if (unsigned const byte = byteAt(utf8, 0); byte >= 0x20 && byte < 0x7F) {
      characters.push_back(byte);
      utf8.remove_prefix(1);
      continue;
    }
    auto const [character, length] = readCharacter(utf8);
    characters.push_back(isShowable(character) ? character : makeUnshowable(utf8.substr(0, length)));
    utf8.remove_prefix(length);
  }
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
