#include "qvToolkit/findings/finding.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "qvToolkit/text/textEscape.h"

namespace qvToolkit {

namespace {

/// Messages of the library hold texts of the document in full.
constexpr std::size_t MaxShownText = 2000;

void appendNumber(std::string& text, std::optional<std::uint64_t> const& number) {
  if (number.has_value()) text += std::to_string(*number) + ":";
}

void appendNote(std::string& notes, std::string_view note) {
  if (note.empty()) return;
  if (!notes.empty()) notes += ", ";
  notes += escapeTerminal(note);
}

}  // namespace

Finding makeFinding(FindingCode code, std::string text, std::string address, SourcePlace place) {
  return makeFinding(code, getRow(code).m_severity, std::move(text), std::move(address), std::move(place));
}

Finding makeFinding(FindingCode code, Severity severity, std::string text, std::string address,
                    SourcePlace place) {
  Finding finding{code, severity, std::move(text), std::move(address), std::move(place), {}};
  OptionKey const option = getRow(code).m_option;
  if (option != OptionKey::None) finding.m_options.push_back(option);
  return finding;
}

Finding withOptions(Finding finding, std::vector<OptionKey> options) {
  finding.m_options = std::move(options);
  return finding;
}

std::string spellOptions(Finding const& finding, OptionSpelling spelling) {
  std::string text;
  if (spelling == nullptr) return text;
  for (OptionKey const option : finding.m_options) {
    if (!text.empty()) text += ' ';
    text += spelling(option);
  }
  return text;
}

ExitCode getExitCode(Finding const& finding, Severity threshold) {
  FindingClass const findingClass = getRow(finding.m_code).m_class;
  if (findingClass > FindingClass::Lost) return getRow(findingClass).m_exitCode;
  return finding.m_severity >= threshold ? ExitFindings : ExitDone;
}

std::string formatFinding(std::string_view file, Finding const& finding, OptionSpelling spelling) {
  std::string line = escapeTerminal(file);
  if (!line.empty()) line += ":";
  appendNumber(line, finding.m_place.m_line);
  appendNumber(line, finding.m_place.m_column);
  if (!line.empty()) line += " ";
  line += getSeverityText(finding.m_severity);
  line += ": " + escapeTerminal(shortenText(finding.m_text, MaxShownText));

  std::string notes;
  appendNote(notes, getCodeText(finding.m_code));
  appendNote(notes, finding.m_address);
  appendNote(notes, spellOptions(finding, spelling));
  return line + " [" + notes + "]";
}

std::optional<Severity> getHighestSeverity(Findings const& findings) {
  auto const isLighter = [](Finding const& a, Finding const& b) { return a.m_severity < b.m_severity; };
  auto const heaviest = std::max_element(findings.begin(), findings.end(), isLighter);
  if (heaviest == findings.end()) return std::nullopt;
  return heaviest->m_severity;
}

}  // namespace qvToolkit
