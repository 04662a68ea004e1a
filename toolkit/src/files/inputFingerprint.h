#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace qvToolkit {

/// By what the content of an input can be told from others.
struct InputFingerprint {
  std::uint64_t m_size = 0;  ///< in bytes
  std::string m_hash;        ///< 64-bit FNV-1a, as the hashes of images in the migrated model
};

/// Reads a file piece by piece, in memory that does not grow with it.
/// Nothing for standard input, for what is no regular file or cannot be read, and for a file larger than
/// `maxBytes`.
std::optional<InputFingerprint> takeFingerprint(std::string const& path, std::uint64_t maxBytes);

}  // namespace qvToolkit
