#include "reporter.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <map>
#include <system_error>
#include <utility>

#include "optionNames.h"
#include "qvToolkit/text/textEscape.h"

namespace qvannot {

namespace {

constexpr std::size_t MaxPrintedPerCode = 100;

void writeError(std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), stderr);
}

constexpr std::size_t MaxShownBytes = std::size_t{1} << 20;
constexpr std::size_t ShownEndBytes = MaxShownBytes / 4;

/// The messages in full, or whole lines of their beginning and their end, which tells why it ended.
std::string shorten(std::string messages) {
  if (messages.size() <= MaxShownBytes) return messages;
  std::string const end = messages.substr(messages.size() - ShownEndBytes);
  messages.resize(MaxShownBytes - ShownEndBytes);
  messages.erase(messages.rfind('\n') + 1);
  messages += "qvannot: there are more messages than are shown; the last ones follow\n";
  return messages + end.substr(end.find('\n') + 1);
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

void Reporter::report(std::string const& path, qvToolkit::Outcome const& outcome) {
  write(path, outcome.m_findings);
  m_hasViews |= !outcome.m_views.empty();
  auto const threshold = m_isStrict ? qvToolkit::Severity::Warning : qvToolkit::Severity::Error;
  // That there is nothing to do counts in the end, when no input has anything.
  bool const isNothing = outcome.m_conclusion == qvToolkit::ExitNothingToDo;
  count(conclude(isNothing ? qvToolkit::ExitDone : outcome.m_conclusion, outcome.m_findings, threshold));
}

void Reporter::write(std::string const& path, qvToolkit::Findings const& findings) {
  std::map<qvToolkit::FindingCode, std::size_t> printed;
  std::string lines;
  std::string limits;
  for (qvToolkit::Finding const& finding : joinInfos(findings)) {
    if (++printed[finding.m_code] > MaxPrintedPerCode) continue;
    (isLimit(finding.m_code) ? limits : lines) += formatFinding(path, finding, spellOption) + '\n';
  }
  for (auto const& [code, number] : printed) {
    if (number <= MaxPrintedPerCode) continue;
    lines += qvToolkit::escapeTerminal(path) + ": " + std::to_string(number - MaxPrintedPerCode) +
             " more findings of this kind [" + std::string(getCodeText(code)) + "]\n";
  }
  // Last, where they are shown in any case.
  writeError(shorten(std::move(lines) + limits));
}

void Reporter::fail(qvToolkit::ExitCode code, std::string_view text) {
  writeError("qvannot: " + qvToolkit::escapeTerminal(text) + '\n');
  count(code);
}

void Reporter::count(qvToolkit::ExitCode code) {
  m_exitCode = std::max(m_exitCode, code);
}

bool Reporter::print(std::string_view text) {
  if (m_isBroken) return false;
  return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() || failToPrint(errno);
}

bool Reporter::flush() {
  return !m_isBroken && (std::fflush(stdout) == 0 || failToPrint(errno));
}

void Reporter::breakOff(std::string_view reason) {
  m_isBroken = true;
  fail(qvToolkit::ExitOutputFailed, "cannot write to standard output: " + std::string(reason));
}

bool Reporter::failToPrint(int error) {
  if (error == EPIPE) {
    m_isBroken = true;
    count(qvToolkit::ExitOutputFailed);
  } else {
    breakOff(error == EBADF ? "it is closed" : std::generic_category().message(error));
  }
  return false;
}

void Reporter::relay(std::string const& messages, bool hasDied) {
  if (!hasDied) return writeError(shorten(messages));
  for (std::size_t start = 0; start < messages.size();) {
    std::size_t const end = std::min(messages.find('\n', start), messages.size());
    writeError(qvToolkit::escapeTerminal(messages.substr(start, end - start)) + '\n');
    start = end + 1;
  }
}

qvToolkit::ExitCode Reporter::finish() {
  static_cast<void>(flush());
  if (std::ferror(stderr) != 0) count(qvToolkit::ExitOutputFailed);
  // An input that could not be read has its own code; whether it held views is not known.
  if (!m_hasViews && m_exitCode <= qvToolkit::ExitFindings)
    fail(qvToolkit::ExitNothingToDo, "nothing to do: no input has a view");
  return m_exitCode;
}

}  // namespace qvannot
