#include "text/sha256.h"

#include <array>
#include <cstdint>

#include "text/hexadecimal.h"

namespace qvToolkit {

void Sha256::add(std::string_view bytes) noexcept {
  sha256_update(&m_state, bytes.size(), reinterpret_cast<std::uint8_t const*>(bytes.data()));
}

std::string Sha256::takeText() {
  std::array<std::uint8_t, SHA256_DIGEST_SIZE> digest{};
  sha256_digest(&m_state, digest.size(), digest.data());
  return toHexBytes({reinterpret_cast<char const*>(digest.data()), digest.size()});
}

std::string hashSha256(std::string_view bytes) {
  Sha256 hash;
  hash.add(bytes);
  return hash.takeText();
}

}  // namespace qvToolkit
