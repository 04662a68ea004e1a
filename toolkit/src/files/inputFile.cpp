#include "files/inputFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <system_error>
#include <utility>

#include "files/fileDescriptor.h"
#include "files/wholeIo.h"

namespace qvToolkit {

namespace {

constexpr std::size_t ChunkSize = std::size_t{1} << 16;

InputFile fail(FindingCode code, std::string text) {
  InputFile input;
  input.m_problem = makeFinding(code, std::move(text));
  return input;
}

InputFile failToRead(std::string text) {
  return fail(FindingCode::InputUnreadable, std::move(text));
}

InputFile failByErrno(char const* action) {
  return failToRead(std::string(action) + ": " + std::generic_category().message(errno));
}

InputFile failBySize(std::uint64_t maxBytes) {
  return fail(FindingCode::InputTooLarge,
              "the input is larger than the limit of " + std::to_string(maxBytes) + " bytes");
}

/// What a path names when it is no regular file; null when it is one.
char const* findUnreadableKind(mode_t mode) {
  if (S_ISREG(mode)) return nullptr;
  if (S_ISDIR(mode)) return "a directory";
  if (S_ISFIFO(mode)) return "a pipe";
  if (S_ISSOCK(mode)) return "a socket";
  return "a device";
}

InputFile readAll(int descriptor, std::uint64_t expectedBytes, std::uint64_t maxBytes) {
  InputFile input;
  std::string& bytes = input.m_bytes;
  bytes.reserve(static_cast<std::size_t>(std::min(expectedBytes, maxBytes)) + ChunkSize + RoomBehindInput);
  for (;;) {
    std::size_t const size = bytes.size();
    bytes.resize(size + ChunkSize);
    ssize_t const count =
        repeatInterrupted([&] { return ::read(descriptor, bytes.data() + size, ChunkSize); });
    bytes.resize(size + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    if (count == 0) return input;
    bool const isClosed = descriptor == STDIN_FILENO && count < 0 && errno == EBADF;
    if (isClosed) return failToRead("cannot read: standard input is closed");
    if (count < 0) return failByErrno("cannot read");
    if (bytes.size() > maxBytes) return failBySize(maxBytes);
  }
}

}  // namespace

InputFile readInputFile(std::string const& path, std::uint64_t maxBytes) {
  if (path == "-") return readAll(STDIN_FILENO, 0, maxBytes);
  if (path.find('\0') != std::string::npos) return failToRead("cannot open: a zero character in the name");

  // Not blocking: opening a pipe that nobody writes to would wait for ever.
  FileDescriptor const file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
  if (!file.isOpen()) return failByErrno("cannot open");
  struct stat status {};
  if (::fstat(file.get(), &status) != 0) return failByErrno("cannot read");
  if (char const* const kind = findUnreadableKind(status.st_mode)) {
    return failToRead(std::string("cannot read: it is ") + kind +
                      ", expected a regular file; give '-' to read standard input");
  }
  auto const size = static_cast<std::uint64_t>(std::max<off_t>(status.st_size, 0));
  if (size > maxBytes) return failBySize(maxBytes);
  return readAll(file.get(), size, maxBytes);
}

}  // namespace qvToolkit
