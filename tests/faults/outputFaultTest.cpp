#include <gtest/gtest.h>
#include <signal.h>

#include <array>
#include <cerrno>
#include <iostream>
#include <map>
#include <set>

#include "qvToolkit/findings/exitCode.h"
#include "tests/apps/toolRunner.h"
#include "tracedTool.h"

/// The tool when each of its system calls that leave something behind fails, is cut short, or is its last
/// one: an output is whole or absent, and what the tool says is true.
namespace qvFaults {

namespace {

using Kind = SystemCallFault::Kind;
using Files = std::map<std::string, std::string>;

constexpr char const* Example = QVA_EXAMPLES "/binary/image_sheet_6.27.qvs";
constexpr char const* Rasters = QVA_EXAMPLES "/rasters";

/// A command that is run in a folder; its outputs are in "out" there.
struct Scenario {
  char const* m_name;
  std::vector<std::string> m_arguments;
  Files m_before;  ///< what is in "out" already
};

std::vector<Scenario> listScenarios() {
  std::vector<std::string> const encode{"encode", Example, "--stream-version", "6.27", "-o", "out/x.qvs"};
  std::vector<std::string> forced = encode;
  forced.emplace_back("--force");
  return {{"encode", encode, {}},
          {"encode --force", forced, {{"x.qvs", "what was there before"}}},
          {"migrate", {"migrate", Example, "--rasters", Rasters, "-o", "out"}, {}},
          {"inspect --json", {"inspect", "--json", "--full", Example}, {}},
          {"inspect", {"inspect", Example}, {}},
          {"dump", {"dump", Example}, {}}};
}

/// What a run left.
struct Left {
  TracedRun m_run;
  Files m_files;
  std::size_t m_temporaries = 0;  ///< folders of what is not complete
};

Left run(Scenario const& scenario, SystemCallFault const& fault = {}) {
  qvTest::Workplace const place;
  for (auto const& [name, bytes] : scenario.m_before) static_cast<void>(place.write("out/" + name, bytes));
  Left left;
  left.m_run = runTraced(scenario.m_arguments, place.getPath("."), fault);
  for (std::string const& name : place.list("out")) {
    bool const isTemporary = name.starts_with(".qvannot-");
    left.m_temporaries += isTemporary ? 1U : 0U;
    if (!isTemporary) left.m_files[name] = place.read("out/" + name);
  }
  return left;
}

/// Checks one run with a fault against an undisturbed one.
class Verdict {
 public:
  Verdict(Scenario const& scenario, SystemCallFault const& fault, Left const& clean, Left const& left)
      : m_scenario(scenario), m_fault(fault), m_clean(clean), m_left(left), m_run(left.m_run) {}

  void check() const {
    checkFiles();
    checkEnd();
    checkOutput();
  }

 private:
  bool wasToolKilled() const { return m_run.m_signal == SIGKILL; }
  bool isAsClean() const { return m_run.m_exitCode == m_clean.m_run.m_exitCode; }

  /// Whole, as before, or absent.
  void checkFiles() const {
    std::size_t whole = 0;
    for (auto const& [name, bytes] : m_left.m_files) {
      auto const expected = m_clean.m_files.find(name);
      ASSERT_NE(expected, m_clean.m_files.end()) << name;
      auto const before = m_scenario.m_before.find(name);
      bool const isAsBefore = before != m_scenario.m_before.end() && before->second == bytes;
      EXPECT_TRUE(isAsBefore || bytes == expected->second) << name << " is neither whole nor as before";
      if (bytes == expected->second) ++whole;
    }
    for (auto const& [name, bytes] : m_scenario.m_before) EXPECT_TRUE(m_left.m_files.contains(name));
    bool const areAllThere = whole == m_clean.m_files.size();
    EXPECT_TRUE(areAllThere || !isAsClean()) << "it says that all went well";
    EXPECT_TRUE(areAllThere || whole == 0 || m_fault.m_kind == Kind::Kill) << "some, but not all";
    // Who is killed, or may not remove files, cannot clean up.
    bool const canCleanUp = !wasToolKilled() && m_fault.m_kind != Kind::Error;
    EXPECT_TRUE(m_left.m_temporaries == 0 || !canCleanUp);
  }

