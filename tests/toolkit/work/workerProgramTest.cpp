#include "qvToolkit/work/workerProgram.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <random>

#include "channel.h"
#include "files/spool.h"
#include "qvToolkit/json/jsonWriter.h"
#include "qvToolkit/outcome/outcomeJson.h"
#include "tests/support/temporaryFolder.h"
#include "work/answer.h"
#include "work/taskEnd.h"
#include "work/taskOrder.h"

namespace qvToolkit {

namespace {

/// Of an input in which the process of a task has not got farther than to its bytes.
using Behaviour = std::function<void()>;

/// A worker program in a process of its own, and its client.
class WorkerProgramTest : public testing::Test {
 protected:
  ~WorkerProgramTest() override {
    if (m_process > 0) finish();
  }

  void start(Behaviour const& behave = nullptr) {
    m_process = fork();
    if (m_process != 0) {
      m_channel.m_far.reset();
      return;
    }
    m_channel.m_near.reset();
    ProgramHooks hooks;
    hooks.m_makeMemory = [&behave](Limits const&) {
      MemoryHooks memory;
      if (behave) memory.m_onInput = [&behave](std::uint64_t) { behave(); };
      return memory;
    };
    _exit(serveClient(m_channel.m_far.get(), hooks));
  }
  /// Goes away, and returns the exit code; -1 when a signal ended it.
  int finish() {
    m_channel.m_near.reset();
    return wait();
  }
  int wait() {
    int status = 0;
    waitpid(m_process, &status, 0);
    m_process = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  bool send(FrameKind kind, std::string_view bytes = {}) const {
    return sendFrame(m_channel.m_near.get(), kind, bytes);
  }
  bool request() {
    JsonWriter json;
    writeRequest(json, m_request);
    if (!send(FrameKind::Request, json.takeText())) return false;
    auto const answer = receive();
    return answer.has_value() && answer->m_kind == FrameKind::Ready;
  }
  std::optional<Frame> receive() { return qvTest::receiveFrame(m_reader, m_channel.m_near.get()); }
  void expectRefusal(std::string const& why) {
    auto const answer = receive();
    ASSERT_TRUE(answer.has_value());
    EXPECT_EQ(answer->m_kind, FrameKind::Refused);
    EXPECT_NE(answer->m_bytes.find(why), std::string::npos) << answer->m_bytes;
    EXPECT_EQ(wait(), ExitUsage);
  }

  bool sendInput(std::uint64_t number = 7) {
    FileDescriptor const input(
        open(m_folder.writeFile("doc", R"([{"ver":"6.22","name":"one"}])").c_str(), O_RDONLY | O_CLOEXEC));
    TaskOrder order;
    order.m_number = number;
    order.m_task = {"given/doc", "doc", "doc", input.get()};
    order.m_answer = m_answer.getDescriptor();
    order.m_errors = m_errors.getDescriptor();
    return sendTask(m_channel.m_near.get(), order);
  }
  std::optional<TaskEnd> receiveEnd() {
    auto frame = receive();
    if (!frame.has_value() || frame->m_kind != FrameKind::Ended) return std::nullopt;
    return parseTaskEnd(std::move(frame->m_bytes));
  }
  /// What the process that behaves like that died of.
  std::optional<Finding> findDeathOf(Behaviour const& behave) {
    start(behave);
    EXPECT_TRUE(request() && sendInput());
    m_end = receiveEnd().value_or(TaskEnd{});
    EXPECT_EQ(m_end.m_task, 7U);
    return findDeath(m_end, m_request.m_limits, AnswerReader(m_answer).isWhole());
  }
  void expectDeath(Behaviour const& behave, FindingCode code, std::string const& text) {
    auto const death = findDeathOf(behave);
    ASSERT_TRUE(death.has_value());
    EXPECT_EQ(death->m_code, code) << death->m_text;
    EXPECT_NE(death->m_text.find(text), std::string::npos) << death->m_text;
  }

  qvTest::TemporaryFolder m_folder;
  qvTest::Channel m_channel;
  FrameReader m_reader;
  Request m_request;
  Spool m_answer;
  Spool m_errors;
  TaskEnd m_end;
  pid_t m_process = -1;
};

TEST_F(WorkerProgramTest, TellsHowTheWorkEndedAndLeavesItsAnswer) {
  EXPECT_FALSE(findDeathOf(nullptr).has_value());
  EXPECT_GT(m_end.m_process, 0);
  EXPECT_NE(m_end.m_process, m_process) << "each input has a process of its own";
  EXPECT_GT(m_end.m_peakMemory, 0U);
  AnswerReader const answer(m_answer);
  Outcome outcome;
  EXPECT_EQ(readOutcome(answer.getOutcome(), outcome), "");
  EXPECT_EQ(outcome.m_source.m_path, "doc");
  EXPECT_EQ(outcome.m_views.size(), 1U);
  EXPECT_EQ(finish(), ExitDone);
}

TEST_F(WorkerProgramTest, WorksOnOneInputAfterTheOther) {
  start();
  ASSERT_TRUE(request() && send(FrameKind::Warm));
  for (std::uint64_t number = 0; number < 5; ++number) {
    ASSERT_TRUE(sendInput(number));
    EXPECT_EQ(receiveEnd().value_or(TaskEnd{99}).m_task, number);
  }
  EXPECT_EQ(finish(), ExitDone);
}

TEST_F(WorkerProgramTest, KeepsWhatLibrariesPrintApart) {
  EXPECT_FALSE(findDeathOf([] { std::fputs("a message\n", stderr); }).has_value());
  EXPECT_EQ(m_errors.read(0, 100), "a message\n");
}

TEST_F(WorkerProgramTest, TellsTheSignalOfACrash) {
  expectDeath([] { std::abort(); }, FindingCode::WorkerCrashed, "signal 6");
}

TEST_F(WorkerProgramTest, TellsTheSignalOfAnotherCrash) {
  expectDeath([] { raise(SIGILL); }, FindingCode::WorkerCrashed, "signal 4");
}

TEST_F(WorkerProgramTest, DoesNotTakeAKilledProcessForACrash) {
  expectDeath([] { raise(SIGKILL); }, FindingCode::WorkerKilled, "killed");
}

TEST_F(WorkerProgramTest, BelievesNoExitCodeWithoutAnAnswer) {
  expectDeath([] { _exit(0); }, FindingCode::WorkerGarbage, "code 0");
}

TEST_F(WorkerProgramTest, BelievesNoOtherExitCode) {
  expectDeath([] { _exit(42); }, FindingCode::WorkerGarbage, "code 42");
}

TEST_F(WorkerProgramTest, EndsWorkThatSpinsByItsProcessorTime) {
  m_request.m_limits.set(Limit::Time, 1);
  auto const spin = [] {
    for (;;) std::atomic_signal_fence(std::memory_order_seq_cst);
  };
  expectDeath(spin, FindingCode::LimitTime, "1 seconds of processor time");
}

TEST_F(WorkerProgramTest, EndsWorkThatSleepsByTheClockWhateverItHasClosed) {
  m_request.m_limits.set(Limit::Time, 1);
  auto const hide = [] {
    close_range(STDERR_FILENO + 1, ~0U, 0);
    for (;;) pause();
  };
  expectDeath(hide, FindingCode::LimitTime, "2 seconds by the clock");
}

/// Waits for a process that this one has inherited, and returns its wait status.
int waitForOrphan(pid_t process) {
  int status = -1;
  waitpid(process, &status, 0);
  return status;
}

/// Tells its number, then does nothing for ever.
[[noreturn]] void tellAndPause(int file) {
  pid_t const own = getpid();
  if (write(file, &own, sizeof own) != sizeof own) _exit(1);
  for (;;) pause();
}

/// Starts a process that does nothing for ever, and tells its number.
void leaveAnother(int file) {
  pid_t const other = fork();
  while (other == 0) pause();
  if (write(file, &other, sizeof other) != sizeof other) _exit(1);
}

class OrphansTest : public WorkerProgramTest {
 protected:
  OrphansTest() {
    prctl(PR_SET_CHILD_SUBREAPER, 1);
    if (pipe(m_ends.data()) != 0) abort();
  }
  ~OrphansTest() override {
    prctl(PR_SET_CHILD_SUBREAPER, 0);
    close(m_ends[0]);
    close(m_ends[1]);
  }
  pid_t readNumber() const {
    pid_t number = -1;
    return read(m_ends[0], &number, sizeof number) == sizeof number ? number : -1;
  }
  static bool isKilled(int status) { return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL; }

