#pragma once

#include <cstdint>
#include <string>

#include "qvSystem/export.h"

namespace qv {

/// Type of a log message, from the least to the most severe.
enum qvLogType : std::int32_t {
  qvLogTrace = 0,
  qvLogDebug = 1,
  qvLogInfo = 2,
  qvLogNotice = 3,
  qvLogWarning = 4,
  qvLogError = 5,
  qvLogSuppressed = 6,  ///< a record of this type is never written
};

/// A sink of log entries. The base writes to standard error; hosts derive their own and install it as
/// `msInstance`.
class QV_EXPORT qvLog {
 public:
  /// One message with what is known about its origin.
  struct QV_EXPORT LogEntry {
    std::string m_text;
    std::string m_threadId;    ///< empty when not recorded
    std::string m_category;    ///< empty when none
    std::string m_prefix;      ///< set by `computeLogPrefix`
    std::uint64_t m_time = 0;  ///< milliseconds since the epoch
    qvLogType m_type = qvLogInfo;

    /// Sets the prefix: the type's word (trace, debug, info, notice, warning, error), then "[thread]" and
    /// "[category]" where present, then ": ". With `withTime` the UTC time as "YYYY-MM-DDThh:mm:ss.mmmZ "
    /// stands in front: "2026-02-03T04:05:06.007Z error[4711][migration]: ".
    void computeLogPrefix(bool withTime);
  };

  /// The process log: where the libraries write, and which says whether records carry thread ids. Never
  /// owned; may be null. Points to the platform's default log from load time on.
  static qvLog* msInstance;

  qvLog();
  virtual ~qvLog();
  qvLog(qvLog const&) = delete;
  qvLog& operator=(qvLog const&) = delete;

  /// Writes one entry: prefix, text, line feed; nothing when its type is disabled. `flush` asks that it
  /// reaches the sink before the call returns.
  virtual void Write(LogEntry& entry, bool flush);
  /// Sends the entry to the system log; `echoToConsole` also writes it to standard error, for entries that no
  /// other log takes.
  static void WriteToSystemLog(LogEntry const& entry, bool echoToConsole);

  /// Type filter: a disabled type is not recorded at all. All types start enabled but the suppressed one,
  /// which never is.
  bool IsTypeEnabled(qvLogType type) const noexcept;
  void SetTypeEnabled(qvLogType type, bool enabled) noexcept;

  /// Whether records made in this process carry the id of their thread; starts false.
  bool WantsThreadIds() const noexcept { return m_wantsThreadIds; }
  void SetWantsThreadIds(bool wanted) noexcept { m_wantsThreadIds = wanted; }

 private:
  std::uint32_t m_disabledTypes = 0;
  bool m_wantsThreadIds = false;
};

}  // namespace qv
