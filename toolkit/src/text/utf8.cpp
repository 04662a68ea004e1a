#include "text/utf8.h"

#include <array>

namespace qvToolkit {

namespace {

/// Lead bytes, with the range that their first continuation byte may have.
struct LeadByte {
  unsigned char m_first;
  unsigned char m_last;
  unsigned char m_length;
  unsigned char m_lowest;
  unsigned char m_highest;
};

/// ED includes surrogates here: they are told apart once decoded, so that each is one invalid sequence.
constexpr std::array<LeadByte, 6> LeadBytes = {{
    {0xC2, 0xDF, 2, 0x80, 0xBF},
    {0xE0, 0xE0, 3, 0xA0, 0xBF},
    {0xE1, 0xEF, 3, 0x80, 0xBF},
    {0xF0, 0xF0, 4, 0x90, 0xBF},
    {0xF1, 0xF3, 4, 0x80, 0xBF},
    {0xF4, 0xF4, 4, 0x80, 0x8F},
}};

LeadByte const* findLeadByte(unsigned char byte) {
  for (LeadByte const& lead : LeadBytes) {
    if (byte >= lead.m_first && byte <= lead.m_last) return &lead;
  }
  return nullptr;
}

}  // namespace

Utf8Step decodeUtf8(std::string_view bytes) {
  auto const byteAt = [bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  if (byteAt(0) < 0x80) return {byteAt(0), 1, true};
  LeadByte const* lead = findLeadByte(byteAt(0));
  if (lead == nullptr) return {0, 1, false};

  char32_t codePoint = byteAt(0) & (0xFFU >> (lead->m_length + 1U));
  for (std::size_t i = 1; i < lead->m_length; ++i) {
    unsigned char const lowest = i == 1 ? lead->m_lowest : 0x80;
    unsigned char const highest = i == 1 ? lead->m_highest : 0xBF;
    if (i >= bytes.size() || byteAt(i) < lowest || byteAt(i) > highest) return {0, i, false};
    codePoint = (codePoint << 6) | (byteAt(i) & 0x3FU);
  }
  return {codePoint, lead->m_length, !isSurrogate(codePoint)};
}

void appendUtf8(std::string& text, char32_t codePoint) {
  auto const append = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
  if (codePoint < 0x80) {
    append(codePoint);
    return;
  }
  if (codePoint < 0x800) {
    append(0xC0 | (codePoint >> 6));
  } else {
    if (codePoint < 0x10000) {
      append(0xE0 | (codePoint >> 12));
    } else {
      append(0xF0 | (codePoint >> 18));
      append(0x80 | ((codePoint >> 12) & 0x3F));
    }
    append(0x80 | ((codePoint >> 6) & 0x3F));
  }
  append(0x80 | (codePoint & 0x3F));
}

bool isValidUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    if (!takeUtf8(bytes).m_isValid) return false;
  }
  return true;
}

}  // namespace qvToolkit
