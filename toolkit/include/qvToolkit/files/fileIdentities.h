#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "qvToolkit/export.h"

struct stat;

namespace qvToolkit {

/// Files as the system knows them, whatever paths and links lead to them: those that paths lead to at the
/// time of construction.
/// @code
/// FileIdentities const inputs({"bracket.json"});
/// OutputSet files(".", /*force*/ true);
/// files.protect(inputs);
/// assert(!files.open("bracket.json"));
/// @endcode
/// Each is asked for once, so that many inputs may be kept from being replaced by the results of each of
/// them. Holds no file open.
class QVT_EXPORT FileIdentities {
 public:
  FileIdentities() = default;  ///< of no file
  /// Paths that lead nowhere count for nothing.
  explicit FileIdentities(std::vector<std::string> const& paths);

  /// Whether `file`, as `stat` fills it in, is one of them. Takes the logarithm of their number.
  bool contains(struct stat const& file) const;

 private:
  std::vector<std::pair<std::uint64_t, std::uint64_t>> m_files;  ///< device and inode, sorted
};

}  // namespace qvToolkit
