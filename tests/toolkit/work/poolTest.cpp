#include "qvToolkit/work/pool.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <stdexcept>

#include "files/fileDescriptor.h"
#include "files/wholeIo.h"
#include "qvToolkit/json/jsonWriter.h"
#include "qvToolkit/outcome/outcomeJson.h"
#include "tests/support/temporaryFolder.h"
#include "work/answer.h"
#include "work/frame.h"
#include "work/taskEnd.h"

namespace qvToolkit {

namespace {

/// What the processes of a run tell each other.
struct Shared {
  pid_t m_program = 0;
  int m_launches = 0;
  pid_t m_last = 0;
};

/// What a run showed, and which files it made.
struct Shown {
  bool m_isDone = false;
  std::vector<std::string> m_shown;  ///< in the order of showing
  std::vector<Findings> m_findings;
  std::map<std::string, std::string> m_files;
  bool operator==(Shown const& other) const {
    return m_isDone == other.m_isDone && m_shown == other.m_shown && m_files == other.m_files;
  }
};

class PoolTest : public testing::Test {
 protected:
  PoolTest()
      : m_shared(static_cast<Shared*>(
            mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0))) {
    m_request.m_action = Action::Migrate;
    m_options.m_outputFolder = m_folder.getPath("out");
  }
  ~PoolTest() override { munmap(m_shared, sizeof(Shared)); }

  static std::string makeView(std::size_t number) {
    return R"({"ver":"6.22","name":"view )" + std::to_string(number) +
           R"(","annotations":[{"type":"text","name":"a","lines":[[{"text":"hello"}]]}]})";
  }
  /// A document of one view, or more; its size is that of no other one.
  void addInput(std::size_t views = 1) {
    std::size_t const number = m_inputs.size();
    std::string text = "[" + makeView(number);
    for (std::size_t i = 1; i < views; ++i) text += "," + makeView(number);
    addFile(text + "]" + std::string(number, ' '));
  }
  void addFile(std::string const& content) {
    std::string const name = "doc" + std::to_string(m_inputs.size());
    m_sizes.push_back(content.size());
    m_inputs.push_back({m_folder.writeFile(name, content), name, name});
  }
  void addInputs(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) addInput(1 + i % 3);
  }

  /// What the process of an input does once its bytes are there, by the input's index.
  void behave(std::function<void(std::size_t)> const& behaviour) {
    m_options.m_hooks.m_makeMemory = [this, behaviour](Limits const&) {
      m_shared->m_program = getpid();
      ++m_shared->m_launches;
      MemoryHooks hooks;
      hooks.m_onInput = [this, behaviour](std::uint64_t size) {
        auto const found = std::ranges::find(m_sizes, size);
        behaviour(static_cast<std::size_t>(found - m_sizes.begin()));
      };
      return hooks;
    };
  }

  Shown run(std::function<bool(PoolResult const&)> const& watch = nullptr) {
    Shown run;
    run.m_isDone = runPool(m_request, m_inputs, m_options, [&](PoolResult const& result) {
      EXPECT_EQ(result.m_index, run.m_shown.size()) << "in the order of the inputs";
      run.m_shown.push_back(describe(result));
      run.m_findings.push_back(result.m_outcome.m_findings);
      return !watch || watch(result);
    });
    collectFiles(run);
    return run;
  }
  static std::string describe(PoolResult const& result) {
    JsonWriter json;
    writeOutcome(json, result.m_outcome);
    std::string text = json.takeText() + result.m_messages + (result.m_hasDied ? "died" : "lived");
    EXPECT_TRUE(result.forEachText([&text](std::string_view piece) {
      text += piece;
      return true;
    }));
    return text;
  }
  void collectFiles(Shown& run) const {
    if (!std::filesystem::exists(m_options.m_outputFolder)) return;
    for (auto const& entry : std::filesystem::directory_iterator(m_options.m_outputFolder))
      run.m_files[entry.path().filename()] = qvTest::readFile(entry.path());
    std::filesystem::remove_all(m_options.m_outputFolder);
  }
  std::vector<std::size_t> listDead(Shown const& run, FindingCode code = FindingCode::WorkerKilled) const {
    std::vector<std::size_t> dead;
    for (std::size_t i = 0; i < run.m_findings.size(); ++i) {
      bool const isDead = !run.m_findings[i].empty() && run.m_findings[i].back().m_code == code;
      bool const hasFiles = run.m_files.contains("doc" + std::to_string(i) + ".migrated.json");
      EXPECT_NE(isDead, hasFiles) << i << ": all of an input, or none";
      if (isDead) dead.push_back(i);
    }
    return dead;
  }
  /// Of all inputs, which none is missing of.
  void expectAllDone(Shown const& run) const {
    EXPECT_TRUE(run.m_isDone);
    EXPECT_EQ(run.m_shown.size(), m_inputs.size());
    EXPECT_TRUE(listDead(run).empty());
  }

  qvTest::TemporaryFolder m_folder;
  Request m_request;
  std::vector<PoolInput> m_inputs;
  std::vector<std::uint64_t> m_sizes;
  PoolOptions m_options;
  Shared* m_shared;
};

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

