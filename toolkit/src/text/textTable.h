#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qvToolkit {

using TableRow = std::vector<std::string>;

/// The number of characters of a valid UTF-8 text, which is about its width.
std::size_t getTextWidth(std::string_view text);

/// Appends the rows as lines indented by four blanks, their cells in columns two blanks apart. All rows are
/// of one length; cells wider than 40 characters do not widen their column.
void appendTable(std::string& text, std::vector<TableRow> const& rows);

}  // namespace qvToolkit
