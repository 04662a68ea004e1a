#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <cstdlib>
#include <stdexcept>

#include "files/fileDescriptor.h"
#include "files/wholeIo.h"
#include "poolFixture.h"
#include "work/frame.h"
#include "work/taskEnd.h"

/// What a pool makes of processes that die, and of those that tell what is not so.
namespace qvToolkit {

namespace {

class PoolDeaths : public PoolTest {};

TEST_F(PoolDeaths, TellsWhatAProcessDiedOfAndDoesTheRest) {
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

TEST_F(PoolDeaths, TellsADeathAlsoWhereTheHostIgnoresTheEndOfProcesses) {
  addInputs(3);
  behave([](std::size_t index) {
    if (index == 1) raise(SIGKILL);
  });
  auto* const previous = signal(SIGCHLD, SIG_IGN);
  Shown const done = run();
  signal(SIGCHLD, previous);
  EXPECT_EQ(listDead(done), std::vector<std::size_t>{1});
}

TEST_F(PoolDeaths, LosesOnlyWhatAKilledProgramWorkedOn) {
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

TEST_F(PoolDeaths, LosesNothingByAProgramThatIsKilledWhileItHasNothingToDo) {
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

TEST_F(PoolDeaths, LosesNothingByAProgramThatIsKilledBeforeItIsReady) {
  addInputs(3);
  m_options.m_hooks.m_makeMemory = [this](Limits const&) {
    if (++m_shared->m_launches < 3) raise(SIGKILL);
    return MemoryHooks{};
  };
  expectAllDone(run());
  EXPECT_EQ(m_shared->m_launches, 3);
}

TEST_F(PoolDeaths, LosesWhatAProgramIsNeverReadyFor) {
  addInputs(2);
  m_options.m_hooks.m_makeMemory = [](Limits const&) {
    raise(SIGKILL);
    return MemoryHooks{};
  };
  Shown const done = run();
  EXPECT_TRUE(done.m_isDone);
  EXPECT_EQ(listDead(done).size(), 2U);
  EXPECT_TRUE(done.m_files.empty());
}

TEST_F(PoolDeaths, TellsWhyTheProgramRefuses) {
  addInput();
  m_request.m_rasterFolder = "/nowhere/at/all";
  try {
    run();
    FAIL();
  } catch (std::runtime_error const& error) {
    EXPECT_NE(std::string(error.what()).find("'/nowhere/at/all'"), std::string::npos) << error.what();
  }
}

TEST_F(PoolDeaths, TakesNoOtherProgramForAWorker) {
  addInput();
  std::string const garbage = "printf 'this is no frame at all' >&0; exec sleep 600";
  for (auto const& words :
       std::vector<std::vector<std::string>>{{"sh", "-c", garbage}, {"true"}, {"/nowhere/x"}}) {
    m_options.m_program = words;
    Shown const done = run();
    ASSERT_EQ(listDead(done).size(), 1U) << words[0];
    bool const isMissing = words[0] == "/nowhere/x";
    std::string const& text = done.m_findings[0].back().m_text;
    EXPECT_EQ(text.find("No such file or directory") != std::string::npos, isMissing) << text;
  }
}

std::string makeFrame(FrameKind kind, std::string const& bytes) {
  auto const size = static_cast<std::uint32_t>(bytes.size());
  return formatFrameHead({static_cast<std::uint32_t>(kind), 0, size}) + bytes;
}

TEST_F(PoolDeaths, BelievesNoProgramThatTellsOfWorkThatNobodyGaveIt) {
  addInputs(2);
  std::string const ready = makeFrame(FrameKind::Ready, {});
  std::string const end = makeFrame(FrameKind::Ended, formatTaskEnd({.m_task = 99}));
  for (std::string const& bytes : {end, makeFrame(FrameKind::Ended, "{}"), makeFrame(FrameKind::Text, "x")}) {
    std::string const first = m_folder.writeFile("ready", ready);
    std::string const second = m_folder.writeFile("told", bytes);
    m_options.m_program = {"sh", "-c", "cat '" + first + "' >&0; cat '" + second + "' >&0; exec sleep 600"};
    EXPECT_EQ(listDead(run()).size(), 2U);
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

TEST_F(PoolDeaths, BelievesNoAnswerThatIsNone) {
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

TEST_F(PoolDeaths, GivesNoNameToAFileOutsideItsFolder) {
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

TEST_F(PoolDeaths, HandsNothingThatTheHostHasOpenToItsProcesses) {
  std::vector<FileDescriptor> opened;
  for (int i = 0; i < 150; ++i) opened.emplace_back(open("/dev/null", O_RDONLY | O_CLOEXEC));
  int const last = opened.back().get();
  addInputs(3);
  behave([last](std::size_t index) {
    if (index == 1 && fcntl(last, F_GETFD) >= 0) std::abort();
  });
  expectAllDone(run());
}

}  // namespace

}  // namespace qvToolkit
