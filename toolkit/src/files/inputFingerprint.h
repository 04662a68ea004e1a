#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace qvToolkit {

/// By what the content of an input can be told from others.
struct InputFingerprint {
  std::uint64_t m_size = 0;  ///< in bytes
  std::string m_sha256;      ///< 64 hexadecimal digits
};

/// Reads an open file piece by piece from its begin, in memory that does not grow with it, and leaves its
/// place as it was. Nothing for what is no regular file or cannot be read, and for a file larger than
/// `maxBytes`.
std::optional<InputFingerprint> takeFingerprint(int file, std::uint64_t maxBytes);

}  // namespace qvToolkit
