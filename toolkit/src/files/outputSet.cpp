#include "qvToolkit/files/outputSet.h"

#include <fcntl.h>

#include <cerrno>
#include <utility>

#include "files/outputFolder.h"
#include "files/stagedFiles.h"
#include "files/stagingFolder.h"

namespace qvToolkit {

/// Where the files are written, and where they will stand.
class OutputSet::Parts {
 public:
  Parts(std::string folder, bool force) : m_folder(folder, force), m_staged(std::move(folder)) {}

  /// Makes both folders, once.
  bool prepare(Finding& problem) {
    if (m_staging.isMade()) return true;
    if (!m_folder.open()) {
      problem = m_folder.getProblem();
    } else if (!m_staging.make(m_folder.get())) {
      problem = makeOutputFinding("write to", m_folder.getPath(), ".", errno);
    }
    m_staged.setFolder(m_staging.get());
    return m_staging.isMade();
  }

  OutputFolder m_folder;
  StagingFolder m_staging;
  StagedFiles m_staged;
  std::vector<OutputFile> m_files;
};

OutputSet::OutputSet(std::string folder, bool force, volatile int const* interrupted)
    : m_parts(std::make_unique<Parts>(std::move(folder), force)), m_interrupted(interrupted) {
}

OutputSet::~OutputSet() = default;

void OutputSet::limit(std::uint64_t allBytes, std::uint64_t fileBytes) {
  m_parts->m_staged.limit(allBytes, fileBytes);
}

void OutputSet::protect(FileIdentities const& files) {
  m_parts->m_folder.protect(files);
}

bool OutputSet::open(std::string const& name) {
  if (m_hasFailed) return false;
  Finding problem;
  if (!m_parts->prepare(problem)) return fail(std::move(problem));
  if (!m_parts->m_folder.mayPlace(name)) return fail(m_parts->m_folder.getProblem());
  m_parts->m_files.push_back({name, 0, {}});
  return m_parts->m_staged.open(name) || fail(m_parts->m_staged.getProblem());
}

bool OutputSet::write(std::string_view bytes) {
  if (m_hasFailed || isInterrupted()) return false;
  return m_parts->m_staged.write(bytes) || fail(m_parts->m_staged.getProblem());
}

bool OutputSet::commit() {
  if (m_hasFailed || isInterrupted()) return false;
  if (m_parts->m_files.empty()) return true;
  if (!m_parts->m_staged.end()) return fail(m_parts->m_staged.getProblem());
  if (!m_parts->m_folder.place(m_parts->m_staging.get(), m_parts->m_files))
    return fail(m_parts->m_folder.getProblem());
  m_parts->m_staging.remove();
  return true;
}

std::vector<std::string> OutputSet::getPaths() const {
  std::vector<std::string> paths;
  for (OutputFile const& file : m_parts->m_files) paths.push_back(m_parts->m_folder.getPath(file.m_name));
  return paths;
}

std::vector<OutputFile> const& OutputSet::getFiles() const noexcept {
  return m_parts->m_files;
}

bool OutputSet::isInterrupted() {
  if (m_interrupted == nullptr || *m_interrupted == 0) return false;
  return !fail(makeFinding(FindingCode::OutputFailed, "interrupted before all of it was written"));
}

bool OutputSet::fail(Finding problem) {
  m_hasFailed = true;
  m_problem = std::move(problem);
  return false;
}

void removeAbandonedOutputs(std::string const& folder) {
  FileDescriptor const opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (opened.isOpen()) removeAbandoned(opened.get());
}

}  // namespace qvToolkit
