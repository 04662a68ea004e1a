#include "annotationLegacy/qvLogObject.h"

#include <iostream>
#include <string_view>

#include "ports/log.h"

namespace qv {

namespace {

namespace ports = qvLegacy::ports;

constexpr std::string_view NULL_TEXT = "[NullPtr]";

/// Unformatted, so that neither width nor locale of the process-wide stream shows in the record.
void writeToStandardOutput(qvLog::LogEntry const& entry) {
  for (std::string const* part : {&ports::prefixOf(entry), &ports::textOf(entry)}) {
    std::cout.write(part->data(), static_cast<std::streamsize>(part->size()));
  }
  std::cout.put('\n').flush();
}

}  // namespace

qvLogObject::qvLogObject(qvLogType type, char const* category, qvLog* targetLog, char const* systemLogTag,
                         bool flag)
    : m_targetLog(targetLog), m_type(type), m_time(qvSystemUtils::GetMSecElapsedSinceEpoch()), m_flag(flag) {
  if (ports::wantsThreadIds()) m_threadId = qvThread::CurrentThreadId();
  if (systemLogTag != nullptr) m_systemLogTag = std::make_unique<std::string>(systemLogTag);
  if (targetLog != nullptr && !ports::isTypeEnabled(*targetLog, type)) {
    m_targetLog = nullptr;
    m_type = ports::LOG_SUPPRESSED;
  }
  if (category != nullptr && *category != '\0') m_category = std::make_unique<std::string>(category);
}

// Without an exception specification of its own a destructor is noexcept: what fails in here ends the
// process.
qvLogObject::~qvLogObject() {
  if (m_text == nullptr) return;
  qvLog::LogEntry entry = ports::makeLogEntry(
      m_type, m_time, m_threadId, m_category == nullptr ? std::string() : *m_category, m_text->str());
  if (m_systemLogTag != nullptr) qvLog::WriteToSystemLog(entry, m_targetLog == nullptr);
  if (m_targetLog != nullptr) m_targetLog->Write(entry, m_flag);
  if (m_systemLogTag == nullptr && m_targetLog == nullptr) writeToStandardOutput(entry);
}

qvLogObject& qvLogObject::operator<<(char const* text) {
  std::string_view const shown = text == nullptr ? NULL_TEXT : std::string_view(text);
  if (std::ostringstream* out = editText())
    out->write(shown.data(), static_cast<std::streamsize>(shown.size()));
  return *this;
}

qvLogObject& qvLogObject::operator<<(std::string const& text) {
  if (std::ostringstream* out = editText())
    out->write(text.data(), static_cast<std::streamsize>(text.size()));
  return *this;
}

/// The text stream, created on first use; null for a suppressed record.
std::ostringstream* qvLogObject::editText() {
  if (m_type == ports::LOG_SUPPRESSED) return nullptr;
  if (m_text == nullptr) {
    m_text = std::make_unique<std::ostringstream>();
    m_text->exceptions(std::ios::badbit);  // an exhausted heap must not shorten a message in silence
  }
  return m_text.get();
}

}  // namespace qv