  std::array<int, 2> m_ends{};
};

TEST_F(OrphansTest, ThatAProcessLeavesBehindAreKilledAlong) {
  auto const death = findDeathOf([this] {
    leaveAnother(m_ends[1]);
    _exit(0);
  });
  ASSERT_TRUE(death.has_value());
  EXPECT_EQ(death->m_code, FindingCode::WorkerGarbage);
  EXPECT_TRUE(isKilled(waitForOrphan(readNumber())));
}

TEST_F(OrphansTest, AreNotThereWhenTheClientIsGone) {
  start([this] {
    leaveAnother(m_ends[1]);
    for (;;) pause();
  });
  ASSERT_TRUE(request() && sendInput());
  pid_t const grandchild = readNumber();
  EXPECT_EQ(finish(), ExitDone);
  EXPECT_TRUE(isKilled(waitForOrphan(grandchild)));
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "nothing is left";
}

TEST_F(OrphansTest, EndWithAProgramThatIsKilled) {
  start([this] { tellAndPause(m_ends[1]); });
  ASSERT_TRUE(request() && sendInput());
  pid_t const task = readNumber();
  kill(m_process, SIGKILL);
  EXPECT_FALSE(receive().has_value());
  EXPECT_EQ(wait(), -1);
  EXPECT_TRUE(isKilled(waitForOrphan(task)));
}

TEST_F(WorkerProgramTest, RefusesAnInputBeforeTheRequest) {
  start();
  ASSERT_TRUE(sendInput());
  expectRefusal("no request came before");
}

TEST_F(WorkerProgramTest, RefusesARequestThatIsNone) {
  start();
  ASSERT_TRUE(send(FrameKind::Request, R"({"action":"melt"})"));
  expectRefusal("expected a member of this name");
}

TEST_F(WorkerProgramTest, RefusesARequestForAFolderThatIsNotThere) {
  m_request.m_rasterFolder = "/nowhere/at/all";
  start();
  JsonWriter json;
  writeRequest(json, m_request);
  ASSERT_TRUE(send(FrameKind::Request, json.takeText()));
  expectRefusal("'/nowhere/at/all'");
}

TEST_F(WorkerProgramTest, RefusesASecondRequest) {
  start();
  ASSERT_TRUE(request() && send(FrameKind::Request, "{}"));
  expectRefusal("no frame that a client may send");
}

TEST_F(WorkerProgramTest, RefusesATaskWithoutItsFiles) {
  start();
  ASSERT_TRUE(request() && send(FrameKind::Task, R"({"task":1})"));
  expectRefusal("no proper task");
}

TEST_F(WorkerProgramTest, RefusesATaskOfTooManyFiles) {
  start();
  ASSERT_TRUE(request());
  std::vector<int> const files(5, m_answer.getDescriptor());
  ASSERT_TRUE(sendFrame(m_channel.m_near.get(), FrameKind::Task, "{}", files));
  expectRefusal("no proper task");
}

TEST_F(WorkerProgramTest, RefusesAHugeLengthBeforeItComes) {
  start();
  ASSERT_TRUE(m_channel.send(formatFrameHead({1, 0, 0xFFFFFFFFU})));
  expectRefusal("no frame");
}

TEST_F(WorkerProgramTest, EndsQuietlyWithARequestThatIsCutShort) {
  start();
  ASSERT_TRUE(m_channel.send(formatFrameHead({1, 0, 100}) + "{\"action\""));
  EXPECT_EQ(finish(), ExitDone);
}

TEST_F(WorkerProgramTest, OutlivesNoGarbageAndCrashesOfNone) {
  std::minstd_rand random(20260302);
  for (int run = 0; run < 30; ++run) {
    m_channel = qvTest::Channel();
    m_reader = FrameReader();
    start();
    bool const isReady = run % 2 == 1 || request();
    ASSERT_TRUE(isReady);
    std::string bytes(1 + random() % 300, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    static_cast<void>(m_channel.send(bytes));
    int const exitCode = finish();
    EXPECT_TRUE(exitCode == ExitUsage || exitCode == ExitDone) << run << ": " << exitCode;
  }
}

TEST(WorkerProgram, OfWhatIsNoSocketEnds) {
  FileDescriptor const file(open("/dev/null", O_RDONLY | O_CLOEXEC));
  EXPECT_EQ(serveClient(file.get(), {}), ExitDone);
}

}  // namespace

}  // namespace qvToolkit
