#include "toolLog.h"

#include <cstdio>
#include <string>

#include "qvToolkit/text/textEscape.h"

namespace qvannot {

namespace {

/// As of the messages among the findings.
constexpr std::size_t MaxShownText = 2000;

}  // namespace

void writeLogRecord(qv::qvLog::LogEntry const& record) {
  std::string const text = record.m_prefix + qvToolkit::shortenText(record.m_text, MaxShownText);
  std::string const line = qvToolkit::escapeTerminal(text) + '\n';
  std::fwrite(line.data(), 1, line.size(), stderr);
}

}  // namespace qvannot
