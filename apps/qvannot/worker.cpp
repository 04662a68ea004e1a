#include "worker.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <string.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <system_error>

#include "files/wholeIo.h"
#include "interruption.h"

namespace qvannot {

namespace {

using qvToolkit::Finding;
using qvToolkit::FindingCode;
using qvToolkit::Limit;
using qvToolkit::Limits;

/// Address sanitizers map terabytes that are never used: limits of the address space and they do not go
/// together.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool HasShadowMemory = true;
#elif defined(__has_feature)
constexpr bool HasShadowMemory = __has_feature(address_sanitizer);
#else
constexpr bool HasShadowMemory = false;
#endif

constexpr rlim_t MaxOpenFiles = 32;
/// Between the signal that asks for the end of a busy worker and the one that enforces it.
constexpr std::uint64_t GraceSeconds = 5;
/// The clock's share: other processes may have the processor, too.
constexpr std::uint64_t ClockFactor = 2;
/// Memory beside what the budget counts.
constexpr std::uint64_t RoomForFonts = std::uint64_t{128} << 20;
constexpr std::uint64_t RoomForHoles = std::uint64_t{8} << 20;
constexpr std::uint64_t RoomForTelling = std::uint64_t{1} << 20;
/// What a worker says goes to a file, too, however small its results may be.
constexpr std::uint64_t RoomForMessages = std::uint64_t{64} << 20;

using Clock = std::chrono::steady_clock;
/// Between two looks at a worker: short where it is about to end.
using Pause = std::chrono::nanoseconds;
constexpr Pause FirstPause = std::chrono::microseconds(20);
constexpr Pause LongestPause = std::chrono::milliseconds(100);

/// Where a worker tells its result; -1 in the tool itself.
int resultPipe = -1;

void setLimit(decltype(RLIMIT_AS) resource, std::uint64_t soft, std::uint64_t hard) noexcept {
  rlimit now{};
  if (getrlimit(resource, &now) != 0) return;
  // Never above what the caller of the tool allows.
  rlimit const limit{std::min<rlim_t>(soft, now.rlim_max), std::min<rlim_t>(hard, now.rlim_max)};
  setrlimit(resource, &limit);
}

/// One that may be set again, for less or for more.
void setSoftLimit(decltype(RLIMIT_AS) resource, std::uint64_t value) noexcept {
  rlimit limit{};
  if (getrlimit(resource, &limit) != 0) return;
  limit.rlim_cur = std::min<rlim_t>(value, limit.rlim_max);
  setrlimit(resource, &limit);
}

void setLimit(decltype(RLIMIT_AS) resource, std::uint64_t value) noexcept {
  setLimit(resource, value, value);
}

void connect(char const* path, int number) noexcept {
  int const file = open(path, O_RDWR | O_CLOEXEC);
  if (file < 0) return;
  dup2(file, number);
  close(file);
}

/// The time by the clock that goes with a limit of processor time.
std::chrono::seconds getClockTime(std::uint64_t seconds) {
  constexpr std::uint64_t MostSeconds = 1'000'000;
  return std::chrono::seconds(ClockFactor * std::min(seconds, MostSeconds));
}

/// Leaves the process to be waited for, so that its number stays its own.
bool hasEnded(pid_t process) noexcept {
  siginfo_t info{};
  return waitid(P_PID, static_cast<id_t>(process), &info, WEXITED | WNOHANG | WNOWAIT) != 0 ||
         info.si_pid == process;
}

/// Until the event has come, a signal, or the end of the pause; an event that has come wakes no more.
void sleepOn(pollfd& event, Pause pause) noexcept {
  auto const seconds = std::chrono::duration_cast<std::chrono::seconds>(pause);
  timespec const time{seconds.count(), (pause - seconds).count()};
  ppoll(&event, event.revents == 0 ? 1 : 0, &time, nullptr);
}

Finding describeSignal(int signal, std::uint64_t seconds) {
  if (signal == SIGXCPU) {
    return makeFinding(FindingCode::LimitTime, "the work on it took more than the limit of " +
                                                   std::to_string(seconds) +
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

bool isKnown(int exitCode) {
  return exitCode == qvToolkit::ExitBug ||
         (exitCode >= qvToolkit::ExitDone && exitCode <= qvToolkit::ExitNothingToDo);
}

}  // namespace

Worker::Worker(std::string const& path, Limits const& limits) : m_limits(limits), m_parent(getpid()) {
  std::array<int, 2> ends = {-1, -1};
  bool const isReady = m_output.getDescriptor() >= 0 && m_errors.getDescriptor() >= 0 &&
                       pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) == 0;
  // What waits in a buffer would be written by both.
  std::fflush(nullptr);
  if (isReady) m_process = fork();
  m_problem = errno;
  m_result = ends[0];
  if (m_process == 0) {
    become(path, ends[1]);
  } else if (ends[1] >= 0) {
    close(ends[1]);
  }
}

Worker::~Worker() {
  if (m_result >= 0) close(m_result);
}

void Worker::become(std::string const& path, int result) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != m_parent) _exit(qvToolkit::ExitBug);
  prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
  // A group of its own takes what it starts along when it is killed. A process in the background may not read
  // from a terminal, though.
  bool const readsInput = path == "-";
  if (!readsInput || isatty(STDIN_FILENO) == 0) setpgid(0, 0);
  if (!readsInput) connect("/dev/null", STDIN_FILENO);
  dup2(m_output.getDescriptor(), STDOUT_FILENO);
  dup2(m_errors.getDescriptor(), STDERR_FILENO);
  resultPipe = result;
  setLimit(RLIMIT_CORE, 0);
  setLimit(RLIMIT_NOFILE, MaxOpenFiles);
  setLimit(RLIMIT_FSIZE, std::max(m_limits.get(Limit::OutputFile), RoomForMessages));
  std::uint64_t const seconds = m_limits.get(Limit::Time);
  if (seconds < Limits::Unlimited - GraceSeconds) setLimit(RLIMIT_CPU, seconds, seconds + GraceSeconds);
  limitWorkerMemory(m_limits.get(Limit::Memory));
}

/// True when the worker has ended within its time.
///
/// The tool sleeps on the pipe, which the system closes with the process. The pipe may close before, though,
/// or stay open in a process that the worker has started, so that only the process itself tells its end: it
/// is looked at again and again.
bool Worker::waitForExit() const {
  auto const end = Clock::now() + getClockTime(m_limits.get(Limit::Time));
  pollfd event{m_result, POLLIN, 0};
  Pause pause = FirstPause;
  for (bool isTold = false; !hasEnded(m_process);) {
    auto const left = std::chrono::duration_cast<Pause>(end - Clock::now());
    if (left <= Pause::zero()) return false;
    if (!isTold && *getInterruption() != 0) isTold = kill(m_process, *getInterruption()) == 0;
    bool const isOpen = event.revents == 0;
    sleepOn(event, std::min(left, isOpen ? LongestPause : pause));
    if (!isOpen) pause = std::min(2 * pause, LongestPause);
  }
  return true;
}

/// The byte that a worker leaves as its last act; the pipe is not waited for, as somebody may hold it open.
std::optional<int> Worker::readResult() const {
  std::array<unsigned char, 2> bytes{};
  ssize_t const count = read(m_result, bytes.data(), bytes.size());
  return count == 1 ? std::optional<int>(bytes[0]) : std::nullopt;
}

WorkerEnd Worker::wait() {
  if (m_process < 0) {
    return {std::nullopt,
            makeFinding(FindingCode::WorkerKilled,
                        "no process can be started for it: " + std::generic_category().message(m_problem))};
  }
  bool const isInTime = waitForExit();
  // Also when it has ended: it may have left others of its group behind.
  kill(-m_process, SIGKILL);
  if (!isInTime) kill(m_process, SIGKILL);
  int status = 0;
  qvToolkit::repeatInterrupted([&] { return waitpid(m_process, &status, 0); });
  std::uint64_t const seconds = m_limits.get(Limit::Time);
  if (!isInTime) {
    return {std::nullopt,
            makeFinding(FindingCode::LimitTime, "the work on it took longer than the limit of " +
                                                    std::to_string(ClockFactor * seconds) +
                                                    " seconds by the clock; nothing of it is written")};
  }
  if (WIFSIGNALED(status)) return {std::nullopt, describeSignal(WTERMSIG(status), seconds)};
  int const exitCode = WEXITSTATUS(status);
  if (readResult() == exitCode && isKnown(exitCode)) return {static_cast<qvToolkit::ExitCode>(exitCode), {}};
  return {std::nullopt,
          makeFinding(FindingCode::WorkerGarbage,
                      "the process that worked on it ended with code " + std::to_string(exitCode) +
                          " without a proper result; nothing of it is shown; please report it")};
}

bool isWorker() noexcept {
  return resultPipe >= 0;
}

void limitWorkerMemory(std::uint64_t bytes) noexcept {
  if (HasShadowMemory || !isWorker() || bytes == Limits::Unlimited) return;
  std::uint64_t mapped = 0;
  std::uint64_t data = 0;
  std::uint64_t unused = 0;
  std::ifstream("/proc/self/statm") >> mapped >> unused >> unused >> unused >> unused >> data;
  auto const page = static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
  // What is mapped already, and room for fonts that are mapped later.
  setSoftLimit(RLIMIT_AS, mapped * page + RoomForFonts + bytes);
  // Holes of the heap, and what libraries allocate by themselves. Some must be left for telling of it.
  setSoftLimit(RLIMIT_DATA, std::max(bytes + RoomForHoles, data * page + RoomForTelling));
}

void concludeWorker(int exitCode) noexcept {
  if (!isWorker()) return;
  auto const byte = static_cast<unsigned char>(exitCode);
  static_cast<void>(write(resultPipe, &byte, 1) == 1);
}

}  // namespace qvannot
