#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "qvToolkit/findings/catalogue.h"
#include "qvannot/cli/nearestNames.h"
#include "qvannot/cli/textColumns.h"
#include "qvannot/commandList.h"
#include "qvannot/optionNames.h"
#include "qvannot/reporter.h"

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

std::vector<std::string_view> listCodes() {
  auto const rows = qvToolkit::getCatalogue();
  std::vector<std::string_view> codes(rows.size());
  std::ranges::transform(rows, codes.begin(), &CatalogueRow::m_text);
  return codes;
}

std::string listNearCodes(std::string_view text) {
  auto const sorted = sortByNearness(text, listCodes());
  return joinWords(std::span(sorted).first(NearCodes), ", ");
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
  return text + wrapText(row.m_explanation, LineWidth) + '\n' + wrapText(row.m_remedy, LineWidth);
}

std::string formatTable() {
  constexpr std::array<std::size_t, 3> Widths = {28, 12, 10};
  std::string text =
      padText("CODE", Widths[0]) + padText("CLASS", Widths[1]) + padText("SEVERITY", Widths[2]) + "TITLE\n";
  for (CatalogueRow const& row : qvToolkit::getCatalogue()) {
    text += padText(row.m_text, Widths[0]) + padText(getRow(row.m_class).m_text, Widths[1]) +
            padText(getSeverityText(row.m_severity), Widths[2]) + std::string(row.m_title) + '\n';
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

std::string readCode(std::string const& text, std::string& code) {
  code = text;
  if (findRow(text) != nullptr) return {};
  return "there is no code '" + text + "'; near it are " + listNearCodes(text);
}

struct ExplainCommand final : Command {
  Options listOptions() override;
  void run(Reporter& reporter) const override;

  std::string m_code;  ///< one of the catalogue; empty for all
  bool m_asMarkdown = false;
};

Options ExplainCommand::listOptions() {
  return {{.m_names = "CODE",
           .m_value = {.m_word = "CODE", .m_completion = Completion::Choice, .m_choices = listCodes()},
           .m_help = "Code of a finding, like font.none; without one, a list of all",
           .m_read = [this](auto const& words) { return readCode(words[0], m_code); }},
          makeFlag(option::Markdown, "Write Markdown; without a code, the page of all", m_asMarkdown)};
}

void ExplainCommand::run(Reporter& reporter) const {
  reporter.expectNoViews();
  CatalogueRow const* const row = findRow(m_code);
  if (row == nullptr) {
    reporter.print(m_asMarkdown ? formatPage() : formatTable());
  } else {
    reporter.print(m_asMarkdown ? formatMarkdown(*row) : formatRow(*row));
  }
}

constexpr Example Examples[] = {
    {"qvannot explain font.substituted",
     "Tells what a code at the end of a finding means, why it comes and what to do; without one, lists all."},
};

}  // namespace

constexpr CommandRow explainCommand = {
    "explain", "Tell what the codes of findings mean and what to do",
    "Each finding ends with its code in brackets. The codes are stable; the texts are for people.", Examples,
    makeCommand<ExplainCommand>};

}  // namespace qvannot
