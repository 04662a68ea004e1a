#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/temporaryFolder.h"

namespace qvTest {

/// False where the sanitizer's own memory would be measured.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool MeasuresMemory = false;
#else
constexpr bool MeasuresMemory = true;
#endif

/// What one run of the tool left.
struct ToolRun {
  int m_exitCode = -1;  ///< -1 when a signal ended it
  std::string m_output;
  std::string m_errors;
  std::uint64_t m_peakMiB = 0;  ///< the most memory that was resident in one of its processes
  double m_seconds = 0;         ///< of processor time
};

/// How the tool is run.
struct ToolSetting {
  std::map<std::string, std::string> m_environment;
  std::string m_input;               ///< for standard input
  std::string m_standardInput;       ///< a file for standard input instead of `m_input`, such as a pipe
  std::string m_standardOutput;      ///< a file for standard output instead of a pipe, such as /dev/full
  std::uint64_t m_maxMemoryMiB = 0;  ///< 0: no limit
  std::vector<int> m_closedStreams;  ///< of 0 to 2
  std::vector<int> m_ignoredSignals;
  std::optional<long> m_missingCall;  ///< a system call that older systems and sandboxes do not have
};

ToolRun runTool(std::vector<std::string> const& arguments, ToolSetting const& setting = {});

/// A folder of its own for one test, with documents in it.
class Workplace {
 public:
  std::string getPath(std::string const& name) const { return m_folder.getPath(name); }
  /// Writes a file and returns its path.
  std::string write(std::string const& name, std::string_view bytes) const {
    return m_folder.writeFile(name, bytes);
  }
  std::string read(std::string const& name) const { return readFile(getPath(name)); }
  std::vector<std::string> list(std::string const& folder) const;

 private:
  TemporaryFolder m_folder;
};

/// A document of one view with one text annotation in a font that is installed; `extra` are further members
/// of the annotation, each with a comma behind it.
std::string makeDocument(std::string_view extra = {}, std::string_view viewMetadata = "{}");

}  // namespace qvTest
