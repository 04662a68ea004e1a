#pragma once

#include <functional>

#include "qvToolkit/export.h"
#include "qvToolkit/outcome/limits.h"
#include "qvToolkit/work/session.h"
#include "qvToolkit/work/steps.h"

namespace qvToolkit {

/// What a program that works on inputs brings along; each may be empty.
struct ProgramHooks {
  /// What it knows of its memory, for work under these limits.
  std::function<MemoryHooks(Limits const&)> m_makeMemory = nullptr;
  OptionSpelling m_spelling = nullptr;  ///< of options in findings that are part of a result
  LogSink m_log = nullptr;  ///< takes records of the libraries, which count as messages of an input
};

/// Serves one client, which has the other end of the connected local socket `channel`, until it goes away:
/// takes a request, loads library and fonts once, then forks once for each input that it is given, and tells
/// how each of these processes ended. docs/worker-protocol.md describes what passes through the channel.
/// Returns the exit code for the process, which may do nothing else meanwhile and has one thread: `ExitDone`
/// when the client went away, `ExitUsage` when it was told why it was refused.
/// @code
/// std::array<int, 2> ends{};
/// assert(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) == 0);
/// ::close(ends[0]);  // the client is gone at once
/// assert(serveClient(ends[1], ProgramHooks{}) == ExitDone);
/// @endcode
/// The process of an input opens nothing by a name from outside but images beneath their folder: the input
/// comes as a descriptor, its results go into files of the client. It is limited in memory, processor time,
/// size of files and number of open files, gains no privileges and ends with this process, which kills it
/// when its time is over or the client is gone. The channel stays the caller's. Throws `std::bad_alloc`, and
/// what the session's begin throws; no process is left then either.
QVT_EXPORT int serveClient(int channel, ProgramHooks const& hooks);

/// The session for work on a request, as a program has it.
QVT_EXPORT SessionOptions makeSessionOptions(Request const& request, ProgramHooks const& hooks);
/// What the program knows of its memory under the limits of a request; empty where it counts none.
QVT_EXPORT MemoryHooks makeMemoryHooks(Request const& request, ProgramHooks const& hooks);

}  // namespace qvToolkit
