#pragma once

#include <algorithm>
#include <string_view>

namespace qvToolkit {

/// The name of a JSON member. It is a constant of the program, in lowerCamelCase, which the compiler checks;
/// so it stands in the text as it is, and nothing that came from outside can become one.
/// @code
/// constexpr JsonKey key = "formatVersion";
/// assert(key.getText() == "formatVersion");
/// @endcode
struct JsonKey {
  /// Does not compile for a name of any other form.
  consteval JsonKey(char const* name) : m_text(name) {
    bool const isName = !m_text.empty() && isSmall(m_text[0]) && std::ranges::all_of(m_text, isPart);
    if (!isName) throw "the name is not in lowerCamelCase";
  }

  constexpr std::string_view getText() const noexcept { return m_text; }  ///< the name itself

 private:
  static constexpr bool isSmall(char c) { return c >= 'a' && c <= 'z'; }
  static constexpr bool isPart(char c) {
    return isSmall(c) || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
  }

  std::string_view m_text;
};

}  // namespace qvToolkit
