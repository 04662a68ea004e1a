#include "qvToolkit/files/fileIdentities.h"

#include <sys/stat.h>

#include <algorithm>

namespace qvToolkit {

FileIdentities::FileIdentities(std::vector<std::string> const& paths) {
  for (std::string const& path : paths) {
    struct stat status {};
    if (stat(path.c_str(), &status) == 0) m_files.emplace_back(status.st_dev, status.st_ino);
  }
  std::ranges::sort(m_files);
}

bool FileIdentities::contains(struct stat const& file) const {
  return std::ranges::binary_search(m_files,
                                    std::pair<std::uint64_t, std::uint64_t>(file.st_dev, file.st_ino));
}

}  // namespace qvToolkit
