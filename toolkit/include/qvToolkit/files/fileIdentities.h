#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

struct stat;

namespace qvToolkit {

/// Files as the system knows them, whatever paths and links lead to them: those that paths lead to at the
/// time of construction. Each is asked for once, so that many inputs may be kept from being replaced by the
/// results of each of them.
class FileIdentities {
 public:
  FileIdentities() = default;
  /// Paths that lead nowhere count for nothing.
  explicit FileIdentities(std::vector<std::string> const& paths);

  bool contains(struct stat const& file) const;

 private:
  std::vector<std::pair<std::uint64_t, std::uint64_t>> m_files;  ///< device and inode, sorted
};

}  // namespace qvToolkit
