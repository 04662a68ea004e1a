#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <thread>

#include "qvToolkit/findings/exitCode.h"
#include "tests/hostile/hostileDocuments.h"
#include "toolRunner.h"

/// What the caller of the tool, and the system, make of its processes and of its streams.
namespace qvTest {

namespace {

using namespace qvToolkit;

constexpr char const* OutputClosed = "qvannot: cannot write to standard output: it is closed\n";

class ToolProcess : public testing::Test {
 protected:
  Workplace m_place;
  std::string m_plain = m_place.write("plain.json", makeDocument());
  std::string m_out = m_place.getPath("out");
};

TEST_F(ToolProcess, WaitsForWorkersWhereTheSystemHasNoDescriptorsForProcesses) {
  ToolSetting setting;
  setting.m_missingCall = SYS_pidfd_open;
  ToolRun const run = runTool({"migrate", m_plain, "-o", m_out, "--max-time", "1"}, setting);
  EXPECT_EQ(run.m_exitCode, ExitDone) << run.m_errors;
  EXPECT_EQ(run.m_errors, "");
  EXPECT_EQ(m_place.list("out").size(), 2U);
}

TEST_F(ToolProcess, LearnsHowAWorkerEndedWhoseCallerIgnoresTheEndOfProcesses) {
  ToolSetting setting;
  setting.m_ignoredSignals = {SIGCHLD};
  std::string const input = m_place.write("meta.json", makeDocument({}, R"({"k":1})"));
  ToolRun const run = runTool({"migrate", input, "-o", m_out}, setting);
  EXPECT_EQ(run.m_exitCode, ExitFindings) << run.m_errors;
  EXPECT_EQ(run.m_errors.find("worker."), std::string::npos) << run.m_errors;
}

class ClosedStreams : public ToolProcess, public testing::WithParamInterface<std::vector<int>> {
 protected:
  bool isClosed(int stream) const {
    return std::find(GetParam().begin(), GetParam().end(), stream) != GetParam().end();
  }
  ToolRun run(std::vector<std::string> const& arguments) const {
    ToolSetting setting;
    setting.m_closedStreams = GetParam();
    setting.m_input = makeDocument();
    return runTool(arguments, setting);
  }
  /// Work that finds nothing and prints something.
  void expectOnlyOutputToFail(ToolRun const& run) const {
    EXPECT_EQ(run.m_exitCode, isClosed(STDOUT_FILENO) ? ExitOutputFailed : ExitDone) << run.m_errors;
    EXPECT_EQ(run.m_errors, isClosed(STDOUT_FILENO) && !isClosed(STDERR_FILENO) ? OutputClosed : "");
    EXPECT_EQ(run.m_output.empty(), isClosed(STDOUT_FILENO));
  }
};

TEST_P(ClosedStreams, FailOnlyWhereTheyAreUsed) {
  std::string const encoded = m_place.getPath("encoded.qvs");
  expectOnlyOutputToFail(run({"encode", m_plain, "-o", encoded, "--stream-version", "6.22"}));
  EXPECT_TRUE(m_place.read("encoded.qvs").starts_with("qvStream"));
  expectOnlyOutputToFail(run({"migrate", m_plain, m_plain, "-o", m_out}));
  EXPECT_EQ(m_place.list("out").size(), 4U);
  expectOnlyOutputToFail(run({"inspect", m_plain, m_plain}));
  expectOnlyOutputToFail(run({"inspect", "--json", m_plain, m_plain}));
  expectOnlyOutputToFail(run({"inspect", "--limits=none", m_plain}));
  expectOnlyOutputToFail(run({"dump", encoded}));
  expectOnlyOutputToFail(run({"--help"}));
}

TEST_P(ClosedStreams, AreNoEmptyInput) {
  ToolRun const inspection = run({"inspect", "-"});
  if (!isClosed(STDIN_FILENO)) return expectOnlyOutputToFail(inspection);
  EXPECT_EQ(inspection.m_exitCode, isClosed(STDERR_FILENO) ? ExitOutputFailed : ExitInputUnreadable);
  EXPECT_EQ(
      inspection.m_errors,
      isClosed(STDERR_FILENO) ? "" : "-: error: cannot read: standard input is closed [input.unreadable]\n");
}

TEST_P(ClosedStreams, LetNoFindingGetLostInSilence) {
  ToolRun const inspection = run({"inspect", m_place.getPath("none")});
  EXPECT_EQ(inspection.m_exitCode, isClosed(STDERR_FILENO) ? ExitOutputFailed : ExitInputUnreadable);
  EXPECT_EQ(run({"melt"}).m_exitCode, ExitUsage);
}

INSTANTIATE_TEST_SUITE_P(Numbered, ClosedStreams,
                         testing::Values(std::vector<int>{0}, std::vector<int>{1}, std::vector<int>{2},
                                         std::vector<int>{0, 1}, std::vector<int>{0, 2},
                                         std::vector<int>{1, 2}, std::vector<int>{0, 1, 2}),
                         [](auto const& test) {
                           std::string name;
                           for (int const stream : test.param) name += std::to_string(stream);
                           return name;
                         });

/// A reader of standard output that takes one byte and goes.
class BriefReader {
 public:
  explicit BriefReader(std::string path) : m_path(std::move(path)) {
    m_isMade = mkfifo(m_path.c_str(), 0600) == 0;
    m_thread = std::thread([this] {
      int const pipe = open(m_path.c_str(), O_RDONLY);
      char byte = 0;
      m_hasRead = read(pipe, &byte, 1) == 1;
      close(pipe);
    });
  }
  ~BriefReader() { m_thread.join(); }
  std::string const& getPath() const { return m_path; }
  bool isMade() const { return m_isMade; }

