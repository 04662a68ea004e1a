#include "work/processSettings.h"

#include <algorithm>
#include <vector>

#include "qvAnnotation/fontOptions.h"

namespace qvToolkit {

namespace {

/// Those that live, in the order of their begin.
std::vector<ProcessSettings*> living;

/// Those of before the first.
FontOptions fontsBefore;
qv::qvLog* logBefore = nullptr;

bool isSame(qv::text::FontReplacement const& a, qv::text::FontReplacement const& b) {
  return a.m_family == b.m_family && a.m_replacement == b.m_replacement;
}

/// Options that are set anew let the process look for its fonts anew.
void useFonts(FontOptions const& options) {
  FontOptions const used = qv::text::getFontOptions();
  if (used.m_directories != options.m_directories || used.m_useSystemFonts != options.m_useSystemFonts ||
      !std::ranges::equal(used.m_replacements, options.m_replacements, isSame))
    qv::text::setFontOptions(options);
}

}  // namespace

/// Hands the records of the libraries to a function; what only a debugger wants is left out.
class ProcessSettings::Log : public qv::qvLog {
 public:
  explicit Log(LogSink take) : m_take(std::move(take)) {
    SetTypeEnabled(qv::qvLogTrace, false);
    SetTypeEnabled(qv::qvLogDebug, false);
  }

  void Write(LogEntry& entry, bool) override {
    entry.computeLogPrefix(false);
    m_take(entry);
  }

 private:
  LogSink m_take;
};

ProcessSettings::ProcessSettings(FontOptions const& fonts, LogSink const& log) : m_fonts(fonts) {
  if (log) m_log = std::make_unique<Log>(log);
  if (living.empty()) {
    fontsBefore = qv::text::getFontOptions();
    logBefore = qv::qvLog::msInstance;
  }
  living.reserve(living.size() + 1);
  useFonts(m_fonts);
  living.push_back(this);
  useLog();
}

ProcessSettings::~ProcessSettings() {
  std::erase(living, this);
  useLog();
  useFonts(living.empty() ? fontsBefore : living.back()->m_fonts);
}

void ProcessSettings::useLog() {
  auto const hasLog = [](ProcessSettings const* settings) { return settings->m_log != nullptr; };
  auto const last = std::find_if(living.rbegin(), living.rend(), hasLog);
  qv::qvLog::msInstance = last == living.rend() ? logBefore : (*last)->m_log.get();
}

}  // namespace qvToolkit