  void checkEnd() const {
    if (m_run.m_signal != 0) {
      EXPECT_EQ(m_run.m_signal, m_fault.m_kind == Kind::Kill ? SIGKILL : m_fault.m_number);
      return;
    }
    // The last one stands for a library that could not be loaded.
    std::set<int> const codes{m_clean.m_run.m_exitCode, qvToolkit::ExitOutputFailed, qvToolkit::ExitLimit,
                              127};
    EXPECT_TRUE(codes.contains(m_run.m_exitCode)) << m_run.m_exitCode << ": " << m_run.m_errors;
    EXPECT_TRUE(isAsClean() || m_fault.m_kind != Kind::Short) << "the rest was not written";
  }

  /// A part of a result is shown only when the rest of it cannot be.
  void checkOutput() const {
    std::string const& whole = m_clean.m_run.m_output;
    bool const tellsFailure = m_run.m_output.find("\"readable\":false") != std::string::npos;
    EXPECT_TRUE(whole == m_run.m_output || !isAsClean()) << m_run.m_output;
    if (m_run.m_output.empty() || m_run.m_output == whole || tellsFailure) return;
    EXPECT_TRUE(whole.starts_with(m_run.m_output)) << m_run.m_output;
    bool const isExplained =
        m_run.m_signal != 0 || m_run.m_errors.find("cannot write to standard output") != std::string::npos;
    EXPECT_TRUE(isExplained) << m_run.m_output << m_run.m_errors;
  }

  Scenario const& m_scenario;
  SystemCallFault const& m_fault;
  Left const& m_clean;
  Left const& m_left;
  TracedRun const& m_run;
};

/// Hits each call of the scenario in turn; returns how many there were.
std::uint32_t hitEachCall(Scenario const& scenario, SystemCallFault fault) {
  Left const clean = run(scenario);
  for (;; ++fault.m_at) {
    SCOPED_TRACE(std::string(scenario.m_name) + ", call " + std::to_string(fault.m_at));
    Left const left = run(scenario, fault);
    Verdict(scenario, fault, clean, left).check();
    if (!left.m_run.wasHit(fault)) return fault.m_at;
  }
}

class OutputFault : public testing::TestWithParam<SystemCallFault> {};

TEST_P(OutputFault, AtAnyCallLeavesOutputsWholeOrAbsent) {
#if defined(__SANITIZE_ADDRESS__)
  GTEST_SKIP() << "the leak check traces the process itself, which then cannot be traced by another";
#endif
  std::uint32_t calls = 0;
  for (Scenario const& scenario : listScenarios()) calls += hitEachCall(scenario, GetParam());
  EXPECT_GT(calls, 60U);
  std::cout << calls << " calls\n";
}

std::string nameFault(testing::TestParamInfo<SystemCallFault> const& test) {
  constexpr std::array Names{"None", "Kill", "Error", "Short", "Signal"};
  return Names[static_cast<std::size_t>(test.param.m_kind)] + std::to_string(test.param.m_number);
}

INSTANTIATE_TEST_SUITE_P(Of, OutputFault,
                         testing::Values(SystemCallFault{Kind::Kill}, SystemCallFault{Kind::Error, ENOSPC},
                                         SystemCallFault{Kind::Error, EIO},
                                         SystemCallFault{Kind::Error, EINTR}, SystemCallFault{Kind::Short},
                                         SystemCallFault{Kind::Signal, SIGINT},
                                         SystemCallFault{Kind::Signal, SIGTERM}),
                         nameFault);

}  // namespace

}  // namespace qvFaults
