#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "toolkit/exitCode.h"
#include "toolkit/finding.h"

namespace qvToolkit {

/// The bytes of an input, or the reason why there are none.
struct InputFile {
  std::string m_bytes;
  std::optional<Finding> m_problem;
  ExitCode m_failure = ExitDone;
};

/// Reads a regular file, or standard input for "-", into memory. Never mapped, since a file may shrink while
/// it is read. Directories, pipes, sockets and devices are refused without waiting on them; so is what holds
/// more than `maxBytes`. Throws `std::bad_alloc` only.
InputFile readInputFile(std::string const& path, std::uint64_t maxBytes);

}  // namespace qvToolkit
