#include "files/spool.h"

#include <sys/stat.h>
#include <unistd.h>

#include "files/wholeIo.h"

namespace qvToolkit {

std::uint64_t Spool::getSize() const {
  struct stat status {};
  return fstat(m_file.get(), &status) == 0 ? static_cast<std::uint64_t>(status.st_size) : 0;
}

std::string Spool::read(std::uint64_t offset, std::uint64_t count) const {
  std::string bytes(static_cast<std::size_t>(count), '\0');
  std::size_t size = 0;
  while (size < bytes.size()) {
    auto const place = static_cast<off_t>(offset + size);
    ssize_t const got = repeatInterrupted(
        [&] { return pread(m_file.get(), bytes.data() + size, bytes.size() - size, place); });
    if (got <= 0) break;
    size += static_cast<std::size_t>(got);
  }
  bytes.resize(size);
  return bytes;
}

}  // namespace qvToolkit
