#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace qvToolkit {

/// The 64-bit FNV-1a hash of bytes that come in pieces. It tells contents apart; it is no proof against
/// forgery.
class ContentHash {
 public:
  void add(std::string_view bytes) noexcept {
    for (char const byte : bytes) m_hash = (m_hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
  }
  /// 16 lower-case hexadecimal digits.
  std::string getText() const {
    std::uint64_t hash = m_hash;
    std::string text(16, '0');
    for (auto digit = text.rbegin(); digit != text.rend(); ++digit, hash >>= 4) {
      *digit = "0123456789abcdef"[hash & 0xF];
    }
    return text;
  }

 private:
  std::uint64_t m_hash = 0xCBF29CE484222325U;
};

inline std::string hashContent(std::string_view bytes) {
  ContentHash hash;
  hash.add(bytes);
  return hash.getText();
}

}  // namespace qvToolkit
