#include "text/hexadecimal.h"

#include <algorithm>
#include <string_view>

namespace qvToolkit {

std::string toHexNumber(std::uint64_t number, std::size_t width) {
  constexpr std::string_view Digits = "0123456789abcdef";
  std::string text;
  for (; number > 0 || text.size() < width; number >>= 4) text += Digits[number & 0x0FU];
  std::reverse(text.begin(), text.end());
  return text;
}

}  // namespace qvToolkit
