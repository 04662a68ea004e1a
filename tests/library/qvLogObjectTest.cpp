#include "annotationLegacy/qvLogObject.h"

#include <gtest/gtest.h>
#include <qvSystem/qvSystemUtils.h>

#include <iostream>
#include <stdexcept>
#include <vector>

// This executable stands in for the platform's clock, thread ids and system log.

namespace {

struct Written {
  std::string m_where;
  qv::qvLog::LogEntry m_entry;
  bool m_argument;
};

std::vector<Written> written;
std::uint64_t clockTime = 0;

}  // namespace

namespace qv {

std::uint64_t qvSystemUtils::GetMSecElapsedSinceEpoch() {
  return clockTime;
}
std::string qvThread::CurrentThreadId() {
  return "thread 7";
}
void qvLog::WriteToSystemLog(LogEntry const& entry, bool echoToConsole) {
  written.push_back({"system", entry, echoToConsole});
}

}  // namespace qv

namespace {

class RecordingLog : public qv::qvLog {
 public:
  void Write(LogEntry& entry, bool flush) override { written.push_back({"target", entry, flush}); }
};

class LogObject : public ::testing::Test {
 protected:
  void SetUp() override {
    written.clear();
    clockTime = 1000;
    qv::qvLog::msInstance = &m_processLog;
  }
  void TearDown() override { qv::qvLog::msInstance = m_before; }

  RecordingLog m_processLog;
  RecordingLog m_target;
  qv::qvLog* m_before = qv::qvLog::msInstance;
};

TEST_F(LogObject, WritesItsTextToTheTargetWhenItIsDestroyed) {
  {
    qv::qvLogObject record(qv::qvLogError, "migration", &m_target, nullptr, true);
    record << "Fail to " << std::string("migrate");
    EXPECT_TRUE(written.empty());
  }
  ASSERT_EQ(written.size(), 1U);
  EXPECT_EQ(written[0].m_where, "target");
  EXPECT_EQ(written[0].m_entry.m_text, "Fail to migrate");
  EXPECT_EQ(written[0].m_entry.m_category, "migration");
  EXPECT_EQ(written[0].m_entry.m_type, qv::qvLogError);
  EXPECT_TRUE(written[0].m_argument);
}

TEST_F(LogObject, PassesItsFlagOnToTheTarget) {
  qv::qvLogObject(qv::qvLogInfo, nullptr, &m_target, nullptr, false) << "x";
  ASSERT_EQ(written.size(), 1U);
  EXPECT_FALSE(written[0].m_argument);
}

TEST_F(LogObject, CarriesTheTimeOfItsConstruction) {
  {
    qv::qvLogObject record(qv::qvLogInfo, nullptr, &m_target, nullptr, false);
    clockTime = 2000;
    record << "x";
  }
  ASSERT_EQ(written.size(), 1U);
  EXPECT_EQ(written[0].m_entry.m_time, 1000U);
}

TEST_F(LogObject, ComputesThePrefixWithTheTime) {
  qv::qvLogObject(qv::qvLogError, "c", &m_target, nullptr, false) << "x";
  ASSERT_EQ(written.size(), 1U);
  qv::qvLog::LogEntry expected = written[0].m_entry;
  expected.computeLogPrefix(true);
  EXPECT_FALSE(expected.m_prefix.empty());
  EXPECT_EQ(written[0].m_entry.m_prefix, expected.m_prefix);
}

TEST_F(LogObject, WithTheTypeDisabledInItsTargetTakesTypeSixAndWritesNothingAnywhere) {
  m_target.SetTypeEnabled(qv::qvLogInfo, false);
  ::testing::internal::CaptureStdout();
  {
    qv::qvLogObject record(qv::qvLogInfo, nullptr, &m_target, "T", true);
    record << "x" << std::string("y");
    EXPECT_EQ(static_cast<int>(record.m_type), 6);
    EXPECT_EQ(record.m_targetLog, nullptr);
    EXPECT_EQ(record.m_text, nullptr);
  }
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
  EXPECT_TRUE(written.empty());
}

TEST_F(LogObject, TypeFilterOfTheProcessLogDoesNotConcernAnotherTarget) {
  m_processLog.SetTypeEnabled(qv::qvLogInfo, false);
  qv::qvLogObject(qv::qvLogInfo, nullptr, &m_target, nullptr, false) << "x";
  EXPECT_EQ(written.size(), 1U);
}

TEST_F(LogObject, GoesToTheSystemLogBeforeItGoesToTheTarget) {
  qv::qvLogObject(qv::qvLogInfo, nullptr, &m_target, "T", true) << "x";
  ASSERT_EQ(written.size(), 2U);
  EXPECT_EQ(written[0].m_where, "system");
  EXPECT_FALSE(written[0].m_argument);
  EXPECT_EQ(written[1].m_where, "target");
  EXPECT_TRUE(written[1].m_argument);
}

TEST_F(LogObject, WithoutTargetAsksTheSystemLogToEcho) {
  ::testing::internal::CaptureStdout();
  qv::qvLogObject(qv::qvLogInfo, nullptr, nullptr, "T", false) << "x";
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
  ASSERT_EQ(written.size(), 1U);
  EXPECT_EQ(written[0].m_where, "system");
  EXPECT_TRUE(written[0].m_argument);
}

TEST_F(LogObject, CountsAnEmptyTagAsPresent) {
  qv::qvLogObject(qv::qvLogInfo, nullptr, nullptr, "", false) << "x";
  ASSERT_EQ(written.size(), 1U);
  EXPECT_EQ(written[0].m_where, "system");
}

TEST_F(LogObject, WithNeitherTargetNorTagWritesPrefixTextAndLineFeedToStandardOutput) {
  qv::qvLog::LogEntry entry;
  entry.m_time = clockTime;
  entry.m_type = qv::qvLogWarning;
  entry.computeLogPrefix(true);
  ::testing::internal::CaptureStdout();
  std::cout.width(80);
  qv::qvLogObject(qv::qvLogWarning, nullptr, nullptr, nullptr, false) << std::string("a\0b", 3);
  std::cout.width(0);
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), entry.m_prefix + std::string("a\0b\n", 4));
  EXPECT_TRUE(written.empty());
}

