#pragma once

#include <cstdint>
#include <string>

namespace qvToolkit {

/// A file that was written.
/// @code
/// OutputFile const file{"bracket.view-0000.svg", 1200, std::string(64, '0')};
/// assert(file.m_size == 1200);
/// @endcode
struct OutputFile {
  std::string m_name;        ///< relative to the folder of all results, raw bytes
  std::uint64_t m_size = 0;  ///< in bytes
  std::string m_sha256;      ///< of all its bytes, 64 hexadecimal digits; empty where nobody has asked
};

}  // namespace qvToolkit
