#include "json/jsonString.h"

#include <charconv>
#include <cstdint>
#include <system_error>
#include <utility>

#include "text/utf8.h"

namespace qvToolkit {

namespace {

constexpr std::size_t EscapeLength = 6;  // of "\uXXXX"

/// What a simple escape stands for; 0 for none.
constexpr char findControl(char letter) {
  constexpr std::string_view Letters = "\"\\/bfnrt";
  constexpr std::string_view Characters = "\"\\/\b\f\n\r\t";
  std::size_t const index = Letters.find(letter);
  return index == std::string_view::npos ? '\0' : Characters[index];
}

class StringReader {
 public:
  explicit StringReader(std::string_view text) : m_text(text) {}

  std::optional<JsonString> read() {
    for (m_offset = 1; m_offset < m_text.size(); ++m_offset) {
      char const c = m_text[m_offset];
      if (c == '"') return std::move(m_string);
      if (c != '\\') {
        m_string.m_text += c;
      } else if (!readEscape()) {
        return std::nullopt;
      }
    }
    return std::nullopt;
  }

 private:
  /// Stops on the escape's last byte.
  bool readEscape() {
    if (m_offset + 1 >= m_text.size()) return false;
    if (m_text[m_offset + 1] == 'u') return readUnicodeEscape();
    char const control = findControl(m_text[++m_offset]);
    if (control == '\0') return false;
    m_string.m_text += control;
    return true;
  }

  bool readUnicodeEscape() {
    std::size_t const start = m_offset;
    std::optional<char32_t> unit = readHexDigits(m_text, start + 2);
    if (!unit) return false;
    m_offset += EscapeLength - 1;
    if (isHighSurrogate(*unit) && m_text.substr(m_offset + 1, 2) == "\\u") {
      char32_t const low = readHexDigits(m_text, m_offset + 3).value_or(0);
      if (isLowSurrogate(low)) {
        unit = 0x10000 + ((*unit - 0xD800) << 10) + (low - 0xDC00);
        m_offset += EscapeLength;
      }
    }
    bool const isHalf = isSurrogate(*unit);
    if (isHalf && m_string.m_halves++ == 0) m_string.m_firstHalf = m_text.substr(start, EscapeLength);
    appendUtf8(m_string.m_text, isHalf ? ReplacementCharacter : *unit);
    return true;
  }

  std::string_view m_text;
  std::size_t m_offset = 0;
  JsonString m_string;
};

}  // namespace

std::optional<JsonString> readJsonString(std::string_view text) {
  return StringReader(text).read();
}

std::optional<char32_t> readHexDigits(std::string_view text, std::size_t offset) {
  if (offset + 4 > text.size()) return std::nullopt;
  std::uint32_t number = 0;
  char const* const end = text.data() + offset + 4;
  auto const result = std::from_chars(text.data() + offset, end, number, 16);
  if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
  return static_cast<char32_t>(number);
}

}  // namespace qvToolkit
