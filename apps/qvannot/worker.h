#pragma once

#include <sys/types.h>

#include <optional>
#include <string>

#include "qvToolkit/findings/exitCode.h"
#include "qvToolkit/findings/finding.h"
#include "qvToolkit/outcome/limits.h"
#include "spool.h"

namespace qvannot {

/// How a worker ended.
struct WorkerEnd {
  std::optional<qvToolkit::ExitCode> m_exitCode;  ///< what it said itself; none when it died before
  qvToolkit::Finding m_death;                     ///< of what it died
};

/// A process of its own for one input, so that whatever the input does to it the other inputs and what is
/// written for them stay whole.
///
/// The process is a fork of the tool, which has read no document: nothing has to be started or set up again,
/// and it holds nothing of other inputs. It is limited in memory, processor time, size of files and number of
/// open files, leaves no core file, gains no privileges and ends with the tool. What it prints goes to
/// spools.
class Worker {
 public:
  /// Forks. `path` is the input; only for "-" the worker gets standard input.
  Worker(std::string const& path, qvToolkit::Limits const& limits);
  ~Worker();
  Worker(Worker const&) = delete;
  Worker& operator=(Worker const&) = delete;

  /// True in the new process.
  bool isHere() const noexcept { return m_process == 0; }
  /// Waits for the end, but no longer than the worker may live: then it is killed. Passes on the signal that
  /// interrupts the tool.
  WorkerEnd wait();

  pid_t getProcess() const noexcept { return m_process; }
  Spool const& getOutput() const noexcept { return m_output; }
  Spool const& getErrors() const noexcept { return m_errors; }

 private:
  void become(std::string const& path, int result);
  bool waitForExit() const;
  std::optional<int> readResult() const;

  qvToolkit::Limits const& m_limits;
  Spool m_output;
  Spool m_errors;
  pid_t m_parent;
  pid_t m_process = -1;
  int m_problem = 0;
  int m_result = -1;
};

/// True in a worker.
bool isWorker() noexcept;
/// Limits the address space of a worker to what it has now and `bytes` more; in the tool itself, nothing.
void limitWorkerMemory(std::uint64_t bytes) noexcept;
/// In a worker, tells the tool the exit code; to be the last thing that it does.
void concludeWorker(int exitCode) noexcept;

}  // namespace qvannot
