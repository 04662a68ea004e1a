#include "readers/variant/color.h"

#include <charconv>
#include <cstdint>

namespace qvLegacy::readers {

std::optional<Wm4::Vector3<unsigned char>> parseColor(std::string_view text) {
  if (text.size() != 6) return std::nullopt;
  std::uint32_t value = 0;
  // KEEP: what follows the leading digits is ignored, so that a text of fewer digits is a number of fewer
  // digits.
  std::from_chars(text.data(), text.data() + text.size(), value, 16);
  if (value == 0 && text != "000000") return std::nullopt;
  auto const byteAt = [value](int shift) { return static_cast<unsigned char>((value >> shift) & 0xFFU); };
  return Wm4::Vector3<unsigned char>(byteAt(16), byteAt(8), byteAt(0));
}

}  // namespace qvLegacy::readers
