#include "qvToolkit/work/pool.h"

#include <sched.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <stdexcept>

#include "poolFixture.h"

namespace qvToolkit {

namespace {

TEST_F(PoolTest, GivesTheSameHoweverManyProcessesWork) {
  addInputs(20);
  addFile("{");
  m_inputs.push_back({m_folder.getPath("none"), "none", "none"});
  addFile("");
  addInputs(3);
  for (Action const action : {Action::Migrate, Action::Inspect}) {
    m_request.m_action = action;
    m_options.m_processes = 1;
    Shown const one = run();
    EXPECT_TRUE(one.m_isDone);
    EXPECT_EQ(one.m_shown.size(), m_inputs.size());
    EXPECT_EQ(one.m_files.size(), action == Action::Migrate ? 68U : 0U);
    for (std::size_t const processes : {2U, 7U}) {
      m_options.m_processes = processes;
      EXPECT_EQ(run(), one) << processes;
    }
    m_options.m_program = {QVANNOT_PATH, "worker"};
    EXPECT_EQ(run(), one) << "by a program";
    m_options.m_program.clear();
    m_request.m_limits.lift();
    EXPECT_EQ(run(), one) << "in this process";
    m_request.m_limits = {};
  }
}

TEST_F(PoolTest, RelaysMessagesInTheOrderOfTheInputs) {
  addInputs(9);
  behave([](std::size_t index) { std::fprintf(stderr, "message %zu\n", index); });
  m_options.m_processes = 1;
  Shown const one = run();
  EXPECT_NE(one.m_shown.at(4).find("message 4\n"), std::string::npos);
  m_options.m_processes = 7;
  EXPECT_EQ(run(), one);
}

TEST_F(PoolTest, LetsNoMoreThanFourResultsOfEachProcessWait) {
  constexpr std::size_t Most = 8;
  addInputs(3 * Most);
  m_options.m_processes = 2;
  // The first one ends only when the last one that may begin before is gone.
  behave([this](std::size_t index) {
    if (index == Most - 1) __atomic_store_n(&m_shared->m_last, getpid(), __ATOMIC_SEQ_CST);
    if (index != 0) return;
    pid_t last = 0;
    while ((last = __atomic_load_n(&m_shared->m_last, __ATOMIC_SEQ_CST)) == 0) sched_yield();
    while (kill(last, 0) == 0) sched_yield();
  });
  std::size_t shown = 0;
  std::size_t most = 0;
  m_options.m_onBegin = [&](std::size_t index) { most = std::max(most, index + 1 - shown); };
  expectAllDone(run([&shown](PoolResult const&) { return ++shown > 0; }));
  EXPECT_EQ(most, Most);
}

TEST_F(PoolTest, WorksOnFewerAtATimeWhereFewFilesMayBeOpened) {
  addInputs(60);
  m_options.m_processes = 60;
  rlimit before{};
  ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
  rlimit few = before;
  few.rlim_cur = 128;
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &few), 0);
  Shown const done = run();
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &before), 0);
  expectAllDone(done);
}

TEST_F(PoolTest, EndsWhereNobodyWantsMoreAndLeavesWholeResultsOnly) {
  addInputs(12);
  m_options.m_processes = 3;
  Shown const done = run([](PoolResult const& result) { return result.m_index < 4; });
  EXPECT_FALSE(done.m_isDone);
  EXPECT_EQ(done.m_shown.size(), 5U);
  for (auto const& [name, bytes] : done.m_files) EXPECT_FALSE(name.starts_with(".")) << name;
}

TEST_F(PoolTest, EndsWhenItIsInterruptedAndKillsWhatIsAtWork) {
  addInputs(12);
  for (std::size_t const processes : {1U, 3U}) {
    volatile int interrupted = 0;
    m_options.m_processes = processes;
    m_options.m_interrupted = &interrupted;
    m_options.m_onBegin = [&interrupted](std::size_t index) { interrupted = index == 6 ? SIGINT : 0; };
    behave([](std::size_t index) {
      while (index >= 6) pause();
    });
    Shown const done = run();
    EXPECT_FALSE(done.m_isDone);
    EXPECT_LE(done.m_shown.size(), 6U);
    EXPECT_FALSE(done.m_files.contains("doc6.migrated.json"));
    for (auto const& [name, bytes] : done.m_files) EXPECT_FALSE(name.starts_with(".")) << name;
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "nothing is left";
  }
}

TEST_F(PoolTest, RemovesWhatItHasStagedWhenShowingThrows) {
  addInputs(6);
  m_options.m_processes = 2;
  EXPECT_THROW(run([](PoolResult const&) -> bool { throw std::runtime_error("no"); }), std::runtime_error);
  for (auto const& entry : std::filesystem::directory_iterator(m_options.m_outputFolder))
    EXPECT_FALSE(entry.path().filename().string().starts_with(".")) << entry.path();
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "nothing is left";
}

TEST_F(PoolTest, ReplacesFilesOnlyWhereItIsForced) {
  addInputs(2);
  std::string const old = m_folder.writeFile("out/doc1.migrated.json", "old");
  Shown const careful = run();
  EXPECT_EQ(careful.m_findings.at(1).back().m_code, FindingCode::OutputExists);
  EXPECT_EQ(careful.m_files.at("doc1.migrated.json"), "old");
  EXPECT_FALSE(careful.m_files.contains("doc1.view-0000.svg"));
  m_folder.writeFile("out/doc1.migrated.json", "old");
  m_options.m_force = true;
  EXPECT_NE(run().m_files.at("doc1.migrated.json"), "old");
}

TEST_F(PoolTest, TellsWhatTheWorkOnEachInputTook) {
  addInputs(2);
  std::vector<RunFacts> facts;
  run([&facts](PoolResult const& result) {
    facts.push_back(result.m_facts);
    return true;
  });
  ASSERT_EQ(facts.size(), 2U);
  EXPECT_EQ(facts[1].m_givenPath, m_inputs[1].m_givenPath);
  EXPECT_GT(facts[1].m_process, 0);
  EXPECT_NE(facts[0].m_process, facts[1].m_process);
  EXPECT_GT(facts[1].m_peakMemory, 0U);
}

TEST_F(PoolTest, OfNoInputsDoesNothing) {
  EXPECT_TRUE(run().m_isDone);
  EXPECT_FALSE(std::filesystem::exists(m_options.m_outputFolder));
}

}  // namespace

}  // namespace qvToolkit
