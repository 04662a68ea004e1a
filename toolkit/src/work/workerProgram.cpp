#include "qvToolkit/work/workerProgram.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/signalfd.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <memory>
#include <new>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

#include "files/standardStreams.h"
#include "files/wholeIo.h"
#include "qvToolkit/outcome/outcomeJson.h"
#include "qvToolkit/work/session.h"
#include "work/frame.h"
#include "work/taskEnd.h"
#include "work/taskOrder.h"
#include "work/taskProcess.h"
#include "work/taskWork.h"

namespace qvToolkit {

namespace {

using Clock = std::chrono::steady_clock;

/// A process that works on an input.
struct RunningTask {
  std::uint64_t m_number = 0;
  pid_t m_process = -1;
  Clock::time_point m_deadline;
  bool m_isOverdue = false;
};

double toSeconds(timeval const& time) {
  constexpr double Microsecond = 1e-6;
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * Microsecond;
}

/// Signals that are read from a descriptor instead of interrupting.
class ChildSignal {
 public:
  ChildSignal() {
    sigemptyset(&m_signals);
    sigaddset(&m_signals, SIGCHLD);
    sigprocmask(SIG_BLOCK, &m_signals, &m_before);
    m_file = FileDescriptor(signalfd(-1, &m_signals, SFD_CLOEXEC | SFD_NONBLOCK));
    if (!m_file.isOpen()) throw std::system_error(errno, std::generic_category(), "no descriptor");
  }
  ~ChildSignal() { restore(); }
  ChildSignal(ChildSignal const&) = delete;
  ChildSignal& operator=(ChildSignal const&) = delete;

  int get() const noexcept { return m_file.get(); }
  void restore() const noexcept { sigprocmask(SIG_SETMASK, &m_before, nullptr); }
  void forget() const noexcept {
    signalfd_siginfo information{};
    while (::read(m_file.get(), &information, sizeof information) > 0) continue;
  }

 private:
  sigset_t m_signals{};
  sigset_t m_before{};
  FileDescriptor m_file;
};

class WorkerProgram {
 public:
  WorkerProgram(int channel, ProgramHooks const& hooks) : m_channel(channel), m_hooks(hooks) {}
  ~WorkerProgram() { endAll(); }
  WorkerProgram(WorkerProgram const&) = delete;
  WorkerProgram& operator=(WorkerProgram const&) = delete;

  int run() {
    while (m_isServing) {
      std::array<pollfd, 2> events = {{{m_channel, POLLIN, 0}, {m_signal.get(), POLLIN, 0}}};
      poll(events.data(), events.size(), getTimeout());
      m_signal.forget();
      endOverdue();
      reap();
      if (events[0].revents != 0) m_isServing &= receive();
      while (m_isServing) {
        auto frame = m_reader.take();
        if (!frame.has_value()) break;
        m_isServing = answer(std::move(*frame));
      }
    }
    return m_exitCode;
  }

 private:
  bool receive() {
    if (m_reader.receive(m_channel)) return true;
    return m_reader.isSound() ? false : refuse("no frame");
  }

  bool answer(Frame frame) {
    if (frame.m_kind == FrameKind::Request && m_session == nullptr) return begin(std::move(frame.m_bytes));
    if (m_session == nullptr) return refuse("no request came before");
    if (frame.m_kind == FrameKind::Warm) return warm();
    if (frame.m_kind != FrameKind::Task) return refuse("no frame that a client may send");
    auto order = takeTask(std::move(frame));
    return order.has_value() ? start(*order) : refuse("no proper task");
  }

  bool begin(std::string request) {
    std::string const problem = readRequest(std::move(request), m_request);
    if (!problem.empty()) return refuse(problem);
    m_memory = makeMemoryHooks(m_request, m_hooks);
    m_session = std::make_unique<Session>(makeSessionOptions(m_request, m_hooks));
    if (auto const found = m_session->findProblem()) return refuse(found->m_text);
    return sendFrame(m_channel, FrameKind::Ready, {});
  }

  bool warm() {
    if (drawsText(m_request.m_action)) m_session->warm();
    return true;
  }

  bool refuse(std::string const& why) {
    m_exitCode = ExitUsage;
    static_cast<void>(sendFrame(m_channel, FrameKind::Refused, why));
    return false;
  }

  bool start(TaskOrder& order) {
    pid_t const parent = getpid();
    // What waits in a buffer would be written by both.
    std::fflush(nullptr);
    pid_t const process = fork();
    if (process == 0) work(order, parent);
    if (process < 0) return tell({.m_task = order.m_number, .m_problem = errno});
    // Both sides say so, whoever comes first: it is killed as a group.
    if (isatty(order.m_task.m_input) == 0) setpgid(process, process);
    auto const time = std::chrono::seconds(getClockSeconds(m_request.m_limits.get(Limit::Time)));
    m_running.push_back({order.m_number, process, Clock::now() + time});
    return true;
  }

