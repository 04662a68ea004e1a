#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qvToolkit {

/// A run of text of which a stream holds more than its reader takes.
struct CutText {
  std::uint64_t m_offset = 0;  ///< of its first byte
  std::string m_path;          ///< "object[1].text[0].line[0].run[2].text"
  std::size_t m_size = 0;
  std::size_t m_kept = 0;
};

/// Of many texts only the first are listed.
struct CutTexts {
  static constexpr std::size_t MaxListed = 100;

  std::vector<CutText> m_texts;  ///< in the order of the bytes
  std::size_t m_more = 0;        ///< that are not listed
};

/// The runs of an object stream that are cut without a message: before 6.17 a text is as long as it says, but
/// a run takes no more than 65535 bytes of it, and ends at its first zero character. Zero characters at the
/// very end are no loss. Later streams cannot hold longer texts.
CutTexts findCutTexts(std::string_view bytes, std::uint32_t version);

}  // namespace qvToolkit
