#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>

#include "annotationLegacy/platform.h"
#include "ports/log.h"

namespace {

namespace ports = qvLegacy::ports;

/// Keeps what is written to it.
class KeptLog : public qv::qvLog {
 public:
  void Write(LogEntry& entry, bool flush) override {
    m_text += ports::textOf(entry);
    m_flushed = flush;
  }
  std::string m_text;
  bool m_flushed = false;
};

TEST(LogContract, ThereIsAProcessLogFromTheStartThatWantsNoThreadIds) {
  EXPECT_NE(qv::qvLog::msInstance, nullptr);
  EXPECT_FALSE(ports::wantsThreadIds());
}

TEST(LogContract, ErrorsAreEnabledAndSuppressedRecordsNever) {
  KeptLog const log;
  EXPECT_EQ(static_cast<int>(ports::LOG_ERROR), 5);
  EXPECT_TRUE(ports::isTypeEnabled(log, ports::LOG_ERROR));
  EXPECT_FALSE(ports::isTypeEnabled(log, ports::LOG_SUPPRESSED));
}

TEST(LogContract, AHostsLogReceivesTheEntryWithItsFlag) {
  KeptLog log;
  qv::qvLog& base = log;
  auto entry = ports::makeLogEntry(ports::LOG_ERROR, 0, "", "", "text");
  base.Write(entry, true);
  EXPECT_EQ(log.m_text, "text");
  EXPECT_TRUE(log.m_flushed);
}

TEST(LogContract, ThePrefixIsComputedFromTheEntry) {
  auto const entry = ports::makeLogEntry(ports::LOG_ERROR, 1000, "thread 1", "category 2", "text");
  EXPECT_NE(ports::prefixOf(entry).find("thread 1"), std::string::npos);
  EXPECT_NE(ports::prefixOf(entry).find("category 2"), std::string::npos);
  EXPECT_EQ(ports::textOf(entry), "text");
}

TEST(LogContract, TheSystemLogTakesAnEntry) {
  testing::internal::CaptureStderr();
  qv::qvLog::WriteToSystemLog(ports::makeLogEntry(ports::LOG_ERROR, 0, "", "", "a contract test"), true);
  EXPECT_NE(testing::internal::GetCapturedStderr().find("a contract test"), std::string::npos);
}

TEST(LogContract, TheClockCountsMillisecondsSinceTheEpoch) {
  using namespace std::chrono;
  auto const now = duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
  EXPECT_NEAR(static_cast<double>(qv::qvSystemUtils::GetMSecElapsedSinceEpoch()), static_cast<double>(now),
              60'000.0);
}

TEST(LogContract, ThreadsHaveDifferentIds) {
  std::string const mine = qv::qvThread::CurrentThreadId();
  std::string others;
  std::thread([&others] { others = qv::qvThread::CurrentThreadId(); }).join();
  EXPECT_EQ(mine, qv::qvThread::CurrentThreadId());
  EXPECT_NE(mine, others);
}

}  // namespace
