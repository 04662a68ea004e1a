#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <deque>
#include <stdexcept>
#include <utility>

#include "files/wholeIo.h"
#include "qvToolkit/json/jsonWriter.h"
#include "qvToolkit/outcome/outcomeJson.h"
#include "work/frame.h"
#include "work/taskRunner.h"

namespace qvToolkit {

namespace {

/// As shells say of a program that cannot be started.
constexpr int ExitUnstarted = 127;

/// The processes that serve: what happens to the terminal is their client's business.
void ignoreTerminal() noexcept {
  for (int const signalNumber : {SIGINT, SIGQUIT, SIGHUP}) signal(signalNumber, SIG_IGN);
  signal(SIGTERM, SIG_DFL);
}

/// What the client has open is none of its business, and would count towards its files.
void closeOthers(int kept) noexcept {
  constexpr int First = STDERR_FILENO + 1;
  if (kept > First) close_range(First, static_cast<unsigned>(kept) - 1, 0);
  close_range(static_cast<unsigned>(std::max(kept + 1, First)), ~0U, 0);
}

/// A worker program and the channel to it.
class Program {
 public:
  Program(std::vector<std::string> const& words, ProgramHooks const& hooks) {
    std::array<int, 2> ends = {-1, -1};
    static_cast<void>(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()));
    m_channel = FileDescriptor(ends[0]);
    FileDescriptor const other(ends[1]);
    pid_t const parent = getpid();
    // What waits in a buffer would be written by both.
    std::fflush(nullptr);
    if (other.isOpen()) m_process = fork();
    m_problem = errno;
    if (m_process != 0) return;
    ignoreTerminal();
    if (words.empty()) serve(other.get(), parent, hooks);
    become(other.get(), words);
  }
  ~Program() { end(); }
  Program(Program const&) = delete;
  Program& operator=(Program const&) = delete;

  int getChannel() const noexcept { return m_channel.get(); }
  /// It does not do what it should, and need not end by itself either.
  void lose() noexcept { m_isLost = true; }

  /// Ends it, with all that works for it; tells why it could not be started, as the system's error number.
  int end() {
    m_channel.reset();
    int status = 0;
    if (m_process <= 0) return m_problem;
    if (m_isLost) kill(m_process, SIGKILL);
    repeatInterrupted([&] { return waitpid(m_process, &status, 0); });
    m_process = -1;
    m_problem = WIFEXITED(status) && WEXITSTATUS(status) == ExitUnstarted ? ENOENT : 0;
    return m_problem;
  }

 private:
  [[noreturn]] void serve(int channel, pid_t parent, ProgramHooks const& hooks) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) _exit(ExitBug);
    m_channel.reset();
    closeOthers(channel);
    // Where the host ignores it, nobody learns how a process ended.
    signal(SIGCHLD, SIG_DFL);
    int exitCode = ExitBug;
    try {
      exitCode = serveClient(channel, hooks);
    } catch (std::exception const& error) {
      std::fprintf(stderr, "%s\n", error.what());
    }
    _exit(exitCode);
  }

  [[noreturn]] static void become(int channel, std::vector<std::string> const& words) {
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string const& word : words) pointers.push_back(const_cast<char*>(word.c_str()));
    pointers.push_back(nullptr);
    dup2(channel, STDIN_FILENO);
    // Where it has that number already.
    fcntl(STDIN_FILENO, F_SETFD, 0);
    closeOthers(STDIN_FILENO);
    execvp(pointers.front(), pointers.data());
    _exit(ExitUnstarted);
  }

  FileDescriptor m_channel;
  pid_t m_process = -1;
  int m_problem = 0;
  bool m_isLost = false;
};

class ProgramRunner : public TaskRunner {
 public:
  ProgramRunner(Request const& request, std::vector<std::string> words, ProgramHooks hooks, bool warms)
      : m_words(std::move(words)), m_hooks(std::move(hooks)), m_warms(warms) {
    JsonWriter json;
    writeRequest(json, request);
    m_request = json.takeText();
  }

