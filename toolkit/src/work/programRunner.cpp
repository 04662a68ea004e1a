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

  /// Ends it, with all that works for it; tells why it could not be started, as the system's error number.
  int end() {
    m_channel.reset();
    int status = 0;
    if (m_process <= 0) return m_problem;
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
    execvp(pointers.front(), pointers.data());
    _exit(ExitUnstarted);
  }

  FileDescriptor m_channel;
  pid_t m_process = -1;
  int m_problem = 0;
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
    m_running.push_back(order.m_number);
    if ((m_program == nullptr && !launch()) || !sendTask(m_program->getChannel(), order)) giveUp();
  }

  std::optional<TaskEnd> wait() override {
    while (m_ends.empty()) {
      pollfd event{m_program->getChannel(), POLLIN, 0};
      if (poll(&event, 1, -1) < 0) return std::nullopt;
      if (!m_reader.receive(m_program->getChannel())) {
        giveUp();
        continue;
      }
      takeEnds();
    }
    TaskEnd const end = m_ends.front();
    m_ends.pop_front();
    return end;
  }

 private:
  /// Starts the program anew and waits until it is ready; false when it has gone instead.
  bool launch() {
    m_program = std::make_unique<Program>(m_words, m_hooks);
    m_reader = FrameReader();
    int const channel = m_program->getChannel();
    auto const answer =
        sendFrame(channel, FrameKind::Request, m_request) ? receiveFrame(channel) : std::nullopt;
    if (!answer.has_value()) return false;
    if (answer->m_kind != FrameKind::Ready) throw std::runtime_error(answer->m_bytes);
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

  void takeEnds() {
    while (auto frame = m_reader.take()) {
      auto const end =
          frame->m_kind == FrameKind::Ended ? parseTaskEnd(std::move(frame->m_bytes)) : std::nullopt;
      if (!end.has_value()) return giveUp();
      std::erase(m_running, end->m_task);
      m_ends.push_back(*end);
    }
  }

  /// Whoever kills the program kills what it works on. The next input starts it anew.
  void giveUp() {
    int const problem = m_program->end();
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
