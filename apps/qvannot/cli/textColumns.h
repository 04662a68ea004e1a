#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace qvannot {

/// What every terminal shows in a line.
inline constexpr std::size_t TerminalWidth = 80;

/// The text in lines of at most `width` characters, broken at blanks, each but the first behind an indent; a
/// longer word stays whole. Ends with a line end.
std::string wrapText(std::string_view text, std::size_t width, std::size_t indent = 0);

/// The text and as many blanks as lack to a width.
std::string padText(std::string_view text, std::size_t width);

/// The words with a separator between them.
std::string joinWords(std::span<std::string_view const> words, std::string_view separator);

}  // namespace qvannot
