#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace qvToolkit {

/// The form of a noun behind a count: "leader" behind 1, else `plural`, or "leaders" without one.
inline std::string formatNoun(std::uint64_t count, std::string_view noun, std::string_view plural = {}) {
  if (count != 1 && !plural.empty()) return std::string(plural);
  return std::string(noun).append(count == 1 ? "" : "s");
}

/// "is" behind 1, else "are".
constexpr std::string_view getVerb(std::uint64_t count) {
  return count == 1 ? "is" : "are";
}

/// "1 leader", "2 leaders".
inline std::string formatCount(std::uint64_t count, std::string_view noun, std::string_view plural = {}) {
  return std::to_string(count) + ' ' + formatNoun(count, noun, plural);
}

/// "1 leader is", "2 leaders are".
inline std::string formatCountIs(std::uint64_t count, std::string_view noun) {
  return formatCount(count, noun).append(1, ' ').append(getVerb(count));
}

}  // namespace qvToolkit