 private:
  std::string m_path;
  bool m_isMade = false;
  bool m_hasRead = false;
  std::thread m_thread;
};

class BriefOutput : public ToolProcess {
 protected:
  /// Runs the tool for somebody who goes away after the first byte.
  ToolRun run(std::vector<std::string> const& arguments) const {
    BriefReader const reader(m_place.getPath("pipe"));
    EXPECT_TRUE(reader.isMade());
    ToolSetting setting;
    setting.m_standardOutput = reader.getPath();
    return runTool(arguments, setting);
  }
  std::string m_large = m_place.write("large.json", qvHostile::makeManyTexts(20000));
};

TEST_F(BriefOutput, IsAFailedOutputWithoutAMessageOrASignal) {
  ToolRun const inspection = run({"inspect", m_large});
  EXPECT_EQ(inspection.m_exitCode, ExitOutputFailed);
  EXPECT_EQ(inspection.m_errors, "");
}

TEST_F(BriefOutput, BlamesNoWorkerAndEndsTheWork) {
  std::string const broken = m_place.write("broken.json", "{");
  ToolRun const inspection = run({"inspect", "--json", "--full", m_large, m_large, m_plain, broken});
  EXPECT_EQ(inspection.m_exitCode, ExitOutputFailed);
  EXPECT_EQ(inspection.m_errors, "") << "what nobody reads is not worked on";
}

TEST_F(BriefOutput, KeepsNoFileFromBeingWritten) {
  // The names alone are more than a pipe holds.
  constexpr std::size_t Views = 400;
  std::string const folder(200, 'o');
  std::string const view =
      R"({"ver":"6.27","origin":[0,0,0],"normal":[0,0,1],"axis":[1,0,0],"metadata":{},"annotations":[]})";
  std::string views = view;
  for (std::size_t i = 1; i < Views; ++i) views += "," + view;
  std::string const many = m_place.write("many.json", "[" + views + "]");
  ToolRun const migration = run({"migrate", many, m_plain, m_plain, "-o", m_place.getPath(folder)});
  EXPECT_EQ(migration.m_exitCode, ExitOutputFailed);
  EXPECT_EQ(migration.m_errors, "");
  EXPECT_EQ(m_place.list(folder).size(), Views + 1 + 2 + 2);
}

TEST_F(ToolProcess, BlamesNoWorkerWhenStandardOutputIsFull) {
  ToolSetting setting;
  setting.m_standardOutput = "/dev/full";
  std::string const large = m_place.write("large.json", qvHostile::makeManyTexts(2000));
  ToolRun const run = runTool({"inspect", "--json", "--full", large, large, m_plain}, setting);
  EXPECT_EQ(run.m_exitCode, ExitOutputFailed);
  EXPECT_EQ(run.m_errors, "qvannot: cannot write to standard output: No space left on device\n");
}

}  // namespace

}  // namespace qvTest
