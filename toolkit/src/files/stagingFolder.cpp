#include "files/stagingFolder.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <ctime>
#include <memory>
#include <string_view>
#include <vector>

#include "files/stagingOwner.h"

namespace qvToolkit {

namespace {

constexpr char const* LockName = "lock";
constexpr int FolderFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
constexpr std::time_t Day = std::time_t{24} * 60 * 60;

FileDescriptor openFolder(int parent, char const* name) {
  return FileDescriptor(openat(parent, name, FolderFlags));
}

std::vector<std::string> listNames(int folder) {
  std::vector<std::string> names;
  // The stream closes the descriptor that it is given, and moves its place.
  int const own = openat(folder, ".", FolderFlags);
  std::unique_ptr<DIR, int (*)(DIR*)> const stream(own < 0 ? nullptr : fdopendir(own), closedir);
  if (stream == nullptr) {
    if (own >= 0) close(own);
    return names;
  }
  while (dirent const* const entry = readdir(stream.get())) {
    std::string_view const name = entry->d_name;
    if (name != "." && name != "..") names.emplace_back(name);
  }
  return names;
}

/// A staging folder, and one level of folders in it: nobody makes more.
void removeTree(int parent, std::string const& name, int levels = 2) {
  if (unlinkat(parent, name.c_str(), 0) == 0 || levels == 0) return;
  if (FileDescriptor const folder = openFolder(parent, name.c_str()); folder.isOpen()) {
    for (std::string const& each : listNames(folder.get())) removeTree(folder.get(), each, levels - 1);
  }
  unlinkat(parent, name.c_str(), AT_REMOVEDIR);
}

bool isUntouched(int folder) {
  struct stat status {};
  return fstat(folder, &status) == 0 && status.st_mtim.tv_sec < std::time(nullptr) - Day;
}

/// Where there is no lock, its owner ended before it made one, or is about to: what its name tells counts.
bool isLocked(int folder) {
  FileDescriptor const lock(openat(folder, LockName, O_RDWR | O_NOFOLLOW | O_CLOEXEC));
  return lock.isOpen() && flock(lock.get(), LOCK_EX | LOCK_NB) != 0;
}

bool isAbandoned(int parent, std::string const& name) {
  auto const owner = parseStagingName(name);
  if (!owner.has_value()) return false;
  OwnerState const state = findOwnerState(*owner);
  if (state == OwnerState::Alive) return false;
  FileDescriptor const folder = openFolder(parent, name.c_str());
  if (!folder.isOpen() || (state == OwnerState::Unknown && !isUntouched(folder.get()))) return false;
  return !isLocked(folder.get());
}

}  // namespace

bool StagingFolder::make(int outputFolder) {
  static std::atomic<std::uint64_t> number = 0;
  m_name = makeStagingName(getStagingOwner(), number++);
  m_parent = openFolder(outputFolder, ".");
  if (!m_parent.isOpen() || mkdirat(m_parent.get(), m_name.c_str(), 0700) != 0) return false;
  m_folder = openFolder(m_parent.get(), m_name.c_str());
  m_lock = FileDescriptor(openat(m_folder.get(), LockName, O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
  if (!m_lock.isOpen()) {
    int const error = errno;
    remove();
    errno = error;
    return false;
  }
  // Some file systems lock nothing; then the name alone tells.
  static_cast<void>(flock(m_lock.get(), LOCK_EX | LOCK_NB));
  return true;
}

void StagingFolder::remove() {
  if (!m_parent.isOpen()) return;
  removeTree(m_parent.get(), m_name);
  m_lock.reset();
  m_folder.reset();
  m_parent.reset();
}

FileDescriptor StagingFolder::makePlace(std::string const& name) const {
  if (mkdirat(m_folder.get(), name.c_str(), 0700) != 0) return {};
  return openFolder(m_folder.get(), name.c_str());
}

void StagingFolder::removePlace(std::string const& name) const {
  removeTree(m_folder.get(), name, 1);
}

void removeAbandoned(int outputFolder) {
  for (std::string const& name : listNames(outputFolder)) {
    if (isAbandoned(outputFolder, name)) removeTree(outputFolder, name);
  }
}

}  // namespace qvToolkit
