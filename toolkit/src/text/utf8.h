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
