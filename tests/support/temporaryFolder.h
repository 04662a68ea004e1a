#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>

namespace qvTest {

/// All bytes of a file; empty when there is none.
inline std::string readFile(std::filesystem::path const& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// A folder of its own for one test; removed with all that it holds.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "qvannot-test-XXXXXX").string();
    m_path = ::mkdtemp(pattern.data());
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
  }
  TemporaryFolder(TemporaryFolder const&) = delete;
  TemporaryFolder& operator=(TemporaryFolder const&) = delete;

  /// Of the folder, or of what has that name in it.
  std::string getPath(std::string const& name = {}) const {
    return name.empty() ? m_path.string() : (m_path / name).string();
  }
  /// Writes a file, and the folders on the way to it. Returns its path.
  std::string writeFile(std::string const& name, std::string_view bytes) const {
    std::filesystem::create_directories((m_path / name).parent_path());
    std::ofstream(m_path / name, std::ios::binary) << bytes;
    return getPath(name);
  }
  std::size_t countEntries() const {
    std::filesystem::directory_iterator const entries(m_path);
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
  }

 private:
  std::filesystem::path m_path;
};

}  // namespace qvTest
