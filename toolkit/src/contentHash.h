#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace qvToolkit {

/// The 64-bit FNV-1a hash of the bytes, as 16 lower-case hexadecimal digits. It tells contents apart; it is
/// no proof against forgery.
inline std::string hashContent(std::string_view bytes) {
  std::uint64_t hash = 0xCBF29CE484222325U;
  for (char const byte : bytes) hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
  std::string text(16, '0');
  for (auto digit = text.rbegin(); digit != text.rend(); ++digit, hash >>= 4) {
    *digit = "0123456789abcdef"[hash & 0xF];
  }
  return text;
}

}  // namespace qvToolkit
