#include "qvSystem/qvLog.h"

#include <syslog.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <string_view>

#include "defaultLog.h"

namespace qv {

namespace {

struct TypeTraits {
  std::string_view m_word;
  int m_systemLogPriority;
};

/// Indexed by qvLogType.
constexpr std::array<TypeTraits, 7> types{{{"trace", LOG_DEBUG},
                                           {"debug", LOG_DEBUG},
                                           {"info", LOG_INFO},
                                           {"notice", LOG_NOTICE},
                                           {"warning", LOG_WARNING},
                                           {"error", LOG_ERR},
                                           {"suppressed", LOG_DEBUG}}};
static_assert(types.size() == qvLogSuppressed + 1);

/// A number that is no type counts as the last one.
std::size_t typeIndex(qvLogType type) noexcept {
  auto const index = static_cast<std::uint32_t>(type);
  return std::min<std::size_t>(index, types.size() - 1);
}

/// Appends `value` in decimal, padded with zeros to `width` digits.
void appendPadded(std::string& text, std::uint64_t value, std::size_t width) {
  std::array<char, 20> digits;
  auto const end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
  auto const count = static_cast<std::size_t>(end - digits.data());
  if (count < width) text.append(width - count, '0');
  text.append(digits.data(), count);
}

/// Appends "YYYY-MM-DDThh:mm:ss.mmmZ"; times after the year 9999 show its last millisecond.
void appendUtcTime(std::string& text, std::uint64_t msecSinceEpoch) {
  using namespace std::chrono;
  constexpr std::uint64_t lastShown = 253402300799999U;
  sys_time<milliseconds> const time(milliseconds(std::min(msecSinceEpoch, lastShown)));
  auto const day = floor<days>(time);
  year_month_day const date(day);
  hh_mm_ss const clock(time - day);
  auto const append = [&text](auto value, std::size_t width, char separator) {
    appendPadded(text, static_cast<std::uint64_t>(value), width);
    text += separator;
  };
  append(static_cast<int>(date.year()), 4, '-');
  append(static_cast<unsigned>(date.month()), 2, '-');
  append(static_cast<unsigned>(date.day()), 2, 'T');
  append(clock.hours().count(), 2, ':');
  append(clock.minutes().count(), 2, ':');
  append(clock.seconds().count(), 2, '.');
  append(clock.subseconds().count(), 3, 'Z');
}

/// One call for the whole line, so that lines of several threads do not mix.
void writeLineToStandardError(qvLog::LogEntry const& entry) {
  std::string const line = entry.m_prefix + entry.m_text + '\n';
  std::fwrite(line.data(), 1, line.size(), stderr);
}

}  // namespace

qvLog& impl::defaultLog() {
  static qvLog& instance = *new qvLog;
  return instance;
}

qvLog* qvLog::msInstance = &impl::defaultLog();

qvLog::qvLog() = default;
qvLog::~qvLog() = default;

void qvLog::LogEntry::computeLogPrefix(bool withTime) {
  m_prefix.clear();
  if (withTime) {
    appendUtcTime(m_prefix, m_time);
    m_prefix += ' ';
  }
  m_prefix += types[typeIndex(m_type)].m_word;
  if (!m_threadId.empty()) m_prefix += '[' + m_threadId + ']';
  if (!m_category.empty()) m_prefix += '[' + m_category + ']';
  m_prefix += ": ";
}

void qvLog::Write(LogEntry& entry, bool flush) {
  if (!IsTypeEnabled(entry.m_type)) return;
  writeLineToStandardError(entry);
  if (flush) std::fflush(stderr);
}

void qvLog::WriteToSystemLog(LogEntry const& entry, bool echoToConsole) {
  if (entry.m_type == qvLogSuppressed) return;
  ::syslog(LOG_USER | types[typeIndex(entry.m_type)].m_systemLogPriority, "%s%s", entry.m_prefix.c_str(),
           entry.m_text.c_str());
  if (echoToConsole) writeLineToStandardError(entry);
}

bool qvLog::IsTypeEnabled(qvLogType type) const noexcept {
  auto const index = typeIndex(type);
  return index != qvLogSuppressed && (m_disabledTypes >> index & 1U) == 0;
}

void qvLog::SetTypeEnabled(qvLogType type, bool enabled) noexcept {
  auto const bit = 1U << typeIndex(type);
  m_disabledTypes = enabled ? m_disabledTypes & ~bit : m_disabledTypes | bit;
}

}  // namespace qv
