#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "files/fileDescriptor.h"
#include "qvToolkit/findings/finding.h"

namespace qvToolkit {

/// The bytes of an input, or the reason why there are none.
struct InputFile {
  std::string m_bytes;
  std::optional<Finding> m_problem;
};

/// Room that is kept free behind the bytes, for parsers that read ahead.
constexpr std::size_t RoomBehindInput = 64;

/// An input that is open for reading, or the reason why it is not.
struct OpenedInput {
  FileDescriptor m_file;
  std::optional<Finding> m_problem;
};

/// Opens a regular file, or standard input for "-". Directories, pipes, sockets and devices are refused
/// without waiting on them; so is what holds more than `maxBytes`. Throws `std::bad_alloc` only.
OpenedInput openInputFile(std::string const& path, std::uint64_t maxBytes);

/// Reads what is open to its end, into memory. Never mapped, since a file may shrink while it is read. What
/// holds more than `maxBytes` is refused. Throws `std::bad_alloc` only.
InputFile readInputFile(int descriptor, std::uint64_t maxBytes);

/// Both in one.
InputFile readInputFile(std::string const& path, std::uint64_t maxBytes);

}  // namespace qvToolkit
