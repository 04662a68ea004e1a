#include "files/childProcess.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>

namespace {

using namespace qvToolkit;

ChildRun runShell(std::string const& script, std::string_view input = {}) {
  return runChild({{"sh", "-c", script}, {"QVA_WORD=given"}}, input);
}

TEST(ChildProcess, PassesInputOutputAndErrors) {
  ChildRun const run = runShell("cat; echo wrong >&2; exit 3", "some text");
  EXPECT_EQ(run.m_problem, 0);
  EXPECT_EQ(run.m_output, "some text");
  EXPECT_EQ(run.m_errors, "wrong\n");
  EXPECT_EQ(run.m_exitCode, 3);
}

TEST(ChildProcess, PassesMoreThanAPipeHolds) {
  std::string const input(3'000'000, 'x');
  EXPECT_EQ(runShell("cat; cat /dev/zero | head -c 1000000 >&2", input).m_output, input);
}

TEST(ChildProcess, PassesWordsAsTheyAre) {
  EXPECT_EQ(runChild({{"printf", "%s|", "a b", "$HOME", "'; rm -rf"}, {}}, {}).m_output,
            "a b|$HOME|'; rm -rf|");
}

TEST(ChildProcess, ChangesTheEnvironmentByName) {
  setenv("QVA_WORD", "inherited", 1);
  setenv("QVA_WORD_2", "kept", 1);
  EXPECT_EQ(runShell("echo $QVA_WORD $QVA_WORD_2").m_output, "given kept\n");
}

TEST(ChildProcess, PassesInputWhereTheStarterHasNoStandardStreams) {
  pid_t const starter = fork();
  if (starter == 0) {
    for (int const number : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) close(number);
    _exit(runShell("cat", "some text").m_output == "some text" ? 7 : 1);
  }
  int status = 0;
  waitpid(starter, &status, 0);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 7) << status;
}

TEST(ChildProcess, DoesNotInheritIgnoredSignals) {
  auto const previous = signal(SIGPIPE, SIG_IGN);
  EXPECT_EQ(runShell("kill -PIPE $$; echo lived").m_signal, SIGPIPE);
  signal(SIGPIPE, previous);
}

TEST(ChildProcess, TellsThatThereIsNoSuchProgram) {
  ChildRun const run = runChild({{"no-such-program-anywhere"}, {}}, {});
  EXPECT_EQ(run.m_problem, ENOENT);
  EXPECT_EQ(run.m_output, "");
}

/// Runs a program in a process that is killed, and returns how the program ended.
int killStarterOfSleep() {
  prctl(PR_SET_CHILD_SUBREAPER, 1);
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) return -1;
  pid_t const starter = fork();
  if (starter == 0) {
    runChild({{"sh", "-c", "echo $$ >&" + std::to_string(ends[1]) + "; exec sleep 600"}, {}}, {});
    _exit(1);
  }
  std::array<char, 16> text{};
  static_cast<void>(read(ends[0], text.data(), text.size() - 1));
  kill(starter, SIGKILL);
  int status = 0;
  waitpid(starter, &status, 0);
  waitpid(std::atoi(text.data()), &status, 0);
  close(ends[0]);
  close(ends[1]);
  return status;
}

TEST(ChildProcess, EndsWithTheProcessThatStartedIt) {
  int const status = killStarterOfSleep();
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << status;
}

}  // namespace
