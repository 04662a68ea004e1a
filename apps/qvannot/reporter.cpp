#include "reporter.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <map>
#include <system_error>
#include <utility>

#include "toolkit/textEscape.h"

namespace qvannot {

namespace {

constexpr std::size_t MaxPrintedPerCode = 100;

void writeError(std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), stderr);
}

/// What is harmless and repeats, such as one font's stand-in, is said once, with the number of places.
qvToolkit::Findings joinInfos(qvToolkit::Findings const& findings) {
  qvToolkit::Findings joined;
  std::map<std::pair<qvToolkit::FindingCode, std::string_view>, std::pair<std::size_t, std::size_t>> places;
  for (qvToolkit::Finding const& finding : findings) {
    if (finding.m_severity == qvToolkit::Severity::Info) {
      auto& [first, number] = places[{finding.m_code, finding.m_text}];
      if (number++ > 0) continue;
      first = joined.size();
    }
    joined.push_back(finding);
  }
  for (auto const& [key, place] : places) {
    if (place.second > 1)
      joined[place.first].m_text += ", at " + std::to_string(place.second) + " places, first";
  }
  return joined;
}

}  // namespace

void Reporter::report(std::string const& path, qvToolkit::Findings const& findings) {
  std::map<qvToolkit::FindingCode, std::size_t> printed;
  std::string lines;
  for (qvToolkit::Finding const& finding : joinInfos(findings)) {
    if (++printed[finding.m_code] <= MaxPrintedPerCode) lines += formatFinding(path, finding) + '\n';
  }
  for (auto const& [code, number] : printed) {
    if (number <= MaxPrintedPerCode) continue;
    lines += qvToolkit::escapeTerminal(path) + ": " + std::to_string(number - MaxPrintedPerCode) +
             " more findings of this kind [" + std::string(getCodeText(code)) + "]\n";
  }
  writeError(lines);
  auto const threshold = m_isStrict ? qvToolkit::Severity::Warning : qvToolkit::Severity::Error;
  if (getHighestSeverity(findings) >= threshold) count(qvToolkit::ExitFindings);
}

bool Reporter::reportOpened(qvToolkit::Document const& document) {
  report(document.m_path, document.m_findings);
  count(document.m_failure);
  if (document.m_views.empty()) return false;
  m_hasViews = true;
  return true;
}

void Reporter::fail(qvToolkit::ExitCode code, std::string_view text) {
  writeError("qvannot: " + qvToolkit::escapeTerminal(text) + '\n');
  count(code);
}

void Reporter::count(qvToolkit::ExitCode code) {
  m_exitCode = std::max(m_exitCode, code);
}

void Reporter::print(std::string_view text) {
  if (m_isBroken || std::fwrite(text.data(), 1, text.size(), stdout) == text.size()) return;
  m_isBroken = true;
  fail(qvToolkit::ExitOutputFailed,
       "cannot write to standard output: " + std::generic_category().message(errno));
}

qvToolkit::ExitCode Reporter::finish() {
  if (!m_isBroken && std::fflush(stdout) != 0) {
    fail(qvToolkit::ExitOutputFailed,
         "cannot write to standard output: " + std::generic_category().message(errno));
  }
  // An input that could not be read has its own code; whether it held views is not known.
  if (!m_hasViews && m_exitCode <= qvToolkit::ExitFindings) {
    fail(qvToolkit::ExitNothingToDo, "nothing to do: no input has a view");
  }
  return m_exitCode;
}

Progress::Progress(std::size_t total) : m_total(total), m_isShown(total > 1 && isatty(STDERR_FILENO) != 0) {
}

Progress::~Progress() {
  clear();
}

void Progress::show(std::size_t index, std::string const& path) const {
  if (!m_isShown) return;
  writeError("\r[" + std::to_string(index + 1) + "/" + std::to_string(m_total) + "] " +
             qvToolkit::escapeTerminal(path).substr(0, 60));
}

void Progress::clear() const {
  if (m_isShown) writeError("\r\x1b[K");
}

}  // namespace qvannot
