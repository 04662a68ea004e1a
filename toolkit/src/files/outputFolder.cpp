#include "files/outputFolder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#include "files/stagedFiles.h"
#include "files/wholeIo.h"
#include "text/sha256.h"

namespace qvToolkit {

namespace {

mode_t getFileMode() {
  mode_t const mask = umask(0);
  umask(mask);
  return static_cast<mode_t>(0666) & ~mask;
}

/// Names may come from a process that a document took over: they lead to no other folder.
bool isPlainName(std::string const& name) {
  return !name.empty() && name != "." && name != ".." && name.find('/') == std::string::npos &&
         name.find('\0') == std::string::npos;
}

int synchronise(int file) {
  return repeatInterrupted([file] { return fsync(file); });
}

bool isRegular(int file) {
  struct stat status {};
  if (fstat(file, &status) != 0) return false;
  errno = EINVAL;
  return S_ISREG(status.st_mode);
}

/// Moves without replacing. Where the file system has no exclusive rename, a second name serves.
int moveExclusively(int from, int to, char const* name) {
  if (renameat2(from, name, to, name, RENAME_NOREPLACE) == 0) return 0;
  if (errno != EINVAL && errno != ENOSYS) return -1;
  if (linkat(from, name, to, name, 0) != 0) return -1;
  // From here on the file is there; the other name does no harm.
  unlinkat(from, name, 0);
  return 0;
}

}  // namespace

std::string OutputFolder::getPath(std::string const& name) const {
  return m_path.ends_with('/') ? m_path + name : m_path + '/' + name;
}

bool OutputFolder::open() {
  if (isOpen()) return true;
  std::error_code error;
  std::filesystem::create_directories(m_path, error);
  if (!error) m_folder = FileDescriptor(::open(m_path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (isOpen()) return true;
  return fail(makeFinding(FindingCode::OutputFailed,
                          "cannot use the output folder '" + m_path +
                              "': " + (error ? error.message() : std::generic_category().message(errno))));
}

bool OutputFolder::mayPlace(std::string const& name) {
  struct stat status {};
  if (fstatat(m_folder.get(), name.c_str(), &status, 0) != 0) {
    // A link that leads nowhere exists, too.
    if (fstatat(m_folder.get(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) return true;
  }
  if (m_protected != nullptr && m_protected->contains(status)) {
    return fail(
        makeFinding(FindingCode::OutputFailed,
                    "'" + m_path + "/" + name + "' is an input and is not replaced; name another folder"));
  }
  return m_force || failByExisting(name);
}

bool OutputFolder::place(int staging, std::vector<OutputFile>& files) {
  for (OutputFile& file : files) {
    if (!isPlainName(file.m_name)) return failWithError("create", file.m_name, EINVAL);
    if (!mayPlace(file.m_name) || !complete(staging, file)) return false;
  }
  for (std::size_t i = 0; i < files.size(); ++i) {
    if (rename(staging, files[i].m_name)) continue;
    takeBack(files, i);
    return false;
  }
  // Some file systems cannot synchronise folders.
  if (synchronise(m_folder.get()) == 0 || errno == EINVAL) return true;
  int const error = errno;
  takeBack(files, files.size());
  return failWithError("synchronise the folder of", ".", error);
}

bool OutputFolder::complete(int staging, OutputFile& file) {
  FileDescriptor opened(openat(staging, file.m_name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  if (!opened.isOpen() || !isRegular(opened.get())) return failWithError("write", file.m_name, errno);
  Sha256 hash;
  file.m_size = 0;
  bool const isRead = readPieces(opened.get(), [&](std::string_view piece) {
    hash.add(piece);
    file.m_size += piece.size();
    return true;
  });
  if (!isRead || fchmod(opened.get(), getFileMode()) != 0 || synchronise(opened.get()) != 0 ||
      !opened.reset())
    return failWithError("write", file.m_name, errno);
  file.m_sha256 = hash.takeText();
  return true;
}

bool OutputFolder::rename(int staging, std::string const& name) {
  int const result = m_force ? renameat(staging, name.c_str(), m_folder.get(), name.c_str())
                             : moveExclusively(staging, m_folder.get(), name.c_str());
  if (result == 0) return true;
  if (errno == EEXIST && !m_force) return failByExisting(name);
  return failWithError("create", name, errno);
}

/// Removes what already had its name, unless it stands where another file stood.
void OutputFolder::takeBack(std::vector<OutputFile> const& files, std::size_t count) const {
  if (m_force) return;
  for (std::size_t i = 0; i < count; ++i) unlinkat(m_folder.get(), files[i].m_name.c_str(), 0);
}

bool OutputFolder::fail(Finding problem) {
  m_problem = std::move(problem);
  return false;
}

bool OutputFolder::failByExisting(std::string const& name) {
  return fail(
      makeFinding(FindingCode::OutputExists, "'" + m_path + "/" + name + "' exists; it is not replaced"));
}

bool OutputFolder::failWithError(char const* action, std::string const& name, int error) {
  return fail(makeOutputFinding(action, m_path, name, error));
}

}  // namespace qvToolkit
