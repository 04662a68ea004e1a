#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "text/hexadecimal.h"
#include "wm4/vector3.h"

namespace qvToolkit {

/// "#RRGGBB".
inline std::string formatColor(Wm4::Vector3<unsigned char> const& color) {
  std::string text = "#";
  for (unsigned char const part : {color.X(), color.Y(), color.Z()}) appendHex(text, part, 2, HexCase::Upper);
  return text;
}

/// True for "#" and six hexadecimal digits.
inline bool isColorText(std::string_view text) {
  return text.size() == 7 && text.front() == '#' && std::all_of(text.begin() + 1, text.end(), isHexDigit);
}

}  // namespace qvToolkit
