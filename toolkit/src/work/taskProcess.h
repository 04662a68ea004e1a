#pragma once

#include <cstdint>

#include "qvToolkit/outcome/limits.h"

namespace qvToolkit {

/// Makes the new process of a task out of a fork. It is limited in processor time, size of files and number
/// of open files, leaves no core file, gains no privileges, ends with its parent, whose number is `parent`,
/// and has a group of its own, so that what it starts is killed along. What libraries print goes to the file
/// `errors`; `input` is the document, for which a process stays where it may read from a terminal.
void becomeTaskProcess(Limits const& limits, int input, int errors, int parent) noexcept;

/// Limits the address space and the data of this process to what it has now and `bytes` more; `Unlimited`
/// changes nothing.
void limitProcessMemory(std::uint64_t bytes) noexcept;

/// The time by the clock, in seconds, that goes with a limit of processor time.
std::uint64_t getClockSeconds(std::uint64_t processorSeconds) noexcept;

}  // namespace qvToolkit
