#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace qvToolkit {

/// The content of a JSON string.
struct JsonString {
  std::string m_text;        ///< valid UTF-8 where the JSON text is
  std::string m_firstHalf;   ///< the first escape that is half a surrogate pair, such as "\ud800"; else empty
  std::size_t m_halves = 0;  ///< how many there are; each became U+FFFD
};

/// Reads the JSON string whose opening quote stands at the beginning of `text`. Nothing when it has no
/// closing quote or an escape that JSON does not know.
std::optional<JsonString> readJsonString(std::string_view text);

/// The number of four hexadecimal digits at `offset`; nothing when there are none.
std::optional<char32_t> readHexDigits(std::string_view text, std::size_t offset);

}  // namespace qvToolkit
