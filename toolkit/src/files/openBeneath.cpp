#include "files/openBeneath.h"

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>

namespace qvToolkit {

namespace {

constexpr int FileFlags = O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY;
constexpr int FolderFlags = O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_DIRECTORY;

/// Cuts the first part off the path; runs of slashes count as one.
std::string takePart(std::string_view& path) {
  std::size_t const end = path.find('/');
  std::string part(path.substr(0, end));
  std::size_t const next = path.find_first_not_of('/', part.size());
  path = next == std::string_view::npos ? std::string_view() : path.substr(next);
  return part;
}

}  // namespace

int openBeneathStepwise(int folder, std::string const& path) {
  std::string_view rest = path;
  int current = folder;
  while (true) {
    std::string const part = takePart(rest);
    int const next = openat(current, part.c_str(), rest.empty() ? FileFlags : FolderFlags);
    int const error = errno;
    if (current != folder) close(current);
    errno = error;
    if (next < 0 || rest.empty()) return next;
    current = next;
  }
}

int openBeneath(int folder, std::string const& path) {
  open_how how{};
  how.flags = static_cast<decltype(how.flags)>(FileFlags);
  how.resolve = RESOLVE_BENEATH | RESOLVE_NO_SYMLINKS | RESOLVE_NO_MAGICLINKS;
  auto const file = static_cast<int>(syscall(SYS_openat2, folder, path.c_str(), &how, sizeof how));
  // A sandbox may forbid the call instead of not knowing it.
  if (file < 0 && (errno == ENOSYS || errno == EPERM)) return openBeneathStepwise(folder, path);
  return file;
}

}  // namespace qvToolkit
