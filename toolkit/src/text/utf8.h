#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qvToolkit {

/// What stands at the beginning of a byte string, read as UTF-8.
struct Utf8Step {
  char32_t m_codePoint = 0;
  std::size_t m_length = 0;  ///< bytes taken, at least 1
  bool m_isValid = false;    ///< false: the bytes are a maximal invalid sequence or an encoded surrogate
};

/// Decodes the first character of `bytes`, which must not be empty. Of an invalid sequence as many bytes are
/// taken as could have begun a character, or else one; the three bytes of an encoded surrogate are taken as
/// one.
Utf8Step decodeUtf8(std::string_view bytes);

/// The same, and takes these bytes away.
inline Utf8Step takeUtf8(std::string_view& bytes) {
  Utf8Step const step = decodeUtf8(bytes);
  bytes.remove_prefix(step.m_length);
  return step;
}

/// Calls `visit(step, bytes of the step)` for each character and each invalid sequence, in order.
template <class Visit>
void forEachCharacter(std::string_view bytes, Visit visit) {
  while (!bytes.empty()) {
    std::string_view const rest = bytes;
    Utf8Step const step = takeUtf8(bytes);
    visit(step, rest.substr(0, step.m_length));
  }
}

/// False for a byte that continues a character; of valid UTF-8 it tells where characters begin.
constexpr bool beginsCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

/// Shown in place of what is no character.
constexpr char32_t ReplacementCharacter = 0xFFFD;

/// Halves of surrogate pairs, which are no characters by themselves.
constexpr bool isHighSurrogate(char32_t c) {
  return c >= 0xD800 && c <= 0xDBFF;
}
constexpr bool isLowSurrogate(char32_t c) {
  return c >= 0xDC00 && c <= 0xDFFF;
}
constexpr bool isSurrogate(char32_t c) {
  return isHighSurrogate(c) || isLowSurrogate(c);
}

/// Appends the UTF-8 form of a Unicode scalar value.
void appendUtf8(std::string& text, char32_t codePoint);

/// True when the bytes are UTF-8 throughout: shortest forms only, no surrogates, nothing above U+10FFFF.
bool isValidUtf8(std::string_view bytes);

/// Control characters in the sense of Unicode: C0, DEL and C1.
constexpr bool isControl(char32_t c) {
  return c < 0x20 || (c >= 0x7F && c <= 0x9F);
}

/// Characters that reorder or break a line where they are shown: bidirectional controls and line separators.
constexpr bool isLayoutControl(char32_t c) {
  return c == 0x61C || c == 0x200E || c == 0x200F || (c >= 0x2028 && c <= 0x202E) ||
         (c >= 0x2066 && c <= 0x2069);
}

}  // namespace qvToolkit
