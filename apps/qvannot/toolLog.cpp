#include "toolLog.h"

#include <cstdio>
#include <string>
#include <utility>

#include "toolkit/textEscape.h"

namespace qvannot {

ToolLog::ToolLog() : m_previous(std::exchange(msInstance, this)) {
  SetTypeEnabled(qv::qvLogTrace, false);
  SetTypeEnabled(qv::qvLogDebug, false);
}

ToolLog::~ToolLog() {
  msInstance = m_previous;
}

void ToolLog::Write(LogEntry& entry, bool) {
  entry.computeLogPrefix(false);
  std::string const line = qvToolkit::escapeTerminal(entry.m_prefix + entry.m_text) + '\n';
  std::fwrite(line.data(), 1, line.size(), stderr);
}

}  // namespace qvannot
