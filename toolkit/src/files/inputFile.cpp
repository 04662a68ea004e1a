#include "files/inputFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <system_error>
#include <utility>

#include "files/wholeIo.h"

namespace qvToolkit {

namespace {

constexpr std::size_t ChunkSize = std::size_t{1} << 16;

Finding makeUnreadable(std::string text) {
  return makeFinding(FindingCode::InputUnreadable, std::move(text));
}

Finding makeUnreadable(char const* action, int error) {
  return makeUnreadable(std::string(action) + ": " + std::generic_category().message(error));
}

Finding makeTooLarge(std::uint64_t maxBytes) {
  return makeFinding(FindingCode::InputTooLarge,
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

/// Why what is open may not be read; nothing when it may.
std::optional<Finding> findProblem(int file, std::uint64_t maxBytes) {
  struct stat status {};
  if (::fstat(file, &status) != 0) return makeUnreadable("cannot read", errno);
  if (char const* const kind = findUnreadableKind(status.st_mode)) {
    return makeUnreadable(std::string("cannot read: it is ") + kind +
                          ", expected a regular file; give '-' to read standard input");
  }
  if (status.st_size > 0 && static_cast<std::uint64_t>(status.st_size) > maxBytes)
    return makeTooLarge(maxBytes);
  return {};
}

/// Standard input is closed where the process has no such descriptor, or one that is not for reading.
Finding makeReadProblem(int error) {
  if (error == EBADF) return makeUnreadable("cannot read: standard input is closed");
  return makeUnreadable("cannot read", error);
}

OpenedInput openStandardInput() {
  OpenedInput input{FileDescriptor(fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0)), {}};
  if (!input.m_file.isOpen()) input.m_problem = makeReadProblem(errno);
  return input;
}

/// What a regular file holds, as far as it is known.
std::uint64_t getExpectedBytes(int file) {
  struct stat status {};
  bool const isKnown = ::fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_size > 0;
  return isKnown ? static_cast<std::uint64_t>(status.st_size) : 0;
}

}  // namespace

OpenedInput openInputFile(std::string const& path, std::uint64_t maxBytes) {
  if (path == "-") return openStandardInput();
  if (path.find('\0') != std::string::npos)
    return {{}, makeUnreadable("cannot open: a zero character in the name")};
  // Not blocking: opening a pipe that nobody writes to would wait for ever.
  OpenedInput input{FileDescriptor(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY)), {}};
  if (input.m_file.isOpen()) {
    input.m_problem = findProblem(input.m_file.get(), maxBytes);
  } else {
    input.m_problem = makeUnreadable("cannot open", errno);
  }
  return input;
}

InputFile readInputFile(int descriptor, std::uint64_t maxBytes) {
  std::uint64_t const expected = std::min(getExpectedBytes(descriptor), maxBytes);
  InputFile input;
  std::string& bytes = input.m_bytes;
  bytes.reserve(static_cast<std::size_t>(expected) + ChunkSize + RoomBehindInput);
  for (;;) {
    std::size_t const size = bytes.size();
    bytes.resize(size + ChunkSize);
    ssize_t const count =
        repeatInterrupted([&] { return ::read(descriptor, bytes.data() + size, ChunkSize); });
    bytes.resize(size + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    if (count == 0) return input;
    if (count < 0) return {{}, makeReadProblem(errno)};
    if (bytes.size() > maxBytes) return {{}, makeTooLarge(maxBytes)};
  }
}

InputFile readInputFile(std::string const& path, std::uint64_t maxBytes) {
  OpenedInput opened = openInputFile(path, maxBytes);
  if (opened.m_problem.has_value()) return {{}, std::move(opened.m_problem)};
  return readInputFile(opened.m_file.get(), maxBytes);
}

}  // namespace qvToolkit
