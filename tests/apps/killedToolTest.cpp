#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <map>
#include <random>

#include "qvToolkit/findings/exitCode.h"
#include "toolRunner.h"

/// What is left of the tool, and of what it writes, when its processes are killed at any moment.
namespace qvTest {

namespace {

using namespace qvToolkit;

constexpr std::size_t Documents = 16;
constexpr std::size_t FilesOfEach = 3;

class KilledTool : public testing::Test {
 protected:
  KilledTool() {
    // What has lost its parent is waited for here.
    prctl(PR_SET_CHILD_SUBREAPER, 1);
    std::string const view =
        R"({"ver":"6.22","name":"v","annotations":[{"type":"text","name":"a","lines":[[{"text":"hello"}]]}]})";
    for (std::size_t i = 0; i < Documents; ++i)
      m_documents.push_back(m_place.write(getStem(i) + ".json", "[" + view + "," + view + "]"));
  }
  ~KilledTool() override { prctl(PR_SET_CHILD_SUBREAPER, 0); }

  static std::string getStem(std::size_t index) { return "d" + std::to_string(index); }

  std::vector<std::string> makeArguments(std::string const& out, std::vector<std::string> const& more) const {
    std::vector<std::string> arguments{"migrate", "-j", "3", "-o", m_place.getPath(out)};
    arguments.insert(arguments.end(), more.begin(), more.end());
    arguments.insert(arguments.end(), m_documents.begin(), m_documents.end());
    return arguments;
  }
  void start(std::vector<std::string> arguments, std::string const& path = {}) {
    arguments.insert(arguments.begin(), QVANNOT_PATH);
    m_tool = fork();
    if (m_tool != 0) return;
    int const errors = open(m_place.getPath("errors").c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND, 0600);
    dup2(errors, STDERR_FILENO);
    dup2(open("/dev/null", O_RDWR), STDOUT_FILENO);
    if (!path.empty()) setenv("PATH", path.c_str(), 1);
    std::vector<char*> words;
    for (std::string& argument : arguments) words.push_back(argument.data());
    words.push_back(nullptr);
    execv(words[0], words.data());
    _exit(127);
  }
  /// Waits for the tool; its wait status.
  int wait() const {
    int status = 0;
    waitpid(m_tool, &status, 0);
    return status;
  }
  bool isRunning() const {
    siginfo_t info{};
    return waitid(P_PID, static_cast<id_t>(m_tool), &info, WEXITED | WNOHANG | WNOWAIT) == 0 &&
           info.si_pid == 0;
  }
  /// Until it has written that many files, or has ended.
  void awaitFiles(std::size_t count) const {
    while (isRunning() && m_place.list("out").size() < count) sched_yield();
  }
  /// What the tool has left behind ends by itself; how that did.
  static std::map<pid_t, int> awaitOrphans() {
    std::map<pid_t, int> ends;
    int status = 0;
    for (pid_t process = 0; (process = waitpid(-1, &status, 0)) > 0;) ends[process] = status;
    EXPECT_EQ(errno, ECHILD);
    return ends;
  }
  static std::vector<pid_t> listChildren(pid_t process) {
    std::vector<pid_t> children;
    for (auto const& entry : std::filesystem::directory_iterator("/proc")) {
      std::ifstream file(entry.path() / "stat");
      pid_t number = 0;
      std::string name;
      std::string state;
      pid_t parent = 0;
      if (file >> number >> name >> state >> parent && parent == process && state != "Z")
        children.push_back(number);
    }
    return children;
  }

  /// Files as they are when nobody disturbs the tool.
  void makeExpected() {
    ASSERT_EQ(runTool(makeArguments("expected", {})).m_exitCode, ExitDone);
    ASSERT_EQ(m_place.list("expected").size(), Documents * FilesOfEach);
  }
  /// Nothing is half written; how many documents have all their files, and none has some.
  std::size_t countWhole(bool mayBePart = false) const {
    std::size_t whole = 0;
    auto const names = m_place.list("out");
    for (std::size_t i = 0; i < Documents; ++i) {
      auto const isOf = [&](std::string const& name) { return name.starts_with(getStem(i) + "."); };
      auto const count = static_cast<std::size_t>(std::ranges::count_if(names, isOf));
      EXPECT_TRUE(mayBePart || count == 0 || count == FilesOfEach) << getStem(i) << ": " << count;
      if (count == FilesOfEach) ++whole;
    }
    for (std::string const& name : names) {
      if (name.starts_with(".")) continue;
      EXPECT_EQ(m_place.read("out/" + name), m_place.read("expected/" + name)) << name;
    }
    return whole;
  }
  bool hasStaging() const {
    auto const names = m_place.list("out");
    return std::ranges::any_of(names, [](std::string const& name) { return name.starts_with("."); });
  }
  std::size_t countErrors(std::string const& code) const {
    std::string const errors = m_place.read("errors");
    std::size_t count = 0;
    for (auto at = errors.find(code); at != std::string::npos; at = errors.find(code, at + 1)) ++count;
    return count;
  }
  void clear() const { std::filesystem::remove_all(m_place.getPath("out")); }

