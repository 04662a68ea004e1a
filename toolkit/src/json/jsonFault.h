#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace qvToolkit {

/// What keeps a text from being JSON.
struct JsonFault {
  std::size_t m_offset = 0;
  std::string m_found;     ///< such as "'}'" or "the end of the text"; bytes of the text stay raw
  std::string m_expected;  ///< such as "a value"
  bool m_isTooDeep = false;
};

/// The first fault of a text that should be JSON of at most `maxContainers` nested objects and arrays;
/// nothing for a sound one. Strict: no comments, no trailing commas, no control characters in strings, UTF-8
/// only, no number beyond the range of a double.
///
/// It explains a refusal and builds nothing: one pass, no recursion, stops at the first fault.
std::optional<JsonFault> findJsonFault(std::string_view text, std::size_t maxContainers);

}  // namespace qvToolkit
