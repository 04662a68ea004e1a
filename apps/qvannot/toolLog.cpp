#include "toolLog.h"

#include <cstdio>
#include <string>
#include <utility>

#include "qvToolkit/text/textEscape.h"

namespace qvannot {

namespace {

/// As of the messages among the findings.
constexpr std::size_t MaxShownText = 2000;

}  // namespace

ToolLog::ToolLog() : m_previous(std::exchange(msInstance, this)) {
  SetTypeEnabled(qv::qvLogTrace, false);
  SetTypeEnabled(qv::qvLogDebug, false);
}

ToolLog::~ToolLog() {
  msInstance = m_previous;
}

void ToolLog::Write(LogEntry& entry, bool) {
  entry.computeLogPrefix(false);
  std::string const line =
      qvToolkit::escapeTerminal(entry.m_prefix + qvToolkit::shortenText(entry.m_text, MaxShownText)) + '\n';
  std::fwrite(line.data(), 1, line.size(), stderr);
}

}  // namespace qvannot
