#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "files/fileDescriptor.h"
#include "qvToolkit/files/outputSink.h"
#include "qvToolkit/findings/finding.h"

namespace qvToolkit {

/// The files of one document while they are written, in a staging folder: under the names that they will
/// have, not synchronised, and seen by nobody. After the first problem every call answers false.
class StagedFiles : public OutputSink {
 public:
  /// `place` is where messages say that the files are: the folder that they will stand in.
  explicit StagedFiles(std::string place) : m_place(std::move(place)) {}

  /// The staging folder, which is not owned; to be set before the first file is opened.
  void setFolder(int folder) { m_folder = folder; }
  /// As of `OutputSet::limit`.
  void limit(std::uint64_t allBytes, std::uint64_t fileBytes);

  /// Begins the next file, ending the one before; `name` is a plain file name, and none that was opened.
  [[nodiscard]] bool open(std::string const& name);
  [[nodiscard]] bool write(std::string_view bytes) override;
  /// Ends the last file.
  [[nodiscard]] bool end();

  bool hasFailed() const noexcept { return m_hasFailed; }
  Finding const& getProblem() const noexcept { return m_problem; }
  std::vector<std::string> const& getNames() const noexcept { return m_names; }  ///< in the order of `open`

 private:
  bool fail(Finding problem);
  bool failWithError(char const* action, int error);
  bool refuse(std::string const& what, std::uint64_t limit);

  std::string m_place;
  int m_folder = -1;
  FileDescriptor m_file;
  std::vector<std::string> m_names;
  std::uint64_t m_maxAllBytes = std::numeric_limits<std::uint64_t>::max();
  std::uint64_t m_maxFileBytes = m_maxAllBytes;
  std::uint64_t m_allBytes = 0;
  std::uint64_t m_fileBytes = 0;  ///< of the file that is open
  bool m_hasFailed = false;
  Finding m_problem;
};

/// What is to be said when the system refuses something with a file: "cannot ACTION 'PLACE/NAME': ...".
Finding makeOutputFinding(char const* action, std::string const& place, std::string const& name, int error);

}  // namespace qvToolkit
