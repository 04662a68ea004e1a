#pragma once

#include <string>
#include <string_view>

namespace qv::text {

/// Stands for what cannot be shown as it is.
constexpr char32_t REPLACEMENT_CHARACTER = 0xFFFD;

/// Stands in a decoded text for what cannot be shown: a number beyond Unicode that holds the one to three
/// bytes of the original.
constexpr bool isUnshowable(char32_t character) {
  return character > 0x10FFFF;
}

/// The bytes that an unshowable character stands for.
std::string getUnshowableBytes(char32_t character);

/// Sets `characters` to the characters of a UTF-8 text. Each maximal ill-formed piece becomes one unshowable
/// character, and so does each surrogate and each character that no markup can hold or that would break the
/// line: control characters except the tab, line and paragraph separators, U+FFFE and U+FFFF.
void decodeForDisplay(std::string_view utf8, std::u32string& characters);

/// Appends the UTF-8 form of a Unicode scalar value.
void appendUtf8(std::string& text, char32_t character);

}  // namespace qv::text
