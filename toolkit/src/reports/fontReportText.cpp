#include <algorithm>
#include <set>

#include "migration/fontMatchText.h"
#include "qvToolkit/reports/fontReport.h"
#include "qvToolkit/text/textEscape.h"
#include "text/characterName.h"
#include "text/countText.h"
#include "text/textTable.h"

namespace qvToolkit {

namespace {

constexpr std::size_t MaxShownAddresses = 3;

std::string formatStyle(bool isBold, bool isItalic) {
  if (!isBold && !isItalic) return "regular";
  return std::string(isBold ? "bold" : "") + (isBold && isItalic ? " " : "") + (isItalic ? "italic" : "");
}

std::string formatMatch(FontUse const& use) {
  std::string text = getMatchText(use.m_match);
  if (use.m_synthesis.m_bold) text += ", bold made up";
  if (use.m_synthesis.m_oblique) text += ", italic made up";
  return text;
}

TableRow makeRow(FontUse const& use) {
  return {escapeTerminal(use.m_askedFamily), formatStyle(use.m_bold, use.m_italic),
          escapeTerminal(use.m_family),      formatMatch(use),
          std::to_string(use.m_characters),  escapeTerminal(use.m_file)};
}

std::size_t countAsked(FontReport const& report) {
  std::set<std::string_view> asked;
  for (FontUse const& use : report.m_uses) asked.insert(use.m_askedFamily);
  return asked.size();
}

TableRow makeRow(MissingCharacter const& missing) {
  std::string places;
  std::size_t const shown = std::min(missing.m_addresses.size(), MaxShownAddresses);
  for (std::size_t i = 0; i < shown; ++i) places += (i > 0 ? ", " : "") + missing.m_addresses[i];
  if (shown < missing.m_addresses.size()) {
    places += " and " + std::to_string(missing.m_addresses.size() - shown) + " more";
  }
  return {describeCharacter(missing.m_character), missing.m_package.empty() ? "-" : missing.m_package,
          places};
}

void appendMissing(std::string& text, FontReport const& report) {
  if (report.m_missing.empty()) return;
  text += "  characters that no font has:\n";
  std::vector<TableRow> rows = {{"CHARACTER", "PACKAGE", "WHERE"}};
  for (MissingCharacter const& missing : report.m_missing) rows.push_back(makeRow(missing));
  appendTable(text, rows);
}

}  // namespace

std::string formatFontReport(Document const& document, FontReport const& report) {
  std::string text = escapeTerminal(document.m_path) + ": ";
  if (getFailure(document) != ExitDone) return text + "not read\n";
  std::size_t const asked = countAsked(report);
  text += formatCount(asked, "font family", "font families") + " asked for";
  if (report.m_viewsLeftOut > 0) {
    text += ", besides those of " + formatCount(report.m_viewsLeftOut, "view") + " that ";
    text.append(getVerb(report.m_viewsLeftOut)).append(" not migrated");
  }
  text += '\n';
  if (!report.m_uses.empty()) {
    std::vector<TableRow> rows = {{"ASKED", "STYLE", "DRAWN WITH", "MATCH", "CHARACTERS", "FILE"}};
    for (FontUse const& use : report.m_uses) rows.push_back(makeRow(use));
    appendTable(text, rows);
  }
  appendMissing(text, report);
  std::vector<std::string> const packages = listPackages(report);
  if (packages.empty()) return text;
  text += "  to install:";
  for (std::string const& package : packages) text += ' ' + package;
  return text + '\n';
}

}  // namespace qvToolkit
