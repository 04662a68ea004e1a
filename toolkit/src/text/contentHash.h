#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "text/hexadecimal.h"

namespace qvToolkit {

/// The 64-bit FNV-1a hash of bytes that come in pieces. It tells contents apart; it is no proof against
/// forgery.
class ContentHash {
 public:
  void add(std::string_view bytes) noexcept {
    for (char const byte : bytes) m_hash = (m_hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
  }
  /// 16 lower-case hexadecimal digits.
  std::string getText() const { return toHexNumber(m_hash, 16); }

 private:
  std::uint64_t m_hash = 0xCBF29CE484222325U;
};

inline std::string hashContent(std::string_view bytes) {
  ContentHash hash;
  hash.add(bytes);
  return hash.getText();
}

}  // namespace qvToolkit
