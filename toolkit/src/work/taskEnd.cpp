#include "work/taskEnd.h"

#include <string.h>
#include <sys/wait.h>

#include <csignal>
#include <system_error>
#include <utility>

#include "outcome/jsonFields.h"
#include "qvToolkit/json/jsonWriter.h"
#include "work/frameFields.h"
#include "work/taskProcess.h"

namespace qvToolkit {

namespace {

/// It could not even say so in its result.
Finding describeMemory() {
  return makeFinding(FindingCode::LimitMemory,
                     "the work on it needs more memory than its limit leaves; nothing of it is written");
}

Finding describeSignal(int signal, Limits const& limits) {
  if (signal == SIGXCPU) {
    return makeFinding(FindingCode::LimitTime, "the work on it took more than the limit of " +
                                                   std::to_string(limits.get(Limit::Time)) +
                                                   " seconds of processor time; nothing of it is written");
  }
  if (signal == SIGKILL) {
    return makeFinding(
        FindingCode::WorkerKilled,
        "the process that worked on it was killed, for want of memory or by an operator; nothing "
        "of it is written");
  }
  return makeFinding(FindingCode::WorkerCrashed, "the process that worked on it crashed by signal " +
                                                     std::to_string(signal) + " (" + strsignal(signal) +
                                                     "); nothing of it is written; please report it");
}

}  // namespace

std::string formatTaskEnd(TaskEnd const& end) {
  JsonWriter json;
  json.beginObject().member("task", end.m_task).member("status", end.m_status);
  json.member("overdue", end.m_isOverdue).member("problem", end.m_problem).member("process", end.m_process);
  json.member("processorSeconds", end.m_processorSeconds).member("peakMemory", end.m_peakMemory).endObject();
  return json.takeText();
}

std::optional<TaskEnd> parseTaskEnd(std::string text) {
  std::string problem;
  TaskEnd end;
  readFields(std::move(text), problem, [&end](JsonFields& fields) {
    std::int64_t status = 0;
    std::int64_t error = 0;
    fields.read("task", end.m_task);
    fields.read("status", status);
    fields.read("overdue", end.m_isOverdue);
    fields.read("problem", error);
    fields.read("process", end.m_process);
    fields.read("processorSeconds", end.m_processorSeconds);
    fields.read("peakMemory", end.m_peakMemory);
    end.m_status = static_cast<int>(status);
    end.m_problem = static_cast<int>(error);
  });
  return problem.empty() ? std::optional(end) : std::nullopt;
}

std::optional<Finding> findDeath(TaskEnd const& end, Limits const& limits, bool isWhole) {
  if (end.m_problem != 0) {
    return makeFinding(FindingCode::WorkerKilled,
                       "no process can be started for it: " + std::generic_category().message(end.m_problem));
  }
  if (end.m_isOverdue) {
    return makeFinding(FindingCode::LimitTime, "the work on it took longer than the limit of " +
                                                   std::to_string(getClockSeconds(limits.get(Limit::Time))) +
                                                   " seconds by the clock; nothing of it is written");
  }
  if (WIFSIGNALED(end.m_status)) return describeSignal(WTERMSIG(end.m_status), limits);
  if (WEXITSTATUS(end.m_status) == ExitDone && isWhole) return std::nullopt;
  if (WEXITSTATUS(end.m_status) == ExitLimit) return describeMemory();
  return makeFinding(FindingCode::WorkerGarbage, "the process that worked on it ended with code " +
                                                     std::to_string(WEXITSTATUS(end.m_status)) +
                                                     " without a proper result; nothing of it is shown; "
                                                     "please report it");
}

}  // namespace qvToolkit
