#include "work/taskProcess.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>

#include "qvToolkit/findings/exitCode.h"

namespace qvToolkit {

namespace {

/// Address sanitizers map terabytes that are never used: limits of the address space and they do not go
/// together.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool HasShadowMemory = true;
#elif defined(__has_feature)
constexpr bool HasShadowMemory = __has_feature(address_sanitizer);
#else
constexpr bool HasShadowMemory = false;
#endif

constexpr rlim_t MaxOpenFiles = 64;
/// Between the signal that asks for the end of a busy process and the one that enforces it.
constexpr std::uint64_t GraceSeconds = 5;
/// The clock's share: other processes may have the processor, too.
constexpr std::uint64_t ClockFactor = 2;
/// Memory beside what the budget counts.
constexpr std::uint64_t RoomForFonts = std::uint64_t{128} << 20;
constexpr std::uint64_t RoomForHoles = std::uint64_t{8} << 20;
constexpr std::uint64_t RoomForTelling = std::uint64_t{1} << 20;
/// What a process says goes to a file, too, however small its results may be.
constexpr std::uint64_t RoomForMessages = std::uint64_t{64} << 20;

using Resource = decltype(RLIMIT_AS);

void setLimit(Resource resource, std::uint64_t soft, std::uint64_t hard) noexcept {
  rlimit now{};
  if (getrlimit(resource, &now) != 0) return;
  // Never above what the caller allows.
  rlimit const limit{std::min<rlim_t>(soft, now.rlim_max), std::min<rlim_t>(hard, now.rlim_max)};
  setrlimit(resource, &limit);
}

/// One that may be set again, for less or for more.
void setSoftLimit(Resource resource, std::uint64_t value) noexcept {
  rlimit limit{};
  if (getrlimit(resource, &limit) != 0) return;
  limit.rlim_cur = std::min<rlim_t>(value, limit.rlim_max);
  setrlimit(resource, &limit);
}

void connectToNothing(int number) noexcept {
  int const file = open("/dev/null", O_RDWR | O_CLOEXEC);
  if (file < 0) return;
  dup2(file, number);
  close(file);
}

void setLimits(Limits const& limits) noexcept {
  setLimit(RLIMIT_CORE, 0, 0);
  setLimit(RLIMIT_NOFILE, MaxOpenFiles, MaxOpenFiles);
  std::uint64_t const bytes = std::max(limits.get(Limit::OutputFile), RoomForMessages);
  setLimit(RLIMIT_FSIZE, bytes, bytes);
  std::uint64_t const seconds = limits.get(Limit::Time);
  if (seconds < Limits::Unlimited - GraceSeconds) setLimit(RLIMIT_CPU, seconds, seconds + GraceSeconds);
  limitProcessMemory(limits.get(Limit::Memory));
}

}  // namespace

void becomeTaskProcess(Limits const& limits, int input, int errors, int parent) noexcept {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != parent) _exit(ExitBug);
  prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
  // A process in the background may not read from a terminal.
  if (isatty(input) == 0) setpgid(0, 0);
  connectToNothing(STDIN_FILENO);
  connectToNothing(STDOUT_FILENO);
  dup2(errors, STDERR_FILENO);
  // What a file takes no more is an error to be told.
  signal(SIGXFSZ, SIG_IGN);
  setLimits(limits);
}

void limitProcessMemory(std::uint64_t bytes) noexcept {
  if (HasShadowMemory || bytes == Limits::Unlimited) return;
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

std::uint64_t getClockSeconds(std::uint64_t processorSeconds) noexcept {
  constexpr std::uint64_t MostSeconds = 1'000'000;
  return ClockFactor * std::min(processorSeconds, MostSeconds);
}

}  // namespace qvToolkit