TEST_F(PoolTest, TellsWhatAProcessDiedOfAndDoesTheRest) {
  addInputs(9);
  m_options.m_processes = 3;
  behave([](std::size_t index) {
    if (index == 4) raise(SIGKILL);
  });
  Shown const done = run();
  EXPECT_TRUE(done.m_isDone);
  EXPECT_EQ(listDead(done), std::vector<std::size_t>{4});
  EXPECT_NE(done.m_findings[4].back().m_text.find("the input has " + std::to_string(m_sizes[4]) + " bytes"),
            std::string::npos);
  EXPECT_EQ(m_shared->m_launches, 1);
}

TEST_F(PoolTest, TellsADeathAlsoWhereTheHostIgnoresTheEndOfProcesses) {
  addInputs(3);
  behave([](std::size_t index) {
    if (index == 1) raise(SIGKILL);
  });
  auto* const previous = signal(SIGCHLD, SIG_IGN);
  Shown const done = run();
  signal(SIGCHLD, previous);
  EXPECT_EQ(listDead(done), std::vector<std::size_t>{1});
}

TEST_F(PoolTest, LosesOnlyWhatAKilledProgramWorkedOn) {
  addInputs(12);
  for (std::size_t const processes : {1U, 3U}) {
    m_options.m_processes = processes;
    m_shared->m_launches = 0;
    behave([](std::size_t index) {
      if (index != 5) return;
      kill(getppid(), SIGKILL);
      for (;;) pause();
    });
    Shown const done = run();
    EXPECT_TRUE(done.m_isDone);
    auto const dead = listDead(done);
    EXPECT_NE(std::ranges::find(dead, 5U), dead.end());
    EXPECT_LE(dead.size(), processes);
    EXPECT_EQ(m_shared->m_launches, 2);
  }
}

TEST_F(PoolTest, LosesNothingByAProgramThatIsKilledWhileItHasNothingToDo) {
  addInputs(4);
  behave([](std::size_t) {});
  m_options.m_onBegin = [this](std::size_t index) {
    if (index != 2) return;
    kill(m_shared->m_program, SIGKILL);
    siginfo_t info{};
    waitid(P_PID, static_cast<id_t>(m_shared->m_program), &info, WEXITED | WNOWAIT);
  };
  expectAllDone(run());
  EXPECT_EQ(m_shared->m_launches, 2);
}

TEST_F(PoolTest, LosesNothingByAProgramThatIsKilledBeforeItIsReady) {
  addInputs(3);
  m_options.m_hooks.m_makeMemory = [this](Limits const&) {
    if (++m_shared->m_launches < 3) raise(SIGKILL);
    return MemoryHooks{};
  };
  expectAllDone(run());
  EXPECT_EQ(m_shared->m_launches, 3);
}

TEST_F(PoolTest, GivesUpWhereTheProgramNeverIsReady) {
  addInput();
  m_options.m_hooks.m_makeMemory = [](Limits const&) {
    raise(SIGKILL);
    return MemoryHooks{};
  };
  EXPECT_THROW(run(), std::runtime_error);
  EXPECT_TRUE(std::filesystem::is_empty(m_options.m_outputFolder));
}

TEST_F(PoolTest, TellsWhyTheProgramRefuses) {
  addInput();
  m_request.m_rasterFolder = "/nowhere/at/all";
  try {
    run();
    FAIL();
  } catch (std::runtime_error const& error) {
    EXPECT_NE(std::string(error.what()).find("'/nowhere/at/all'"), std::string::npos) << error.what();
  }
}

