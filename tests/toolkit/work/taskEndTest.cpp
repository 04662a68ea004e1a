#include "work/taskEnd.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>

#include "qvToolkit/findings/exitCode.h"

namespace qvToolkit {

namespace {

TaskEnd makeEnd() {
  return {.m_task = 0xFFFFFFFFFFU,
          .m_status = 9,
          .m_isOverdue = true,
          .m_problem = 11,
          .m_process = 4711,
          .m_processorSeconds = 1.25,
          .m_peakMemory = std::uint64_t{5} << 30};
}

/// Ended by itself, with that code.
TaskEnd makeExit(int code) {
  return {.m_task = 1, .m_status = code << 8};
}

void expectDeath(TaskEnd const& end, bool isWhole, FindingCode code, std::string const& text) {
  auto const death = findDeath(end, Limits{}, isWhole);
  ASSERT_TRUE(death.has_value()) << text;
  EXPECT_EQ(death->m_code, code) << death->m_text;
  EXPECT_NE(death->m_text.find(text), std::string::npos) << death->m_text;
  EXPECT_TRUE(isLimit(death->m_code));
}

TEST(TaskEnd, IsReadAsItWasWritten) {
  auto const end = parseTaskEnd(formatTaskEnd(makeEnd()));
  ASSERT_TRUE(end.has_value());
  EXPECT_EQ(end->m_task, 0xFFFFFFFFFFU);
  EXPECT_EQ(end->m_status, 9);
  EXPECT_TRUE(end->m_isOverdue);
  EXPECT_EQ(end->m_problem, 11);
  EXPECT_EQ(end->m_process, 4711);
  EXPECT_EQ(end->m_processorSeconds, 1.25);
  EXPECT_EQ(end->m_peakMemory, std::uint64_t{5} << 30);
}

TEST(TaskEnd, CutShortOrWithoutAMemberIsNone) {
  std::string const whole = formatTaskEnd(makeEnd());
  // The last byte ends the line.
  for (std::size_t size = 0; size + 1 < whole.size(); ++size)
    EXPECT_FALSE(parseTaskEnd(whole.substr(0, size)).has_value()) << size;
  for (std::string const text : {"{}", "null", "[1]", "\"task\"", "{\"task\":1}"})
    EXPECT_FALSE(parseTaskEnd(text).has_value()) << text;
  for (std::string const key :
       {"task", "status", "overdue", "problem", "process", "processorSeconds", "peakMemory"}) {
    std::string text = whole;
    text.replace(text.find('"' + key + '"') + 1, 1, "X");
    EXPECT_FALSE(parseTaskEnd(text).has_value()) << key;
  }
}

TEST(TaskEnd, ByItselfWithAWholeAnswerIsNoDeath) {
  EXPECT_FALSE(findDeath(makeExit(ExitDone), Limits{}, true).has_value());
}

TEST(TaskEnd, WithoutAWholeAnswerOrWithAnotherCodeIsGarbage) {
  expectDeath(makeExit(0), false, FindingCode::WorkerGarbage, "code 0");
  expectDeath(makeExit(42), true, FindingCode::WorkerGarbage, "code 42");
}

TEST(TaskEnd, BySignalIsACrashWhateverTheAnswer) {
  expectDeath({.m_status = SIGABRT}, true, FindingCode::WorkerCrashed, "signal 6");
  expectDeath({.m_status = SIGILL}, true, FindingCode::WorkerCrashed, "signal 4");
}

TEST(TaskEnd, BeingKilledIsNoCrash) {
  expectDeath({.m_status = SIGKILL}, true, FindingCode::WorkerKilled, "killed");
}

TEST(TaskEnd, TellsWhichTimeWasOver) {
  expectDeath({.m_status = SIGXCPU}, true, FindingCode::LimitTime, "60 seconds of processor time");
  expectDeath({.m_status = SIGKILL, .m_isOverdue = true}, true, FindingCode::LimitTime,
              "120 seconds by the clock");
}

TEST(TaskEnd, OfWhatNeverBeganTellsWhy) {
  expectDeath({.m_problem = EAGAIN}, true, FindingCode::WorkerKilled, "Resource temporarily unavailable");
}

}  // namespace

}  // namespace qvToolkit