TEST_F(LogObject, ShowsANullTextByName) {
  qv::qvLogObject(qv::qvLogInfo, nullptr, &m_target, nullptr, false)
      << static_cast<char const*>(nullptr) << std::string("b");
  ASSERT_EQ(written.size(), 1U);
  EXPECT_EQ(written[0].m_entry.m_text, "[NullPtr]b");
}

TEST_F(LogObject, WithAnEmptyTextIsWrittenAllTheSame) {
  qv::qvLogObject(qv::qvLogInfo, nullptr, &m_target, nullptr, false) << "";
  ASSERT_EQ(written.size(), 1U);
  EXPECT_EQ(written[0].m_entry.m_text, "");
}

TEST_F(LogObject, WithNothingAppendedWritesNothing) {
  ::testing::internal::CaptureStdout();
  { qv::qvLogObject const toTarget(qv::qvLogInfo, "c", &m_target, "T", true); }
  { qv::qvLogObject const toStandardOutput(qv::qvLogInfo, "c", nullptr, nullptr, true); }
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
  EXPECT_TRUE(written.empty());
}

TEST_F(LogObject, TreatsAnEmptyCategoryAsNone) {
  qv::qvLogObject const none(qv::qvLogInfo, nullptr, nullptr, nullptr, false);
  qv::qvLogObject const empty(qv::qvLogInfo, "", nullptr, nullptr, false);
  qv::qvLogObject const some(qv::qvLogInfo, "c", nullptr, nullptr, false);
  EXPECT_EQ(none.m_category, nullptr);
  EXPECT_EQ(empty.m_category, nullptr);
  ASSERT_NE(some.m_category, nullptr);
  EXPECT_EQ(*some.m_category, "c");
}

TEST_F(LogObject, CarriesTheThreadIdOnlyWhenTheProcessLogWantsIt) {
  m_target.SetWantsThreadIds(true);
  qv::qvLogObject(qv::qvLogInfo, nullptr, &m_target, nullptr, false) << "x";
  m_processLog.SetWantsThreadIds(true);
  qv::qvLogObject(qv::qvLogInfo, nullptr, &m_target, nullptr, false) << "x";
  ASSERT_EQ(written.size(), 2U);
  EXPECT_EQ(written[0].m_entry.m_threadId, "");
  EXPECT_EQ(written[1].m_entry.m_threadId, "thread 7");
}

TEST_F(LogObject, NeedsNoProcessLog) {
  qv::qvLog::msInstance = nullptr;
  qv::qvLogObject(qv::qvLogInfo, nullptr, &m_target, nullptr, false) << "x";
  ASSERT_EQ(written.size(), 1U);
  EXPECT_EQ(written[0].m_entry.m_threadId, "");
}

TEST_F(LogObject, CopiesTheTextsThatItIsGiven) {
  std::string category = "category";
  std::string tag = "tag";
  qv::qvLogObject const record(qv::qvLogInfo, category.c_str(), nullptr, tag.c_str(), false);
  category.assign(8, 'x');
  tag.assign(3, 'x');
  EXPECT_EQ(*record.m_category, "category");
  EXPECT_EQ(*record.m_systemLogTag, "tag");
}

class ThrowingLog : public qv::qvLog {
 public:
  void Write(LogEntry&, bool) override { throw std::runtime_error("disk full"); }
};

TEST(LogObjectDeathTest, EndsTheProcessWhenWritingThrows) {
  ::testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_DEATH(
      {
        ThrowingLog log;
        qv::qvLogObject(qv::qvLogError, nullptr, &log, nullptr, false) << "x";
      },
      "disk full");
}

}  // namespace
