#include "qvToolkit/files/inputFingerprint.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>

#include "files/fileDescriptor.h"
#include "text/contentHash.h"

namespace qvToolkit {

std::optional<InputFingerprint> takeFingerprint(std::string const& path, std::uint64_t maxBytes) {
  // Not blocking: opening a pipe that nobody writes to would wait for ever.
  FileDescriptor const file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
  struct stat status {};
  if (path == "-" || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
  InputFingerprint print;
  ContentHash hash;
  std::array<char, 65536> piece;
  while (print.m_size <= maxBytes) {
    ssize_t const count = ::read(file.get(), piece.data(), piece.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return std::nullopt;
    if (count == 0) {
      print.m_hash = hash.getText();
      return print;
    }
    hash.add({piece.data(), static_cast<std::size_t>(count)});
    print.m_size += static_cast<std::uint64_t>(count);
  }
  return std::nullopt;
}

}  // namespace qvToolkit
