#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qvToolkit {

/// Appends "/key" to a JSON pointer, with "~" and "/" of the key escaped.
inline void appendPointerKey(std::string& pointer, std::string_view key) {
  pointer += '/';
  for (char const c : key) {
    if (c == '~') {
      pointer += "~0";
    } else if (c == '/') {
      pointer += "~1";
    } else {
      pointer += c;
    }
  }
}

inline void appendPointerIndex(std::string& pointer, std::size_t index) {
  pointer += '/' + std::to_string(index);
}

}  // namespace qvToolkit
