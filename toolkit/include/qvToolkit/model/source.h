#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace qvToolkit {

/// Encoding of a document, told by its content.
enum class Format : std::uint8_t {
  Json,          ///< variant maps as JSON text
  ObjectStream,  ///< the binary encoding, ".qvs"
};

/// What a document was read from, so that another run, another machine or another day can tell whether it is
/// the same.
/// @code
/// Source const source = openDocument("bracket.json").m_source;
/// if (source.m_size.has_value()) std::cout << *source.m_size << " bytes, SHA-256 " << source.m_sha256 <<
/// '\n';
/// @endcode
struct Source {
  /// Relative to the root of the run where a caller has one, or else as it was given; raw bytes; "-" for
  /// standard input.
  std::string m_path;
  std::optional<std::uint64_t> m_size = {};  ///< in bytes; none where it could not be read
  /// Of all its bytes, 64 lower-case hexadecimal digits; empty where it could not be read.
  std::string m_sha256 = {};
  std::optional<Format> m_format = {};  ///< none where it is neither, or could not be read
};

}  // namespace qvToolkit