TEST_F(PoolTest, TakesNoOtherProgramForAWorker) {
  addInput();
  std::string const garbage = "printf 'this is no frame at all' >&0; exec sleep 600";
  for (auto const& words :
       std::vector<std::vector<std::string>>{{"sh", "-c", garbage}, {"true"}, {"/nowhere/x"}}) {
    m_options.m_program = words;
    try {
      run();
      ADD_FAILURE() << words[0];
    } catch (std::runtime_error const& error) {
      EXPECT_EQ(error.what(), "the worker program '" + words[0] + "' ended before it was ready");
    }
  }
}

std::string makeFrame(FrameKind kind, std::string const& bytes) {
  auto const size = static_cast<std::uint32_t>(bytes.size());
  return formatFrameHead({static_cast<std::uint32_t>(kind), 0, size}) + bytes;
}

TEST_F(PoolTest, BelievesNoProgramThatTellsOfWorkThatNobodyGaveIt) {
  addInputs(2);
  std::string const ready = makeFrame(FrameKind::Ready, {});
  std::string const end = makeFrame(FrameKind::Ended, formatTaskEnd({.m_task = 99}));
  for (std::string const& bytes : {end, makeFrame(FrameKind::Ended, "{}"), makeFrame(FrameKind::Text, "x")}) {
    std::string const first = m_folder.writeFile("ready", ready);
    std::string const second = m_folder.writeFile("told", bytes);
    m_options.m_program = {"sh", "-c", "cat '" + first + "' >&0; cat '" + second + "' >&0; exec sleep 600"};
    // Told at once with the rest it is no worker program at all.
    try {
      EXPECT_EQ(listDead(run()).size(), 2U);
    } catch (std::runtime_error const& error) {
      EXPECT_NE(std::string(error.what()).find("before it was ready"), std::string::npos);
    }
  }
}

/// Leaves these bytes in every file that this process may write.
[[noreturn]] void answer(std::string_view bytes) {
  for (int file = STDERR_FILENO + 1; file < 64; ++file) {
    struct stat status {};
    if (fstat(file, &status) == 0 && S_ISREG(status.st_mode)) static_cast<void>(writeAll(file, bytes));
  }
  _exit(ExitDone);
}

TEST_F(PoolTest, BelievesNoAnswerThatIsNone) {
  std::string const text = makeFrame(FrameKind::Text, "text");
  std::string const huge = formatFrameHead({static_cast<std::uint32_t>(FrameKind::Outcome), 0, 0x3FFFFFFFU});
  std::vector<std::string> const answers{"",   "garbage that is long enough",
                                         text, text + makeFrame(FrameKind::Outcome, "no JSON"),
                                         huge, makeFrame(FrameKind::Outcome, "{}")};
  addInputs(answers.size());
  m_options.m_processes = 2;
  behave([&answers](std::size_t index) { answer(answers[index]); });
  Shown const done = run();
  EXPECT_EQ(listDead(done, FindingCode::WorkerGarbage).size(), answers.size());
  EXPECT_TRUE(done.m_files.empty());
}

TEST_F(PoolTest, GivesNoNameToAFileOutsideItsFolder) {
  addInput();
  m_folder.writeFile("secret", "text");
  behave([](std::size_t) {
    Outcome outcome;
    outcome.m_outputs.push_back({"../../../secret", 0, {}});
    JsonWriter json;
    writeOutcome(json, outcome);
    answer(makeFrame(FrameKind::Outcome, json.takeText()));
  });
  Shown const done = run();
  EXPECT_EQ(done.m_findings.at(0).back().m_code, FindingCode::OutputFailed);
  EXPECT_TRUE(done.m_files.empty());
  EXPECT_EQ(qvTest::readFile(m_folder.getPath("secret")), "text");
}

TEST_F(PoolTest, HandsNothingThatTheHostHasOpenToItsProcesses) {
  std::vector<FileDescriptor> opened;
  for (int i = 0; i < 150; ++i) opened.emplace_back(open("/dev/null", O_RDONLY | O_CLOEXEC));
  int const last = opened.back().get();
  addInputs(3);
  behave([last](std::size_t index) {
    if (index == 1 && fcntl(last, F_GETFD) >= 0) std::abort();
  });
  expectAllDone(run());
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
