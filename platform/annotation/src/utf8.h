#pragma once

#include <string>
#include <string_view>

namespace qv::text {

/// Stands for what cannot be shown as it is.
constexpr char32_t REPLACEMENT_CHARACTER = 0xFFFD;

/// The characters of a UTF-8 text. Each maximal ill-formed piece becomes one replacement character, and so
/// does each character that no markup can hold or that would break the line: control characters except the
/// tab, line and paragraph separators, U+FFFE and U+FFFF.
std::u32string decodeForDisplay(std::string_view utf8);

/// Appends the UTF-8 form of a Unicode scalar value.
void appendUtf8(std::string& text, char32_t character);

}  // namespace qv::text
