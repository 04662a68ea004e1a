#include "files/childLimit.h"

#include <signal.h>
#include <string.h>
#include <sys/resource.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace qvToolkit {

namespace {

/// What a program, or a library of it, says last when it gets no memory.
constexpr auto MemoryMessages = std::to_array<std::string_view>(
    {"memory allocation of", "failed to allocate", "out of memory", "No Memory", "Cannot allocate memory"});

bool lacksMemory(std::string_view message) {
  return std::ranges::any_of(
      MemoryMessages, [&](std::string_view text) { return message.find(text) != std::string_view::npos; });
}

/// A limit that the system enforces by a signal. Programs that this process starts have its own.
struct SignalLimit {
  int m_signal;
  decltype(RLIMIT_AS) m_resource;
  FindingCode m_code;
  char const* m_text;
  char const* m_unit;
  OptionKey m_option;
};

constexpr std::array SignalLimits = {
    SignalLimit{SIGXCPU, RLIMIT_CPU, FindingCode::LimitTime, " took more than the limit of ",
                " seconds of processor time", OptionKey::MaxTime},
    SignalLimit{SIGXFSZ, RLIMIT_FSIZE, FindingCode::LimitOutput, " writes more than the limit of ", " bytes",
                OptionKey::MaxOutputFile},
};

Finding describe(std::string const& program, SignalLimit const& limit) {
  rlimit value{};
  getrlimit(limit.m_resource, &value);
  return withOptions(
      makeFinding(limit.m_code, program + limit.m_text + std::to_string(value.rlim_cur) + limit.m_unit),
      {limit.m_option});
}

Finding describeMemory(std::string const& program, std::uint64_t limit) {
  std::string const text = program + " needs more memory than ";
  return makeFinding(FindingCode::LimitMemory,
                     text + (limit == ChildCommand::Unlimited
                                 ? "there is"
                                 : "is left of the limit of " + std::to_string(limit) + " bytes"));
}

}  // namespace

std::optional<Finding> findChildLimit(std::string const& program, ChildRun const& run,
                                      std::uint64_t memoryLimit) {
  bool const hasFailed = run.m_signal != 0 || run.m_exitCode != 0;
  if (hasFailed && lacksMemory(run.m_errors)) return describeMemory(program, memoryLimit);
  auto const limit = std::ranges::find(SignalLimits, run.m_signal, &SignalLimit::m_signal);
  if (limit != SignalLimits.end()) return describe(program, *limit);
  if (run.m_signal == 0) return std::nullopt;
  bool const isKilled = run.m_signal == SIGKILL;
  return makeFinding(isKilled ? FindingCode::WorkerKilled : FindingCode::WorkerCrashed,
                     program + " was ended by signal " + std::to_string(run.m_signal) + " (" +
                         strsignal(run.m_signal) + ")");
}

}  // namespace qvToolkit
