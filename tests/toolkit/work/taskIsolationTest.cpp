#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <unistd.h>

#include <atomic>
#include <functional>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include "qvToolkit/work/pool.h"
#include "tests/support/temporaryFolder.h"
#include "work/taskEnd.h"

namespace {

using namespace qvToolkit;
using qvTest::TemporaryFolder;

/// What the processes of tasks tell each other.
struct Shared {
  std::atomic<int> m_begun{0};
  std::atomic<bool> m_mayEnd{false};
};

class TaskIsolation : public testing::Test {
 protected:
  void SetUp() override {
    void* const memory =
        mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(memory, MAP_FAILED);
    m_shared = new (memory) Shared;
  }
  void TearDown() override { munmap(m_shared, sizeof(Shared)); }

  /// Works on as many documents, of different sizes, at a time; each process calls `act` with its number.
  std::vector<Outcome> run(std::size_t count, std::function<void(std::size_t)> const& act,
                           std::function<void()> const& onFirst = {}) {
    std::vector<PoolInput> inputs;
    for (std::size_t i = 0; i < count; ++i) {
      std::string const name = "document" + std::to_string(i) + ".json";
      m_folder.writeFile(name, "{}" + std::string(i, ' '));
      inputs.push_back({m_folder.getPath(name), name, "document" + std::to_string(i)});
    }
    PoolOptions options;
    options.m_processes = count;
    options.m_hooks.m_makeMemory = [&act](Limits const&) {
      return MemoryHooks{[&act](std::uint64_t bytes) { act(static_cast<std::size_t>(bytes) - 2); }, {}};
    };
    std::vector<Outcome> outcomes;
    runPool(Request{}, inputs, options, [&](PoolResult const& result) {
      outcomes.push_back(result.m_outcome);
      if (onFirst && result.m_index == 0) onFirst();
      return true;
    });
    return outcomes;
  }

  void await(bool (*isSo)(Shared const&)) const {
    while (!isSo(*m_shared)) sched_yield();
  }

  static bool hasCode(Outcome const& outcome, FindingCode code) {
    for (Finding const& finding : outcome.m_findings) {
      if (finding.m_code == code) return true;
    }
    return false;
  }

  Shared* m_shared = nullptr;
  TemporaryFolder m_folder;
};

TEST_F(TaskIsolation, WhatIsThrownInOneEndsNoOther) {
  auto const act = [this](std::size_t number) {
    ++m_shared->m_begun;
    await([](Shared const& shared) { return shared.m_begun == 2; });
    if (number == 0) throw std::logic_error("a fault in one of them");
    await([](Shared const& shared) { return shared.m_mayEnd.load(); });
  };
  auto const outcomes = run(2, act, [this] { m_shared->m_mayEnd = true; });
  ASSERT_EQ(outcomes.size(), 2U);
  EXPECT_TRUE(hasCode(outcomes[0], FindingCode::WorkerCrashed));
  EXPECT_FALSE(hasCode(outcomes[1], FindingCode::WorkerKilled));
  EXPECT_FALSE(hasCode(outcomes[1], FindingCode::WorkerCrashed));
}

TEST_F(TaskIsolation, AFileThatTakesNoMoreIsAnErrorAndNoSignal) {
  auto const act = [](std::size_t) {
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    rlimit const narrow{16, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &narrow);
    std::string const message(64, 'x');
    while (write(STDERR_FILENO, message.data(), message.size()) > 0) continue;
    setrlimit(RLIMIT_FSIZE, &before);
  };
  auto const outcomes = run(1, act);
  ASSERT_EQ(outcomes.size(), 1U);
  EXPECT_FALSE(hasCode(outcomes[0], FindingCode::WorkerCrashed));
}

TEST_F(TaskIsolation, AResultThatHadNoMemoryIsNoBug) {
  auto const death = findDeath({.m_status = ExitLimit << 8}, Limits{}, /*isWhole*/ false);
  ASSERT_TRUE(death.has_value());
  EXPECT_EQ(death->m_code, FindingCode::LimitMemory);
}

}  // namespace
