#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "qvToolkit/outcome/request.h"
#include "qvToolkit/work/workerProgram.h"
#include "work/taskEnd.h"
#include "work/taskOrder.h"

namespace qvToolkit {

/// Somebody who works on tasks.
class TaskRunner {
 public:
  virtual ~TaskRunner() = default;
  TaskRunner(TaskRunner const&) = delete;
  TaskRunner& operator=(TaskRunner const&) = delete;

  /// Hands over a task. Of the files of the order, those that are written stay the caller's.
  virtual void start(TaskOrder const& order) = 0;
  /// The end of some task that was started. Nothing when a signal came instead.
  virtual std::optional<TaskEnd> wait() = 0;

 protected:
  TaskRunner() = default;
};

/// By a worker program, started by its words, or by a fork of this process where there are none. `warms`
/// tells that several inputs are to come. A program that cannot be started, or dies, costs the inputs that it
/// worked on. `start` throws `std::runtime_error` with the program's reason when it refuses the request.
std::unique_ptr<TaskRunner> makeProgramRunner(Request const& request, std::vector<std::string> const& program,
                                              ProgramHooks const& hooks, bool warms);

/// In this process.
std::unique_ptr<TaskRunner> makeHereRunner(Request const& request, ProgramHooks const& hooks, bool warms);

}  // namespace qvToolkit
