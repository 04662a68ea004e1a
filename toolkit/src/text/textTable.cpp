#include "text/textTable.h"

#include <algorithm>

#include "text/utf8.h"

namespace qvToolkit {

namespace {

constexpr std::size_t MaxColumnWidth = 40;

}  // namespace

std::size_t getTextWidth(std::string_view text) {
  std::size_t width = 0;
  for (char const byte : text) width += beginsCharacter(byte) ? 1U : 0U;
  return width;
}

void appendTable(std::string& text, std::vector<TableRow> const& rows) {
  std::vector<std::size_t> widths(rows.front().size(), 0);
  for (TableRow const& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      std::size_t const width = getTextWidth(row[i]);
      if (width <= MaxColumnWidth) widths[i] = std::max(widths[i], width);
    }
  }
  for (TableRow const& row : rows) {
    std::string line = "   ";
    for (std::size_t i = 0; i < row.size(); ++i) {
      line += ' ' + row[i];
      std::size_t const width = getTextWidth(row[i]);
      line.append(widths[i] - std::min(widths[i], width) + 1, ' ');
    }
    line.resize(line.find_last_not_of(' ') + 1);
    text += line + '\n';
  }
}

}  // namespace qvToolkit
