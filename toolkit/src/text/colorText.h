#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "wm4/vector3.h"

namespace qvToolkit {

/// "#RRGGBB".
inline std::string formatColor(Wm4::Vector3<unsigned char> const& color) {
  constexpr std::string_view Digits = "0123456789ABCDEF";
  std::string text = "#";
  for (std::size_t i = 0; i < 3; ++i) {
    text += Digits[color[i] >> 4];
    text += Digits[color[i] & 0xF];
  }
  return text;
}

/// True for "#" and six hexadecimal digits.
inline bool isColorText(std::string_view text) {
  return text.size() == 7 && text.front() == '#' &&
         text.find_first_not_of("0123456789ABCDEFabcdef", 1) == std::string_view::npos;
}

}  // namespace qvToolkit
