#include "qvannot/cli/textColumns.h"

#include <algorithm>

namespace qvannot {

namespace {

/// Where a line of at most `width` characters ends: at a blank, or with the text.
std::size_t findLineEnd(std::string_view text, std::size_t width) {
  if (text.size() <= width) return text.size();
  std::size_t const end = text.rfind(' ', width);
  return std::min(end == std::string_view::npos ? text.find(' ') : end, text.size());
}

}  // namespace

std::string wrapText(std::string_view text, std::size_t width, std::size_t indent) {
  std::string wrapped;
  while (true) {
    std::size_t const end = findLineEnd(text, width - indent);
    wrapped.append(text.substr(0, end)).append("\n");
    if (end == text.size()) return wrapped;
    text.remove_prefix(end + 1);
    wrapped.append(indent, ' ');
  }
}

std::string padText(std::string_view text, std::size_t width) {
  return std::string(text) + std::string(width - std::min(width, text.size()), ' ');
}

std::string joinWords(std::span<std::string_view const> words, std::string_view separator) {
  std::string text;
  for (std::string_view const word : words) text.append(text.empty() ? "" : separator).append(word);
  return text;
}

}  // namespace qvannot
