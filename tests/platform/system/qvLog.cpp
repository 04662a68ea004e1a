#include "qvSystem/qvLog.h"

#include <gtest/gtest.h>
#include <syslog.h>

#include <cstdarg>
#include <cstdio>
#include <string>

namespace {

std::string sentToSystemLog;
int systemLogPriority = -1;

void keepSystemLogEntry(int priority, char const* format, std::va_list arguments) {
  char text[256];
  std::vsnprintf(text, sizeof(text), format, arguments);
  systemLogPriority = priority;
  sentToSystemLog = text;
}

}  // namespace

// They stand in for the C library's: what the log sends can be looked at. Hardened code calls the second one.
extern "C" __attribute__((visibility("default"))) void syslog(int priority, char const* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  keepSystemLogEntry(priority, format, arguments);
  va_end(arguments);
}
// NOLINTNEXTLINE(bugprone-reserved-identifier): the name is the C library's
extern "C" __attribute__((visibility("default"))) void __syslog_chk(int priority, int, char const* format,
                                                                    ...) {
  std::va_list arguments;
  va_start(arguments, format);
  keepSystemLogEntry(priority, format, arguments);
  va_end(arguments);
}

namespace {

using qv::qvLog;

qvLog::LogEntry entryOf(qv::qvLogType type, std::string const& text) {
  qvLog::LogEntry entry;
  entry.m_type = type;
  entry.m_text = text;
  entry.computeLogPrefix(false);
  return entry;
}

std::string prefixAt(std::uint64_t time) {
  qvLog::LogEntry entry;
  entry.m_time = time;
  entry.computeLogPrefix(true);
  return entry.m_prefix;
}

TEST(LogEntry, ThePrefixNamesTypeThreadAndCategory) {
  qvLog::LogEntry entry;
  entry.m_type = qv::qvLogError;
  entry.computeLogPrefix(false);
  EXPECT_EQ(entry.m_prefix, "error: ");
  entry.m_category = "migration";
  entry.computeLogPrefix(false);
  EXPECT_EQ(entry.m_prefix, "error[migration]: ");
  entry.m_threadId = "4711";
  entry.computeLogPrefix(false);
  EXPECT_EQ(entry.m_prefix, "error[4711][migration]: ");
}

TEST(LogEntry, EachTypeHasItsWord) {
  char const* const words[] = {
      "trace: ", "debug: ", "info: ", "notice: ", "warning: ", "error: ", "suppressed: "};
  for (int type = qv::qvLogTrace; type <= qv::qvLogSuppressed; ++type) {
    EXPECT_EQ(entryOf(static_cast<qv::qvLogType>(type), "").m_prefix, words[type]);
  }
}

TEST(LogEntry, TheTimeIsUtcWithMilliseconds) {
  EXPECT_EQ(prefixAt(0), "1970-01-01T00:00:00.000Z info: ");
  EXPECT_EQ(prefixAt(1000), "1970-01-01T00:00:01.000Z info: ");
  EXPECT_EQ(prefixAt(1770091506007), "2026-02-03T04:05:06.007Z info: ");
  EXPECT_EQ(prefixAt(951868799999), "2000-02-29T23:59:59.999Z info: ");
}

TEST(LogEntry, ATimeBeyondFourDigitYearsStopsAtTheLastOne) {
  EXPECT_EQ(prefixAt(~std::uint64_t{0}), "9999-12-31T23:59:59.999Z info: ");
}

TEST(Log, WritesPrefixTextAndLineFeedToStandardError) {
  qvLog log;
  auto entry = entryOf(qv::qvLogWarning, "two\nlines");
  ::testing::internal::CaptureStderr();
  log.Write(entry, true);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "warning: two\nlines\n");
}

TEST(Log, StartsWithEveryTypeButTheSuppressedOneEnabled) {
  qvLog log;
  for (int type = qv::qvLogTrace; type < qv::qvLogSuppressed; ++type) {
    EXPECT_TRUE(log.IsTypeEnabled(static_cast<qv::qvLogType>(type)));
  }
  EXPECT_FALSE(log.IsTypeEnabled(qv::qvLogSuppressed));
  log.SetTypeEnabled(qv::qvLogSuppressed, true);
  EXPECT_FALSE(log.IsTypeEnabled(qv::qvLogSuppressed));
}

TEST(Log, ADisabledTypeIsNotWrittenAndTheOthersAre) {
  qvLog log;
  log.SetTypeEnabled(qv::qvLogInfo, false);
  EXPECT_FALSE(log.IsTypeEnabled(qv::qvLogInfo));
  auto info = entryOf(qv::qvLogInfo, "i");
  auto error = entryOf(qv::qvLogError, "e");
  ::testing::internal::CaptureStderr();
  log.Write(info, false);
  log.Write(error, false);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "error: e\n");
  log.SetTypeEnabled(qv::qvLogInfo, true);
  EXPECT_TRUE(log.IsTypeEnabled(qv::qvLogInfo));
}

TEST(Log, AsksForThreadIdsOnlyWhenTold) {
  qvLog log;
  EXPECT_FALSE(log.WantsThreadIds());
  log.SetWantsThreadIds(true);
  EXPECT_TRUE(log.WantsThreadIds());
}

TEST(Log, TheProcessLogIsThereFromLoadTimeOn) {
  EXPECT_NE(qvLog::msInstance, nullptr);
}

TEST(Log, SendsToTheSystemLogWithThePriorityOfTheType) {
  qvLog::WriteToSystemLog(entryOf(qv::qvLogError, "100%s"), false);
  EXPECT_EQ(sentToSystemLog, "error: 100%s");
  EXPECT_EQ(systemLogPriority, LOG_USER | LOG_ERR);
  qvLog::WriteToSystemLog(entryOf(qv::qvLogNotice, "n"), false);
  EXPECT_EQ(systemLogPriority, LOG_USER | LOG_NOTICE);
}

TEST(Log, EchoesSystemLogEntriesOnlyWhenAsked) {
  ::testing::internal::CaptureStderr();
  qvLog::WriteToSystemLog(entryOf(qv::qvLogError, "quiet"), false);
  qvLog::WriteToSystemLog(entryOf(qv::qvLogError, "loud"), true);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "error: loud\n");
}

TEST(Log, ASuppressedEntryGoesNowhere) {
  qvLog log;
  sentToSystemLog.clear();
  auto entry = entryOf(qv::qvLogSuppressed, "x");
  ::testing::internal::CaptureStderr();
  log.Write(entry, true);
  qvLog::WriteToSystemLog(entry, true);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(sentToSystemLog, "");
}

}  // namespace
