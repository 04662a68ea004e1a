#include <algorithm>
#include <array>
#include <numeric>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "commands.h"
#include "optionNames.h"
#include "qvToolkit/findings/catalogue.h"

namespace qvannot {

namespace {

using qvToolkit::CatalogueRow;
using qvToolkit::ClassRow;

constexpr std::size_t LineWidth = 100;
constexpr std::size_t NearCodes = 3;

CatalogueRow const* findRow(std::string_view code) {
  auto const rows = qvToolkit::getCatalogue();
  auto const row = std::ranges::find(rows, code, &CatalogueRow::m_text);
  return row == rows.end() ? nullptr : &*row;
}

/// How many characters have to be added, taken away or replaced to make one text of the other.
std::size_t getDistance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> above(b.size() + 1);
  std::iota(above.begin(), above.end(), std::size_t{0});
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::vector<std::size_t> row = {i + 1};
    for (std::size_t j = 0; j < b.size(); ++j) {
      std::size_t const replaced = above[j] + (a[i] == b[j] ? 0U : 1U);
      row.push_back(std::min({replaced, above[j + 1] + 1, row.back() + 1}));
    }
    above = std::move(row);
  }
  return above.back();
}

std::string listNearCodes(std::string_view text) {
  std::vector<std::string_view> codes;
  for (CatalogueRow const& row : qvToolkit::getCatalogue()) codes.push_back(row.m_text);
  auto const measure = [text](std::string_view code) { return getDistance(text, code); };
  std::ranges::stable_sort(codes, {}, measure);
  std::string list;
  for (std::string_view const code : std::span(codes).first(NearCodes)) {
    list += (list.empty() ? "" : ", ") + std::string(code);
  }
  return list;
}

std::string pad(std::string_view text, std::size_t width) {
  return std::string(text) + std::string(width - std::min(width, text.size()), ' ');
}

/// The text in lines of bounded width, broken at blanks.
std::string wrap(std::string_view text) {
  std::string wrapped;
  while (text.size() > LineWidth) {
    std::size_t const end = text.rfind(' ', LineWidth);
    wrapped += std::string(text.substr(0, end)) + '\n';
    text.remove_prefix(end + 1);
  }
  return wrapped + std::string(text) + '\n';
}

std::string getOption(CatalogueRow const& row) {
  return row.m_option == qvToolkit::OptionKey::None ? "none" : std::string(spellOption(row.m_option));
}

std::string formatRow(CatalogueRow const& row) {
  ClassRow const& about = getRow(row.m_class);
  std::string text = std::string(row.m_text) + ": " + std::string(row.m_title) + "\n\n";
  text += "class     " + std::string(about.m_text) + ": " + std::string(about.m_explanation) + '\n';
  text += "severity  " + std::string(getSeverityText(row.m_severity)) +
          ", where the finding itself says no other\n";
  text += "option    " + getOption(row) + "\n\n";
  return text + wrap(row.m_explanation) + '\n' + wrap(row.m_remedy);
}

std::string formatTable() {
  constexpr std::array<std::size_t, 3> Widths = {28, 12, 10};
  std::string text =
      pad("CODE", Widths[0]) + pad("CLASS", Widths[1]) + pad("SEVERITY", Widths[2]) + "TITLE\n";
  for (CatalogueRow const& row : qvToolkit::getCatalogue()) {
    text += pad(row.m_text, Widths[0]) + pad(getRow(row.m_class).m_text, Widths[1]) +
            pad(getSeverityText(row.m_severity), Widths[2]) + std::string(row.m_title) + '\n';
  }
  return text;
}

constexpr std::string_view MarkdownHead =
    R"(# Findings

All that `qvannot` may report. A finding stands on one line,
`FILE:LINE:COLUMN: SEVERITY: TEXT [CODE, ADDRESS, OPTION]`, and in every JSON output. Its text is for people and may
change; its code is stable. The option, where there is one, lets the work go on in spite of it or changes what led to it.
Severities are those that a finding has where it says no other: a part of a document weighs by what it holds.

The exit code is the highest that follows from any finding. That of `done`, `look` and `lost` follows from the severity:
1 for an error, with `--strict` for a warning, too; 4 for an error that leaves nothing of a document to read.

This page is made by `qvannot explain --markdown`; `qvannot explain CODE` shows one entry of it.

| class | exit code | means |
|---|---|---|
)";

std::string formatMarkdown(CatalogueRow const& row) {
  std::string text = "## `" + std::string(row.m_text) + "`\n\n**" + std::string(row.m_title) + "** (" +
                     std::string(getRow(row.m_class).m_text) + ", " +
                     std::string(getSeverityText(row.m_severity));
  if (row.m_option != qvToolkit::OptionKey::None) text += ", `" + getOption(row) + "`";
  return text + ").\n" + std::string(row.m_explanation) + "\n\n" + std::string(row.m_remedy) + '\n';
}

std::string formatPage() {
  std::string text(MarkdownHead);
  for (ClassRow const& row : qvToolkit::getClasses()) {
    text += "| " + std::string(row.m_text) + " | " + std::to_string(row.m_exitCode) + " | " +
            std::string(row.m_explanation) + " |\n";
  }
  for (CatalogueRow const& row : qvToolkit::getCatalogue()) text += '\n' + formatMarkdown(row);
  return text;
}

}  // namespace

std::string refuseCode(std::string const& text) {
  constexpr std::size_t MaxCompared = 100;
  if (findRow(text) != nullptr) return {};
  return "there is no code '" + text + "'; near it are " + listNearCodes(text.substr(0, MaxCompared));
}

void run(ExplainCommand const& command, Reporter& reporter) {
  reporter.expectNoViews();
  CatalogueRow const* const row = findRow(command.m_code);
  if (row == nullptr) return reporter.print(command.m_asMarkdown ? formatPage() : formatTable());
  reporter.print(command.m_asMarkdown ? formatMarkdown(*row) : formatRow(*row));
}

}  // namespace qvannot
