#include "files/temporaryFile.h"

#include <fcntl.h>
#include <sys/mman.h>

#include <filesystem>
#include <system_error>

namespace qvToolkit {

FileDescriptor openTemporaryFile() {
  std::error_code error;
  std::filesystem::path const folder = std::filesystem::temp_directory_path(error);
  FileDescriptor file(open(error ? "/tmp" : folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600));
  return file.isOpen() ? std::move(file) : openMemoryFile();
}

FileDescriptor openMemoryFile() {
  FileDescriptor file(memfd_create("qvannot", MFD_CLOEXEC));
  if (!file.isOpen() || file.get() > STDERR_FILENO) return file;
  return FileDescriptor(fcntl(file.get(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
}

}  // namespace qvToolkit
