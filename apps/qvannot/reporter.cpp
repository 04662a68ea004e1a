#include "reporter.h"

#include <stdio_ext.h>
#include <sys/resource.h>
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
constexpr std::size_t MaxShownPath = 60;
constexpr std::size_t MaxRelayedBytes = std::size_t{1} << 20;
constexpr std::size_t RelayedEndBytes = MaxRelayedBytes / 4;

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
  // Last, where they are passed on in any case.
  writeError(lines + limits);
  auto const threshold = m_isStrict ? qvToolkit::Severity::Warning : qvToolkit::Severity::Error;
  for (qvToolkit::Finding const& finding : findings) count(getExitCode(finding, threshold));
}

bool Reporter::reportOpened(qvToolkit::Document const& document) {
  report(document.m_path, document.m_findings);
  count(getFailure(document));
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
  if (m_isBroken) return;
  if (text.size() > m_outputLeft) return refuseOutput(m_outputBudget, qvToolkit::OptionKey::MaxOutput);
  if (text.size() > m_printLeft) return refuseOutput(m_printBudget, qvToolkit::OptionKey::MaxOutputFile);
  m_outputLeft -= text.size();
  m_printLeft -= text.size();
  if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size()) failToPrint(errno);
}

void Reporter::print(Spool const& spool, std::uint64_t begin, std::uint64_t end) {
  constexpr std::uint64_t Piece = 65536;
  for (std::uint64_t offset = begin; offset < end && !m_isBroken; offset += Piece) {
    std::uint64_t const size = std::min(Piece, end - offset);
    std::string const piece = spool.read(offset, size);
    if (piece.size() < size) return failToPrint(EIO);
    print(piece);
  }
}

bool Reporter::flush() {
  if (!m_isBroken && std::fflush(stdout) != 0) failToPrint(errno);
  return !m_isBroken;
}

void Reporter::failToPrint(int error) {
  if (m_isWorker && error == EFBIG) {
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    return refuseOutput(limit.rlim_cur, qvToolkit::OptionKey::MaxOutputFile);
  }
  m_isBroken = true;
  if (!m_isWorker && error == EPIPE) return count(qvToolkit::ExitOutputFailed);
  fail(qvToolkit::ExitOutputFailed,
       (m_isWorker ? "cannot keep the result: " : "cannot write to standard output: ") +
           (error == EBADF ? "it is closed" : std::generic_category().message(error)));
  withdraw();
}

void Reporter::refuseOutput(std::uint64_t limit, qvToolkit::OptionKey option) {
  m_isBroken = true;
  auto const finding = qvToolkit::makeFinding(
      qvToolkit::FindingCode::LimitOutput,
      "the result is larger than the limit of " + std::to_string(limit) + " bytes; nothing is shown");
  report(m_input, {withOptions(finding, {option})});
  withdraw();
}

/// A part of a result must not look like the whole: what a worker has printed so far is taken back.
void Reporter::withdraw() {
  if (!m_isWorker) return;
  __fpurge(stdout);
  if (ftruncate(STDOUT_FILENO, 0) != 0) count(qvToolkit::ExitBug);
}

void Reporter::beginWorker() {
  m_isWorker = true;
  // Its streams are others: what the tool's could not take is not for them.
  __fpurge(stdout);
  std::clearerr(stdout);
  std::clearerr(stderr);
  m_isBroken = false;
  m_hasViews = false;
  m_exitCode = qvToolkit::ExitDone;
}

void Reporter::countWorker(qvToolkit::ExitCode code) {
  if (code == qvToolkit::ExitNothingToDo) return;
  m_hasViews |= code <= qvToolkit::ExitFindings;
  count(code);
}

/// The messages in full, or whole lines of their beginning and their end.
std::string Reporter::readMessages(Spool const& errors) {
  std::uint64_t const size = errors.getSize();
  std::string text = errors.read(0, std::min<std::uint64_t>(size, MaxRelayedBytes));
  bool isRead = text.size() >= std::min<std::uint64_t>(size, MaxRelayedBytes);
  if (size > MaxRelayedBytes) {
    text.resize(std::min(text.size(), MaxRelayedBytes - RelayedEndBytes));
    text.erase(text.rfind('\n') + 1);
    std::string const end = errors.read(size - RelayedEndBytes, RelayedEndBytes);
    isRead &= end.size() == RelayedEndBytes;
    text += "qvannot: there are more messages than are shown; the last ones follow\n";
    std::size_t const line = end.find('\n');
    if (line != std::string::npos) text += end.substr(line + 1);
  }
  if (!isRead) fail(qvToolkit::ExitOutputFailed, "the messages of a process cannot be read back");
  return text;
}

void Reporter::relayErrors(Spool const& errors, bool hasDied) {
  std::string const text = readMessages(errors);
  if (!hasDied) return writeError(text);
  for (std::size_t start = 0; start < text.size();) {
    std::size_t const end = std::min(text.find('\n', start), text.size());
    writeError(qvToolkit::escapeTerminal(text.substr(start, end - start)) + '\n');
    start = end + 1;
  }
}

qvToolkit::ExitCode Reporter::finish() {
  static_cast<void>(flush());
  if (std::ferror(stderr) != 0) count(qvToolkit::ExitOutputFailed);
  // An input that could not be read has its own code; whether it held views is not known.
  if (!m_hasViews && m_exitCode <= qvToolkit::ExitFindings) {
    if (m_isWorker) return qvToolkit::ExitNothingToDo;
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
  // A cut within a character leaves a byte that is escaped, too.
  writeError("\r[" + std::to_string(index + 1) + "/" + std::to_string(m_total) + "] " +
             qvToolkit::escapeTerminal(path.substr(0, MaxShownPath)));
}

void Progress::clear() const {
  // A worker's standard error is another one.
  if (m_isShown && isatty(STDERR_FILENO) != 0) writeError("\r\x1b[K");
}

}  // namespace qvannot
