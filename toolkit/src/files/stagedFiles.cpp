#include "files/stagedFiles.h"

#include <fcntl.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "files/wholeIo.h"

namespace qvToolkit {

Finding makeOutputFinding(char const* action, std::string const& place, std::string const& name, int error) {
  return makeFinding(FindingCode::OutputFailed, std::string("cannot ") + action + " '" + place + "/" + name +
                                                    "': " + std::generic_category().message(error));
}

void StagedFiles::limit(std::uint64_t allBytes, std::uint64_t fileBytes) {
  m_maxAllBytes = allBytes;
  m_maxFileBytes = fileBytes;
}

bool StagedFiles::open(std::string const& name) {
  if (!end()) return false;
  m_names.push_back(name);
  m_fileBytes = 0;
  m_file = FileDescriptor(
      openat(m_folder, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
  return m_file.isOpen() || failWithError("create", errno);
}

bool StagedFiles::write(std::string_view bytes) {
  if (m_hasFailed) return false;
  m_fileBytes += bytes.size();
  if (m_fileBytes > m_maxFileBytes) {
    refuse("'" + m_place + "/" + m_names.back() + "' is", m_maxFileBytes);
    m_problem.m_options = {OptionKey::MaxOutputFile};
    return false;
  }
  m_allBytes += bytes.size();
  if (m_allBytes > m_maxAllBytes) return refuse("the results are", m_maxAllBytes);
  return writeAll(m_file.get(), bytes) || failWithError("write", errno);
}

bool StagedFiles::end() {
  if (m_hasFailed) return false;
  return m_file.reset() || failWithError("write", errno);
}

bool StagedFiles::fail(Finding problem) {
  m_hasFailed = true;
  m_problem = std::move(problem);
  return false;
}

bool StagedFiles::failWithError(char const* action, int error) {
  return fail(makeOutputFinding(action, m_place, m_names.back(), error));
}

bool StagedFiles::refuse(std::string const& what, std::uint64_t limit) {
  return fail(makeFinding(
      FindingCode::LimitOutput,
      what + " larger than the limit of " + std::to_string(limit) + " bytes; nothing is written"));
}

}  // namespace qvToolkit
