#include "text/base64.h"

#include <cstddef>
#include <cstdint>

namespace qvToolkit {

std::string encodeBase64(std::string_view bytes) {
  static constexpr char Digits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t at = 0; at < bytes.size(); at += 3) {
    std::size_t const count = bytes.size() - at < 3 ? bytes.size() - at : 3;
    std::uint32_t group = 0;
    for (std::size_t i = 0; i < 3; ++i) {
      group = group << 8 | (i < count ? static_cast<unsigned char>(bytes[at + i]) : 0U);
    }
    for (std::size_t i = 0; i < 4; ++i) text += i <= count ? Digits[group >> (18 - 6 * i) & 0x3F] : '=';
  }
  return text;
}

}  // namespace qvToolkit