  /// Nothing that is thrown gets past this: further up are the other tasks, which would be ended.
  [[noreturn]] void work(TaskOrder& order, int parent) noexcept {
    becomeTaskProcess(m_request.m_limits, order.m_task.m_input, order.m_errors, parent);
    m_signal.restore();
    forgetClient();
    int exitCode = ExitBug;
    try {
      if (workOnTask(*m_session, m_request, order, limitProcess())) exitCode = ExitDone;
    } catch (std::bad_alloc const&) {
      exitCode = ExitLimit;
    }
    std::fflush(stderr);
    // Nothing is taken apart that ends anyway.
    _exit(exitCode);
  }

  /// The client's other tasks are not this one's business, nor what came of them and waits.
  void forgetClient() noexcept {
    m_reader = FrameReader();
    // Standard input leads to nothing by now, whatever it was.
    if (m_channel > STDERR_FILENO) ::close(m_channel);
  }

  /// What is allocated past the counter is the system's to limit.
  MemoryHooks limitProcess() const {
    MemoryHooks hooks = m_memory;
    hooks.m_onInput = [this](std::uint64_t inputBytes) {
      if (m_memory.m_onInput) m_memory.m_onInput(inputBytes);
      limitProcessMemory(m_request.m_limits.getMemory(inputBytes));
    };
    return hooks;
  }

  /// Leaves a process to be waited for, so that its number stays its own until its group is killed.
  static bool hasEnded(RunningTask const& task) {
    siginfo_t info{};
    return waitid(P_PID, static_cast<id_t>(task.m_process), &info, WEXITED | WNOHANG | WNOWAIT) != 0 ||
           info.si_pid == task.m_process;
  }

  void reap() {
    for (std::size_t i = 0; i < m_running.size();) {
      if (!hasEnded(m_running[i])) {
        ++i;
        continue;
      }
      RunningTask const task = m_running[i];
      m_running.erase(m_running.begin() + static_cast<std::ptrdiff_t>(i));
      if (!tell(collect(task))) m_isServing = false;
    }
  }

  static TaskEnd collect(RunningTask const& task) {
    // It may have left others of its group behind.
    kill(-task.m_process, SIGKILL);
    TaskEnd end{.m_task = task.m_number, .m_isOverdue = task.m_isOverdue, .m_process = task.m_process};
    rusage usage{};
    repeatInterrupted([&] { return wait4(task.m_process, &end.m_status, 0, &usage); });
    constexpr std::uint64_t KiB = 1024;
    end.m_processorSeconds = toSeconds(usage.ru_utime) + toSeconds(usage.ru_stime);
    end.m_peakMemory = static_cast<std::uint64_t>(usage.ru_maxrss) * KiB;
    return end;
  }

  bool tell(TaskEnd const& end) const { return sendFrame(m_channel, FrameKind::Ended, formatTaskEnd(end)); }

  void endOverdue() {
    for (RunningTask& task : m_running) {
      if (Clock::now() < task.m_deadline || task.m_isOverdue) continue;
      task.m_isOverdue = true;
      end(task);
    }
  }

  static void end(RunningTask const& task) {
    kill(-task.m_process, SIGKILL);
    kill(task.m_process, SIGKILL);
  }

  void endAll() {
    for (RunningTask const& task : m_running) end(task);
    for (RunningTask const& task : m_running) static_cast<void>(collect(task));
    m_running.clear();
  }

  /// Until the first process is overdue, in milliseconds; -1 for ever.
  int getTimeout() const {
    if (m_running.empty()) return -1;
    // One that is killed already is waited for like any other.
    auto const getDeadline = [](RunningTask const& task) {
      return task.m_isOverdue ? Clock::time_point::max() : task.m_deadline;
    };
    auto const first = std::ranges::min_element(m_running, {}, getDeadline);
    if (first->m_isOverdue) return -1;
    auto const left = std::chrono::ceil<std::chrono::milliseconds>(first->m_deadline - Clock::now());
    constexpr std::int64_t LongestWait = 1'000'000;
    return static_cast<int>(std::clamp<std::int64_t>(left.count(), 0, LongestWait));
  }

  int m_channel;
  ProgramHooks const& m_hooks;
  ChildSignal m_signal;
  FrameReader m_reader;
  Request m_request;
  MemoryHooks m_memory;
  std::unique_ptr<Session> m_session;
  std::vector<RunningTask> m_running;
  bool m_isServing = true;
  int m_exitCode = ExitDone;
};

}  // namespace

SessionOptions makeSessionOptions(Request const& request, ProgramHooks const& hooks) {
  SessionOptions options = makeSessionOptions(request);
  options.m_spelling = hooks.m_spelling;
  options.m_log = hooks.m_log;
  return options;
}

MemoryHooks makeMemoryHooks(Request const& request, ProgramHooks const& hooks) {
  return hooks.m_makeMemory ? hooks.m_makeMemory(request.m_limits) : MemoryHooks{};
}

int serveClient(int channel, ProgramHooks const& hooks) {
  reserveStandardStreams();
  return WorkerProgram(channel, hooks).run();
}

}  // namespace qvToolkit