  void start(TaskOrder const& order) override {
    bool isSent = m_program != nullptr && sendTask(m_program->getChannel(), order);
    if (!isSent) {
      // Whoever was killed before has not seen this task.
      takeLastEnds();
      giveUp();
      isSent = launch() && sendTask(m_program->getChannel(), order);
    }
    m_running.push_back(order.m_number);
    if (!isSent) giveUp();
  }

  std::optional<TaskEnd> wait() override {
    // What has come with the last frame that was waited for comes no more.
    if (!takeEnds()) giveUp();
    while (m_ends.empty() && m_program != nullptr) {
      // A signal that came just before would not end the wait.
      constexpr int Milliseconds = 200;
      pollfd event{m_program->getChannel(), POLLIN, 0};
      if (poll(&event, 1, Milliseconds) <= 0) return std::nullopt;
      bool const isThere = m_reader.receive(m_program->getChannel());
      if (!takeEnds() || !isThere) giveUp();
    }
    if (m_ends.empty()) return std::nullopt;
    TaskEnd const end = m_ends.front();
    m_ends.pop_front();
    return end;
  }

 private:
  /// Starts the program anew and waits until it is ready, though it may be killed even then; false when it
  /// has gone each time.
  bool launch() {
    constexpr int Attempts = 3;
    for (int i = 0; i < Attempts; ++i) {
      m_program = std::make_unique<Program>(m_words, m_hooks);
      m_reader = FrameReader();
      if (greet(m_program->getChannel())) return true;
      m_program->lose();
    }
    return false;
  }

  /// False when it is gone, or no worker program.
  bool greet(int channel) {
    if (!sendFrame(channel, FrameKind::Request, m_request)) return false;
    auto const answer = receiveFrame(channel);
    if (!answer.has_value()) return false;
    if (answer->m_kind == FrameKind::Refused) throw std::runtime_error(answer->m_bytes);
    if (answer->m_kind != FrameKind::Ready) return false;
    return !m_warms || sendFrame(channel, FrameKind::Warm, {});
  }

  std::optional<Frame> receiveFrame(int channel) {
    for (;;) {
      if (auto frame = m_reader.take()) return frame;
      pollfd event{channel, POLLIN, 0};
      poll(&event, 1, -1);
      if (event.revents != 0 && !m_reader.receive(channel)) return std::nullopt;
    }
  }

  /// False when the program tells something else.
  bool takeEnds() {
    while (auto frame = m_reader.take()) {
      auto const end =
          frame->m_kind == FrameKind::Ended ? parseTaskEnd(std::move(frame->m_bytes)) : std::nullopt;
      if (!end.has_value() || std::erase(m_running, end->m_task) == 0) return false;
      m_ends.push_back(*end);
    }
    return true;
  }

  /// What a program has told before it was gone.
  void takeLastEnds() {
    if (m_program == nullptr) return;
    int const channel = m_program->getChannel();
    for (pollfd event{channel, POLLIN, 0}; poll(&event, 1, 0) > 0 && m_reader.receive(channel);) continue;
    static_cast<void>(takeEnds());
  }

  /// Whoever kills the program kills what it works on. The next input starts it anew.
  void giveUp() {
    if (m_program != nullptr) m_program->lose();
    int const problem = m_program == nullptr ? 0 : m_program->end();
    m_program.reset();
    for (std::uint64_t const task : m_running)
      m_ends.push_back({.m_task = task, .m_status = SIGKILL, .m_problem = problem});
    m_running.clear();
  }

  std::vector<std::string> m_words;
  ProgramHooks m_hooks;
  bool m_warms;
  std::string m_request;
  std::unique_ptr<Program> m_program;
  FrameReader m_reader;
  std::vector<std::uint64_t> m_running;
  std::deque<TaskEnd> m_ends;
};

}  // namespace

std::unique_ptr<TaskRunner> makeProgramRunner(Request const& request, std::vector<std::string> const& program,
                                              ProgramHooks const& hooks, bool warms) {
  return std::make_unique<ProgramRunner>(request, program, hooks, warms);
}

}  // namespace qvToolkit
