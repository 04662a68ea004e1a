#pragma once

#include <qvSystem/qvLog.h>
#include <qvSystem/qvSystemUtils.h>

#include <cstdint>
#include <string>
#include <utility>

/// Log, clock and threads of the platform, as far as their names are its choice.
namespace qvLegacy::ports {

/// Type of the messages about what could not be converted.
inline constexpr qv::qvLogType LOG_ERROR = qv::qvLogError;
/// Type of a record that is never written.
inline constexpr qv::qvLogType LOG_SUPPRESSED = qv::qvLogSuppressed;
static_assert(LOG_SUPPRESSED == 6, "the number of suppressed records is fixed");

/// Whether records carry the id of their thread; not without a process log.
inline bool wantsThreadIds() {
  return qv::qvLog::msInstance != nullptr && qv::qvLog::msInstance->WantsThreadIds();
}

inline bool isTypeEnabled(qv::qvLog const& log, qv::qvLogType type) {
  return log.IsTypeEnabled(type);
}

/// An entry with its prefix computed.
inline qv::qvLog::LogEntry makeLogEntry(qv::qvLogType type, std::uint64_t time, std::string threadId,
                                        std::string category, std::string text) {
  qv::qvLog::LogEntry entry;
  entry.m_text = std::move(text);
  entry.m_threadId = std::move(threadId);
  entry.m_category = std::move(category);
  entry.m_time = time;
  entry.m_type = type;
  entry.computeLogPrefix(true);
  return entry;
}

inline std::string const& prefixOf(qv::qvLog::LogEntry const& entry) {
  return entry.m_prefix;
}
inline std::string const& textOf(qv::qvLog::LogEntry const& entry) {
  return entry.m_text;
}

}  // namespace qvLegacy::ports
