#pragma once

#include <cstdint>
#include <memory>
#include <sstream>
#include <string>

#include "annotationLegacy/export.h"
#include "annotationLegacy/platform.h"

namespace qv {

/// A short-lived log record: text is appended with `<<` and written when the record is destroyed. It belongs
/// to the thread that made it.
///
/// It is written to the target log and, with a tag, to the system log; with neither, prefix, text and a line
/// feed go to standard output. A record to which nothing was appended writes nothing.
class QVA_EXPORT qvLogObject {
 public:
  /// `category`: null or empty for none. `targetLog`: may be null; when it has the type disabled, the record
  /// takes the type `qvLogSuppressed`, ignores all text and writes nothing anywhere. `systemLogTag`: non-null
  /// (even empty) also sends the record to the system log. `flag` is passed on to the target log's `Write`.
  /// The texts are copied; the log must outlive the record.
  qvLogObject(qvLogType type, char const* category, qvLog* targetLog, char const* systemLogTag, bool flag);
  /// Writes the record. An error while writing ends the process.
  ~qvLogObject();
  qvLogObject(qvLogObject const&) = delete;
  qvLogObject& operator=(qvLogObject const&) = delete;

  /// Appends text; a null pointer appends "[NullPtr]".
  qvLogObject& operator<<(char const* text);
  /// Appends text, zero characters included.
  qvLogObject& operator<<(std::string const& text);

  std::string m_threadId;                       ///< empty when the process log wants no thread ids
  std::unique_ptr<std::string> m_category;      ///< null when none was given
  std::unique_ptr<std::string> m_systemLogTag;  ///< null: not for the system log
  qvLog* m_targetLog;                           ///< not owned; may be null
  std::unique_ptr<std::ostringstream> m_text;   ///< created on the first append
  qvLogType m_type;                             ///< `qvLogSuppressed` when nothing will be written
  std::uint64_t m_time;                         ///< milliseconds since the epoch at construction
  bool m_flag;                                  ///< for the target log's `Write`

 private:
  QVA_HIDDEN std::ostringstream* editText();
};

}  // namespace qv
