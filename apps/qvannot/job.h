#pragma once

#include <sys/types.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "qvToolkit/model/document.h"
#include "qvToolkit/outcome/limits.h"
#include "reporter.h"
#include "spool.h"

namespace qvannot {

/// The work on one input of a command.
struct Job {
  std::string const& m_path;
  qvToolkit::Limits const& m_limits;
  /// Runs in a worker, or here when the limits are lifted. Memory that runs out is reported for it.
  std::function<void()> m_work;
  /// Takes what a worker printed that came to its end; without it, that is printed as it is.
  std::function<void(Spool const&, qvToolkit::ExitCode)> m_relay;
  /// Follows a worker that died; gets its process and why.
  std::function<void(pid_t, qvToolkit::Finding const&)> m_afterDeath;
  /// It has results beside what it prints.
  bool m_writesFiles = false;
};

/// Does the work and reports how it went. False in the worker itself: there all is done then.
[[nodiscard]] bool run(Job const& job, Reporter& reporter, Progress const& progress);

/// Does the jobs of several inputs in order, until the tool is interrupted. Once standard output takes no
/// more, only jobs that write files are done. False in a worker.
[[nodiscard]] bool runAll(std::vector<std::string> const& paths,
                          std::function<Job(std::size_t)> const& makeJob, Reporter& reporter);

/// Opens an input under the limits, and has the budgets of memory and output follow from its size.
qvToolkit::Document openInput(std::string const& path, qvToolkit::Limits const& limits, Reporter& reporter);
/// Sets these budgets.
void setBudgets(std::uint64_t inputBytes, qvToolkit::Limits const& limits, Reporter& reporter);

}  // namespace qvannot
