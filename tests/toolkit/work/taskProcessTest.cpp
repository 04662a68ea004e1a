#include "work/taskProcess.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

#include "files/fileDescriptor.h"
#include "files/spool.h"
#include "qvToolkit/findings/exitCode.h"

namespace qvToolkit {

namespace {

/// Runs `work` in the process of a task, and returns what it returns; -1 when a signal ended it.
template <class Work>
int runTask(Work work, Limits const& limits = {}, int errors = STDERR_FILENO) {
  FileDescriptor const input(open("/dev/null", O_RDONLY | O_CLOEXEC));
  pid_t const parent = getpid();
  pid_t const child = fork();
  if (child == 0) {
    becomeTaskProcess(limits, input.get(), errors, parent);
    _exit(work());
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

rlim_t getLimit(decltype(RLIMIT_AS) resource) {
  rlimit limit{};
  getrlimit(resource, &limit);
  return limit.rlim_cur;
}

TEST(TaskProcess, LivesUnderLimitsOfTheSystem) {
  auto const check = [] {
    if (getLimit(RLIMIT_CORE) != 0) return 1;
    if (getLimit(RLIMIT_NOFILE) != 64) return 2;
    if (getLimit(RLIMIT_CPU) != 60) return 3;
    if (getLimit(RLIMIT_FSIZE) != rlim_t{2} << 30) return 4;
    return prctl(PR_GET_NO_NEW_PRIVS, 0, 0, 0, 0) == 1 ? 0 : 5;
  };
  EXPECT_EQ(runTask(check), 0);
}

TEST(TaskProcess, LivesUnderTheLimitsThatAreSet) {
  Limits limits;
  limits.set(Limit::Time, 7);
  limits.set(Limit::OutputFile, std::uint64_t{1} << 30);
  EXPECT_EQ(runTask([] { return getLimit(RLIMIT_CPU) == 7 ? 0 : 1; }, limits), 0);
  EXPECT_EQ(runTask([] { return getLimit(RLIMIT_FSIZE) == rlim_t{1} << 30 ? 0 : 1; }, limits), 0);
  limits.set(Limit::OutputFile, 1);
  EXPECT_EQ(runTask([] { return getLimit(RLIMIT_FSIZE) == rlim_t{64} << 20 ? 0 : 1; }, limits), 0)
      << "what it says goes into a file, too";
}

TEST(TaskProcess, NeverRaisesALimitOfItsCaller) {
  auto const check = [] {
    rlimit const few{20, 20};
    if (setrlimit(RLIMIT_NOFILE, &few) != 0) return 1;
    return runTask([] { return getLimit(RLIMIT_NOFILE) == 20 ? 0 : 1; });
  };
  EXPECT_EQ(runTask(check), 0);
}

TEST(TaskProcess, EndsWithItsParentAndHasAGroupOfItsOwn) {
  auto const check = [] {
    int deathSignal = 0;
    prctl(PR_GET_PDEATHSIG, &deathSignal);
    if (deathSignal != SIGKILL) return 1;
    return getpgrp() == getpid() ? 0 : 2;
  };
  EXPECT_EQ(runTask(check), 0);
}

TEST(TaskProcess, DoesNotBeginWhenItsParentIsGone) {
  pid_t const child = fork();
  if (child == 0) {
    becomeTaskProcess({}, STDIN_FILENO, STDERR_FILENO, getppid() + 1);
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(WEXITSTATUS(status), ExitBug);
}

TEST(TaskProcess, HasStandardStreamsOfItsOwn) {
  Spool const errors;
  auto const work = [] {
    char byte = 0;
    bool const isEmpty = read(STDIN_FILENO, &byte, 1) == 0;
    bool const isTaken = write(STDOUT_FILENO, "lost", 4) == 4 && write(STDERR_FILENO, "error", 5) == 5;
    return isEmpty && isTaken ? 0 : 1;
  };
  EXPECT_EQ(runTask(work, {}, errors.getDescriptor()), 0);
  EXPECT_EQ(errors.read(0, 100), "error");
}

TEST(TaskProcess, HasTwiceItsProcessorTimeByTheClock) {
  EXPECT_EQ(getClockSeconds(60), 120U);
  EXPECT_EQ(getClockSeconds(Limits::Unlimited), 2'000'000U);
}

class TaskMemory : public testing::Test {
 protected:
  void SetUp() override {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the sanitizer needs its address space";
#endif
  }
};

TEST_F(TaskMemory, CannotGrowMuchMoreThanItsLimitInSmallPieces) {
  auto const allocate = [] {
    limitProcessMemory(std::uint64_t{64} << 20);
    std::size_t bytes = 0;
    // Past the counter, as other libraries do. It all goes with the process.
    for (constexpr std::size_t Piece = 10000; std::malloc(Piece) != nullptr; bytes += Piece) continue;
    return bytes < std::size_t{64 + 8} << 20 && bytes > std::size_t{32} << 20 ? 0 : 1;
  };
  EXPECT_EQ(runTask(allocate), 0);
}

TEST_F(TaskMemory, CannotBeMappedBeyondItsLimit) {
  auto const allocate = [] {
    limitProcessMemory(std::uint64_t{64} << 20);
    void* const memory = std::malloc(std::size_t{300} << 20);
    bool const isRefused = memory == nullptr;
    std::free(memory);
    return isRefused ? 0 : 1;
  };
  EXPECT_EQ(runTask(allocate), 0);
}

TEST_F(TaskMemory, MayBeLimitedAnewForMore) {
  auto const allocate = [] {
    limitProcessMemory(std::uint64_t{16} << 20);
    limitProcessMemory(std::uint64_t{512} << 20);
    void* const memory = std::malloc(std::size_t{300} << 20);
    bool const isThere = memory != nullptr;
    std::free(memory);
    return isThere ? 0 : 1;
  };
  EXPECT_EQ(runTask(allocate), 0);
}

}  // namespace

}  // namespace qvToolkit
