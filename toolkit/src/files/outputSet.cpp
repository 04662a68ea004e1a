#include "qvToolkit/files/outputSet.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "files/temporaryName.h"
#include "files/wholeIo.h"

namespace qvToolkit {

namespace {

/// Names of an earlier process of the same number may be in the way.
constexpr std::size_t MaxTemporaryNames = 1000;

mode_t getFileMode() {
  mode_t const mask = umask(0);
  umask(mask);
  return static_cast<mode_t>(0666) & ~mask;
}

bool closeFile(int& file) {
  int const closed = file;
  file = -1;
  return closed < 0 || ::close(closed) == 0;
}

std::string makeTemporaryName(std::size_t number) {
  return makeTemporaryPrefix(getpid()) + std::to_string(number) + ".tmp";
}

int synchronise(int file) {
  return repeatInterrupted([file] { return fsync(file); });
}

/// Moves without replacing. Where the file system has no exclusive rename, a second name serves.
int moveExclusively(int folder, char const* from, char const* to) {
  if (renameat2(folder, from, folder, to, RENAME_NOREPLACE) == 0) return 0;
  if (errno != EINVAL && errno != ENOSYS) return -1;
  if (linkat(folder, from, folder, to, 0) != 0) return -1;
  // From here on the file is there; the other name does no harm.
  unlinkat(folder, from, 0);
  return 0;
}

}  // namespace

OutputSet::OutputSet(std::string folder, bool force, volatile int const* interrupted)
    : m_folderPath(std::move(folder)), m_force(force), m_interrupted(interrupted) {
}

OutputSet::~OutputSet() {
  closeFile(m_file);
  for (File const& file : m_files) {
    if (!file.m_temporaryName.empty()) unlinkat(m_folder, file.m_temporaryName.c_str(), 0);
  }
  closeFile(m_folder);
}

void OutputSet::limit(std::uint64_t allBytes, std::uint64_t fileBytes) {
  m_maxAllBytes = allBytes;
  m_maxFileBytes = fileBytes;
}

bool OutputSet::open(std::string const& name) {
  return !m_hasFailed && endFile() && openFolder() && mayCreate(name) && openTemporary(name);
}

bool OutputSet::write(std::string_view bytes) {
  if (m_hasFailed) return false;
  if (m_interrupted != nullptr && *m_interrupted != 0) {
    return fail(FindingCode::OutputFailed, "interrupted before all of it was written");
  }
  if (!admit(bytes.size())) return false;
  return writeAll(m_file, bytes) || failWithError("write", m_files.back().m_name, errno);
}

bool OutputSet::admit(std::uint64_t bytes) {
  m_allBytes += bytes;
  m_fileBytes += bytes;
  bool const isFileTooLarge = m_fileBytes > m_maxFileBytes;
  if (!isFileTooLarge && m_allBytes <= m_maxAllBytes) return true;
  std::uint64_t const limit = isFileTooLarge ? m_maxFileBytes : m_maxAllBytes;
  std::string const what =
      isFileTooLarge ? "'" + m_folderPath + "/" + m_files.back().m_name + "' is" : "the results are";
  fail(FindingCode::LimitOutput,
       what + " larger than the limit of " + std::to_string(limit) + " bytes; nothing is written");
  if (isFileTooLarge) m_problem.m_options = {OptionKey::MaxOutputFile};
  return false;
}

bool OutputSet::commit() {
  if (m_hasFailed || !endFile() || !write({})) return false;
  for (File& file : m_files) {
    if (giveName(file)) continue;
    takeBack();
    return false;
  }
  // Some file systems cannot synchronise folders.
  if (m_folder < 0 || synchronise(m_folder) == 0 || errno == EINVAL) return true;
  int const error = errno;
  takeBack();
  return failWithError("synchronise the folder of", ".", error);
}

std::vector<std::string> OutputSet::getPaths() const {
  std::vector<std::string> paths;
  std::string const prefix = m_folderPath.ends_with('/') ? m_folderPath : m_folderPath + '/';
  for (File const& file : m_files) paths.push_back(prefix + file.m_name);
  return paths;
}

bool OutputSet::fail(FindingCode code, std::string text) {
  m_hasFailed = true;
  m_problem = makeFinding(code, std::move(text));
  return false;
}

bool OutputSet::failWithError(std::string const& action, std::string const& name, int error) {
  return fail(FindingCode::OutputFailed, "cannot " + action + " '" + m_folderPath + "/" + name +
                                             "': " + std::generic_category().message(error));
}

bool OutputSet::openFolder() {
  if (m_folder >= 0) return true;
  std::error_code error;
  std::filesystem::create_directories(m_folderPath, error);
  if (!error) m_folder = ::open(m_folderPath.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (m_folder >= 0) return true;
  return fail(FindingCode::OutputFailed,
              "cannot use the output folder '" + m_folderPath +
                  "': " + (error ? error.message() : std::generic_category().message(errno)));
}

bool OutputSet::mayCreate(std::string const& name) {
  struct stat status {};
  if (fstatat(m_folder, name.c_str(), &status, 0) != 0) {
    // A link that leads nowhere exists, too.
    if (fstatat(m_folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) return true;
  }
  std::string const path = m_folderPath + "/" + name;
  if (m_protected != nullptr && m_protected->contains(status)) {
    return fail(FindingCode::OutputFailed,
                "'" + path + "' is an input and is not replaced; name another folder");
  }
  return m_force || fail(FindingCode::OutputExists, "'" + path + "' exists; it is not replaced");
}

bool OutputSet::openTemporary(std::string const& name) {
  for (std::size_t attempt = 0; attempt < MaxTemporaryNames; ++attempt) {
    std::string temporary = makeTemporaryName(m_files.size() + attempt);
    m_file = openat(m_folder, temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (m_file < 0 && errno == EEXIST) continue;
    if (m_file < 0) break;
    m_files.push_back({name, std::move(temporary)});
    m_fileBytes = 0;
    return true;
  }
  return failWithError("create", name, errno);
}

bool OutputSet::endFile() {
  if (m_file < 0) return true;
  std::string const& name = m_files.back().m_name;
  if (fchmod(m_file, getFileMode()) != 0 || synchronise(m_file) != 0)
    return failWithError("write", name, errno);
  return closeFile(m_file) || failWithError("write", name, errno);
}

bool OutputSet::giveName(File& file) {
  if (!place(file)) return false;
  file.m_temporaryName.clear();
  return true;
}

bool OutputSet::place(File const& file) {
  char const* const from = file.m_temporaryName.c_str();
  char const* const to = file.m_name.c_str();
  int const result = m_force ? renameat(m_folder, from, m_folder, to) : moveExclusively(m_folder, from, to);
  if (result == 0) return true;
  if (errno == EEXIST && !m_force) {
    return fail(FindingCode::OutputExists,
                "'" + m_folderPath + "/" + file.m_name + "' exists; it is not replaced");
  }
  return failWithError("create", file.m_name, errno);
}

/// Removes what already had its name, unless it stands where another file stood.
void OutputSet::takeBack() {
  if (m_force) return;
  for (File const& file : m_files) {
    if (file.m_temporaryName.empty()) unlinkat(m_folder, file.m_name.c_str(), 0);
  }
}

void removeTemporaryFiles(std::string const& folder, int process) {
  std::string const prefix = makeTemporaryPrefix(process);
  std::vector<std::filesystem::path> found;
  std::error_code error;
  std::filesystem::directory_iterator entry(folder, error);
  for (std::filesystem::directory_iterator const end; !error && entry != end; entry.increment(error)) {
    if (entry->path().filename().native().starts_with(prefix)) found.push_back(entry->path());
  }
  for (std::filesystem::path const& path : found) std::filesystem::remove(path, error);
}

}  // namespace qvToolkit
