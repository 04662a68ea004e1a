#include <unistd.h>

#include <deque>

#include "qvToolkit/work/session.h"
#include "work/taskRunner.h"
#include "work/taskWork.h"

namespace qvToolkit {

namespace {

class HereRunner : public TaskRunner {
 public:
  HereRunner(Request const& request, ProgramHooks const& hooks)
      : m_request(request),
        m_memory(makeMemoryHooks(request, hooks)),
        m_session(makeSessionOptions(request, hooks)) {}

  void warm() { m_session.warm(); }

  void start(TaskOrder const& order) override {
    TaskEnd end{.m_task = order.m_number, .m_process = getpid()};
    bool const isDone = workOnTask(m_session, m_request, order, m_memory);
    // As a process of its own would end.
    if (!isDone) end.m_status = ExitBug << 8;
    m_ends.push_back(end);
  }

  std::optional<TaskEnd> wait() override {
    if (m_ends.empty()) return std::nullopt;
    TaskEnd const end = m_ends.front();
    m_ends.pop_front();
    return end;
  }

 private:
  Request const& m_request;
  MemoryHooks m_memory;
  Session m_session;
  std::deque<TaskEnd> m_ends;
};

}  // namespace

std::unique_ptr<TaskRunner> makeHereRunner(Request const& request, ProgramHooks const& hooks, bool warms) {
  auto runner = std::make_unique<HereRunner>(request, hooks);
  if (warms && drawsText(request.m_action)) runner->warm();
  return runner;
}

}  // namespace qvToolkit
