#include "apps/qvannot/worker.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstdlib>

namespace qvannot {

namespace {

using qvToolkit::FindingCode;
using qvToolkit::Limit;
using qvToolkit::Limits;

/// Runs `work` in a worker and returns how that ended. What `work` returns is the exit code.
template <class Work>
WorkerEnd runIn(Worker& worker, Work work) {
  if (!worker.isHere()) return worker.wait();
  int const exitCode = work();
  concludeWorker(exitCode);
  _exit(exitCode);
}

template <class Work>
WorkerEnd runWorker(Work work, Limits const& limits = {}) {
  Worker worker("document", limits);
  return runIn(worker, work);
}

void expectDeath(WorkerEnd const& end, FindingCode code, std::string const& text) {
  EXPECT_FALSE(end.m_exitCode.has_value());
  EXPECT_EQ(end.m_death.m_code, code) << end.m_death.m_text;
  EXPECT_NE(end.m_death.m_text.find(text), std::string::npos) << end.m_death.m_text;
  EXPECT_TRUE(isLimit(end.m_death.m_code));
}

TEST(Worker, TellsItsExitCode) {
  for (int const exitCode : {0, 1, 6, 7, 70}) {
    EXPECT_EQ(runWorker([&] { return exitCode; }).m_exitCode, static_cast<qvToolkit::ExitCode>(exitCode));
  }
}

TEST(Worker, KeepsWhatItPrintsUntilItIsKnownToBeWhole) {
  Limits const limits;
  Worker worker("document", limits);
  WorkerEnd const end = runIn(worker, [] {
    static_cast<void>(write(STDOUT_FILENO, "result", 6) + write(STDERR_FILENO, "error", 5));
    return 1;
  });
  EXPECT_EQ(end.m_exitCode, qvToolkit::ExitFindings);
  EXPECT_EQ(worker.getOutput().read(0, 100), "result");
  EXPECT_EQ(worker.getOutput().read(2, 3), "sul");
  EXPECT_EQ(worker.getOutput().getSize(), 6U);
  EXPECT_EQ(worker.getErrors().read(0, 100), "error");
}

TEST(Worker, ThatCrashesIsReportedWithItsSignal) {
  expectDeath(runWorker([]() -> int { abort(); }), FindingCode::WorkerCrashed, "signal 6");
  expectDeath(runWorker([] { return raise(SIGILL); }), FindingCode::WorkerCrashed, "signal 4");
}

TEST(Worker, ThatSpinsIsEndedByItsProcessorTime) {
  Limits limits;
  limits.set(Limit::Time, 1);
  auto const spin = []() -> int {
    for (;;) std::atomic_signal_fence(std::memory_order_seq_cst);
  };
  expectDeath(runWorker(spin, limits), FindingCode::LimitTime, "second");
}

TEST(Worker, ThatSleepsIsEndedByTheClock) {
  Limits limits;
  limits.set(Limit::Time, 1);
  auto const start = std::chrono::steady_clock::now();
  expectDeath(runWorker([] { return pause(); }, limits), FindingCode::LimitTime, "2 seconds by the clock");
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

TEST(Worker, ThatClosesItsPipeAndSleepsIsEndedByTheClock) {
  Limits limits;
  limits.set(Limit::Time, 1);
  auto const hide = [] {
    close_range(STDERR_FILENO + 1, ~0U, 0);
    return pause();
  };
  expectDeath(runWorker(hide, limits), FindingCode::LimitTime, "2 seconds by the clock");
}

TEST(Worker, IsNotWaitedForWhenAnotherProcessHoldsItsPipe) {
  Limits limits;
  limits.set(Limit::Time, 1);
  auto const leaveAnother = []() -> int {
    if (fork() == 0) pause();
    _exit(0);
  };
  expectDeath(runWorker(leaveAnother, limits), FindingCode::WorkerGarbage, "code 0");
}

TEST(Worker, ThatIsKilledIsNoCrash) {
  expectDeath(runWorker([] { return raise(SIGKILL); }), FindingCode::WorkerKilled, "killed");
}

TEST(Worker, WhoseResultIsNotItsExitCodeIsGarbage) {
  expectDeath(runWorker([]() -> int { _exit(0); }), FindingCode::WorkerGarbage, "code 0");
  expectDeath(runWorker([] { return 42; }), FindingCode::WorkerGarbage, "code 42");
  expectDeath(runWorker([] {
                concludeWorker(3);
                return 3;
              }),
              FindingCode::WorkerGarbage, "code 3");
  expectDeath(runWorker([]() -> int {
                concludeWorker(0);
                _exit(1);
              }),
              FindingCode::WorkerGarbage, "code 1");
}

rlim_t getLimit(decltype(RLIMIT_AS) resource) {
  rlimit limit{};
  getrlimit(resource, &limit);
  return limit.rlim_cur;
}

TEST(Worker, LivesUnderLimitsOfTheSystem) {
  auto const check = [] {
    if (getLimit(RLIMIT_CORE) != 0) return 1;
    if (getLimit(RLIMIT_NOFILE) != 32) return 2;
    if (getLimit(RLIMIT_CPU) != 60) return 3;
    if (getLimit(RLIMIT_FSIZE) != rlim_t{2} << 30) return 4;
    if (prctl(PR_GET_NO_NEW_PRIVS, 0, 0, 0, 0) != 1) return 5;
    int deathSignal = 0;
    prctl(PR_GET_PDEATHSIG, &deathSignal);
    return deathSignal == SIGKILL && isWorker() ? 0 : 6;
  };
  EXPECT_EQ(runWorker(check).m_exitCode, qvToolkit::ExitDone);
  EXPECT_FALSE(isWorker());
}

TEST(Worker, HasNoStandardInputButThatOfItsDocument) {
  char byte = 0;
  EXPECT_EQ(runWorker([&] { return read(STDIN_FILENO, &byte, 1) == 0 ? 0 : 1; }).m_exitCode,
            qvToolkit::ExitDone);
}

class WorkerMemory : public testing::Test {
 protected:
  void SetUp() override {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the sanitizer needs its address space";
#endif
  }
};

TEST_F(WorkerMemory, CannotGrowMuchMoreThanItsLimitInSmallPieces) {
  auto const allocate = [] {
    limitWorkerMemory(std::uint64_t{64} << 20);
    std::size_t bytes = 0;
    // Past the counter, as other libraries do. It all goes with the process.
    for (constexpr std::size_t Piece = 10000; std::malloc(Piece) != nullptr; bytes += Piece) continue;
    return bytes < std::size_t{64 + 8} << 20 && bytes > std::size_t{32} << 20 ? 0 : 1;
  };
  EXPECT_EQ(runWorker(allocate).m_exitCode, qvToolkit::ExitDone);
}

TEST_F(WorkerMemory, CannotBeMappedBeyondItsLimit) {
  auto const allocate = [] {
    limitWorkerMemory(std::uint64_t{64} << 20);
    void* const memory = std::malloc(std::size_t{300} << 20);
    bool const isRefused = memory == nullptr;
    std::free(memory);
    return isRefused ? 0 : 1;
  };
  EXPECT_EQ(runWorker(allocate).m_exitCode, qvToolkit::ExitDone);
}

}  // namespace

}  // namespace qvannot
