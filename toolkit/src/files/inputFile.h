#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "qvToolkit/findings/finding.h"

namespace qvToolkit {

/// The bytes of an input, or the reason why there are none.
struct InputFile {
  std::string m_bytes;
  std::optional<Finding> m_problem;
};

/// Room that is kept free behind the bytes, for parsers that read ahead.
constexpr std::size_t RoomBehindInput = 64;

/// Reads a regular file, or standard input for "-", into memory. Never mapped, since a file may shrink while
/// it is read. Directories, pipes, sockets and devices are refused without waiting on them; so is what holds
/// more than `maxBytes`. Throws `std::bad_alloc` only.
InputFile readInputFile(std::string const& path, std::uint64_t maxBytes);

}  // namespace qvToolkit
