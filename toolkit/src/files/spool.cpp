#include "files/spool.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <system_error>

#include "files/wholeIo.h"

namespace qvToolkit {

namespace {

int openTemporary() {
  std::error_code error;
  std::filesystem::path const folder = std::filesystem::temp_directory_path(error);
  std::string path = (error ? std::filesystem::path("/tmp") : folder) / "qvannot-XXXXXX";
  int const file = mkostemp(path.data(), O_CLOEXEC);
  if (file >= 0) unlink(path.c_str());
  return file >= 0 ? file : memfd_create("qvannot", MFD_CLOEXEC);
}

}  // namespace

Spool::Spool() : m_file(openTemporary()) {
}

Spool::~Spool() {
  if (m_file >= 0) close(m_file);
}

std::uint64_t Spool::getSize() const {
  struct stat status {};
  return fstat(m_file, &status) == 0 ? static_cast<std::uint64_t>(status.st_size) : 0;
}

std::string Spool::read(std::uint64_t offset, std::uint64_t count) const {
  std::string bytes(static_cast<std::size_t>(count), '\0');
  std::size_t size = 0;
  while (size < bytes.size()) {
    auto const place = static_cast<off_t>(offset + size);
    ssize_t const got =
        repeatInterrupted([&] { return pread(m_file, bytes.data() + size, bytes.size() - size, place); });
    if (got <= 0) break;
    size += static_cast<std::size_t>(got);
  }
  bytes.resize(size);
  return bytes;
}

}  // namespace qvToolkit
