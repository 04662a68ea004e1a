#pragma once

#include <nettle/sha2.h>

#include <string>
#include <string_view>

namespace qvToolkit {

/// The SHA-256 of bytes that come in pieces: equal only for equal contents, whoever made them.
class Sha256 {
 public:
  Sha256() noexcept { sha256_init(&m_state); }
  void add(std::string_view bytes) noexcept;
  /// 64 lower-case hexadecimal digits; begins anew with what is added afterwards.
  std::string takeText();

 private:
  sha256_ctx m_state;
};

/// The same of bytes that are all there.
std::string hashSha256(std::string_view bytes);

}  // namespace qvToolkit
