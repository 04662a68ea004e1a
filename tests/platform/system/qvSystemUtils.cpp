#include "qvSystem/qvSystemUtils.h"

#include <gtest/gtest.h>

#include <thread>

#include "qvSystem/qvLog.h"
#include "qvSystem/qvSystemLibrary.h"
#include "tests/support/recordingLog.h"

namespace {

TEST(SystemUtils, TheClockCountsMillisecondsOfThisCentury) {
  auto const first = qv::qvSystemUtils::GetMSecElapsedSinceEpoch();
  EXPECT_GT(first, 1577836800000U);  // 2020-01-01
  EXPECT_LT(first, 4102444800000U);  // 2100-01-01
  EXPECT_GE(qv::qvSystemUtils::GetMSecElapsedSinceEpoch(), first);
}

TEST(Thread, EachThreadHasATextOfItsOwn) {
  std::string other;
  std::thread([&other] { other = qv::qvThread::CurrentThreadId(); }).join();
  EXPECT_FALSE(other.empty());
  EXPECT_EQ(qv::qvThread::CurrentThreadId(), qv::qvThread::CurrentThreadId());
  EXPECT_NE(qv::qvThread::CurrentThreadId(), other);
}

class SystemLibrary : public ::testing::Test {
 protected:
  ~SystemLibrary() override { qv::qvLog::msInstance = m_before; }
  void SetUp() override { qv::qvLog::msInstance = &m_log; }
  qvTest::RecordingLog m_log;
  qv::qvLog* m_before = qv::qvLog::msInstance;
};

TEST_F(SystemLibrary, OnlyTheFirstVerboseInitialisationWritesATrace) {
  qv::initializeQvSystem(qv::InitComplete, true);
  qv::initializeQvSystem(qv::InitComplete, true);
  EXPECT_EQ(m_log.records.size(), 1U);
  qv::terminateQvSystem();
  qv::terminateQvSystem();
}

TEST_F(SystemLibrary, AQuietInitialisationWritesNothing) {
  qv::initializeQvSystem(qv::InitMinimal, false);
  qv::terminateQvSystem();
  EXPECT_TRUE(m_log.records.empty());
}

TEST_F(SystemLibrary, ATerminateWithoutInitialiseDoesNotUndoTheNextOne) {
  qv::terminateQvSystem();
  qv::initializeQvSystem(qv::InitStreams, true);
  EXPECT_EQ(m_log.records.size(), 1U);
  qv::terminateQvSystem();
}

TEST_F(SystemLibrary, InitialisesWithoutAProcessLog) {
  qv::qvLog::msInstance = nullptr;
  EXPECT_NO_THROW(qv::initializeQvSystem(qv::InitComplete, true));
  qv::terminateQvSystem();
}

}  // namespace
