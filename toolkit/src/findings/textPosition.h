#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "qvToolkit/findings/finding.h"

namespace qvToolkit {

/// Tells line and column of byte offsets in a text. Cheap when the offsets are asked in ascending order: the
/// text between two of them is looked at once.
class LineCounter {
 public:
  explicit LineCounter(std::string_view text) : m_text(text) {}

  /// Line and column from 1, the column in bytes; lines end at LF. `offset` may be the text's length.
  SourcePlace locate(std::size_t offset) {
    if (offset < m_offset) *this = LineCounter(m_text);
    for (; m_offset < offset; ++m_offset) {
      if (m_text[m_offset] != '\n') continue;
      ++m_line;
      m_lineStart = m_offset + 1;
    }
    return {offset, m_line, offset - m_lineStart + 1, {}};
  }

 private:
  std::string_view m_text;
  std::size_t m_offset = 0;
  std::uint64_t m_line = 1;
  std::size_t m_lineStart = 0;
};

}  // namespace qvToolkit
