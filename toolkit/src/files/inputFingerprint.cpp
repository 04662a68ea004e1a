#include "files/inputFingerprint.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string_view>

#include "files/fileDescriptor.h"
#include "files/wholeIo.h"
#include "text/contentHash.h"

namespace qvToolkit {

std::optional<InputFingerprint> takeFingerprint(std::string const& path, std::uint64_t maxBytes) {
  // Not blocking: opening a pipe that nobody writes to would wait for ever.
  FileDescriptor const file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
  struct stat status {};
  if (path == "-" || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
  InputFingerprint print;
  ContentHash hash;
  bool const isRead = readPieces(file.get(), [&](std::string_view piece) {
    hash.add(piece);
    print.m_size += piece.size();
    return print.m_size <= maxBytes;
  });
  if (!isRead || print.m_size > maxBytes) return std::nullopt;
  print.m_hash = hash.getText();
  return print;
}

}  // namespace qvToolkit
