#include <gtest/gtest.h>
#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

#include "qvToolkit/work/pool.h"

namespace qvToolkit {

namespace {

/// What `count` gives in a process that may use one processor only.
template <class Count>
int countOnOneProcessor(Count count) {
  pid_t const child = fork();
  if (child == 0) {
    cpu_set_t one;
    CPU_ZERO(&one);
    CPU_SET(sched_getcpu(), &one);
    _exit(sched_setaffinity(0, sizeof one, &one) == 0 ? static_cast<int>(count()) : 99);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WEXITSTATUS(status);
}

Limits limitMemory(std::uint64_t bytes) {
  Limits limits;
  limits.set(Limit::Memory, bytes);
  return limits;
}

TEST(ProcessCount, IsOneWhereEachTakesAllMemory) {
  EXPECT_EQ(getDefaultProcesses(limitMemory(std::uint64_t{1} << 60)), 1U);
  EXPECT_EQ(getDefaultProcesses(limitMemory(Limits::Unlimited)), 1U);
}

TEST(ProcessCount, IsThatOfProcessorsWhereMemoryIsPlenty) {
  cpu_set_t processors;
  CPU_ZERO(&processors);
  ASSERT_EQ(sched_getaffinity(0, sizeof processors, &processors), 0);
  std::size_t const count = getDefaultProcesses(limitMemory(1));
  EXPECT_GE(count, 1U);
  EXPECT_LE(count, static_cast<std::size_t>(CPU_COUNT(&processors)));
  EXPECT_EQ(getDefaultProcesses(limitMemory(0)), count);
}

TEST(ProcessCount, FollowsTheAffinityOfTheProcess) {
  EXPECT_EQ(countOnOneProcessor([] { return getDefaultProcesses(limitMemory(1)); }), 1);
}

TEST(ProcessCount, IsNotMoreWhereEachMayTakeMore) {
  EXPECT_LE(getDefaultProcesses(limitMemory(std::uint64_t{1} << 34)),
            getDefaultProcesses(limitMemory(std::uint64_t{1} << 20)));
}

}  // namespace

}  // namespace qvToolkit