  Workplace m_place;
  std::vector<std::string> m_documents;
  pid_t m_tool = -1;
  std::minstd_rand m_random{20260303};
};

TEST_F(KilledTool, EndsTidilyByASignalThatAsksItTo) {
  makeExpected();
  for (int const signalNumber : {SIGINT, SIGTERM, SIGHUP, SIGINT}) {
    clear();
    start(makeArguments("out", {}));
    awaitFiles(1 + m_random() % (Documents * FilesOfEach / 2));
    kill(m_tool, signalNumber);
    int const status = wait();
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signalNumber) << status;
    EXPECT_FALSE(hasStaging());
    EXPECT_LT(countWhole(), Documents);
    EXPECT_EQ(countErrors("worker.") + countErrors("qvannot: "), 0U) << m_place.read("errors");
    awaitOrphans();
  }
}

TEST_F(KilledTool, LeavesNothingHalfWrittenAndTheNextRunClearsUp) {
  makeExpected();
  for (int run = 0; run < 4; ++run) {
    clear();
    start(makeArguments("out", {}));
    awaitFiles(1 + m_random() % (Documents * FilesOfEach / 2));
    kill(m_tool, SIGKILL);
    EXPECT_TRUE(WIFSIGNALED(wait()));
    awaitOrphans();
    // Files get their names one after the other.
    EXPECT_LT(countWhole(true), Documents);
    EXPECT_EQ(runTool(makeArguments("out", {"--force"})).m_exitCode, ExitDone);
    EXPECT_EQ(m_place.list("out"), m_place.list("expected")) << "with what was staged";
    EXPECT_EQ(countWhole(), Documents);
  }
}

TEST_F(KilledTool, LosesOneDocumentByAProcessOfOneThatIsKilled) {
  makeExpected();
  for (int run = 0; run < 4; ++run) {
    clear();
    start(makeArguments("out", {}));
    awaitFiles(1 + m_random() % (Documents * FilesOfEach / 2));
    std::size_t killed = 0;
    while (isRunning() && killed == 0) {
      for (pid_t const program : listChildren(m_tool)) {
        auto const tasks = listChildren(program);
        if (!tasks.empty() && kill(tasks[m_random() % tasks.size()], SIGKILL) == 0) ++killed;
      }
    }
    int const status = wait();
    EXPECT_TRUE(WIFEXITED(status));
    std::size_t const dead = countErrors("[worker.killed]");
    // It may have ended meanwhile.
    EXPECT_LE(dead, killed);
    EXPECT_EQ(WEXITSTATUS(status), dead == 0 ? ExitDone : ExitLimit);
    EXPECT_EQ(countWhole(), Documents - dead);
    EXPECT_FALSE(hasStaging());
    awaitOrphans();
  }
}

TEST_F(KilledTool, LosesOnlyWhatItsWorkerProgramWorkedOn) {
  makeExpected();
  for (int run = 0; run < 4; ++run) {
    clear();
    start(makeArguments("out", {}));
    awaitFiles(m_random() % (Documents * FilesOfEach / 2));
    while (isRunning() && listChildren(m_tool).empty()) sched_yield();
    for (pid_t const program : listChildren(m_tool)) kill(program, SIGKILL);
    int const status = wait();
    EXPECT_TRUE(WIFEXITED(status)) << status;
    std::size_t const dead = countErrors("[worker.killed]");
    EXPECT_LE(dead, 3U);
    EXPECT_EQ(WEXITSTATUS(status), dead == 0 ? ExitDone : ExitLimit) << m_place.read("errors");
    EXPECT_EQ(countWhole(), Documents - dead);
    awaitOrphans();
  }
}

TEST_F(KilledTool, TakesItsConvertersAlong) {
  std::string const pipe = m_place.getPath("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  std::string const program =
      m_place.write("bin/rsvg-convert", "#!/bin/sh\necho $$ > '" + pipe + "'\nexec /bin/sleep 600\n");
  ASSERT_EQ(chmod(program.c_str(), 0755), 0);
  for (int const signalNumber : {SIGKILL, SIGTERM, SIGHUP}) {
    start({"migrate", "--format", "png", "-o", m_place.getPath("out"), m_documents[0]},
          m_place.getPath("bin"));
    pid_t converter = 0;
    std::ifstream(pipe) >> converter;
    ASSERT_GT(converter, 0);
    kill(m_tool, signalNumber);
    wait();
    EXPECT_EQ(countErrors("qvannot: "), 0U) << m_place.read("errors");
    // Its parent may have waited for it in the last moment that both had.
    auto const orphans = awaitOrphans();
    auto const orphan = orphans.find(converter);
    EXPECT_TRUE(orphan == orphans.end() || WTERMSIG(orphan->second) == SIGKILL);
    EXPECT_NE(kill(converter, 0), 0) << "it lives";
    EXPECT_EQ(hasStaging(), signalNumber == SIGKILL);
  }
}

}  // namespace

}  // namespace qvTest
