#include "annotationLegacy/qvAnnotationMigration.h"
#include "qvToolkit/reports/fontReport.h"
#include "qvannot/cli/sharedOptions.h"
#include "qvannot/commandList.h"
#include "qvannot/commandSession.h"
#include "qvannot/job.h"
#include "qvannot/jsonFiles.h"
#include "qvannot/optionNames.h"

namespace qvannot {

namespace {

using qvLegacy::qvAnnotationMigration;

struct FontsCommand final : Command {
  Options listOptions() override;
  void run(Reporter& reporter) const override;

  std::vector<std::string> m_files;
  qvToolkit::FontOptions m_fonts;
  bool m_asJson = false;
  qvToolkit::Limits m_limits;
};

Options FontsCommand::listOptions() {
  return join(
      {makeFilesOperand(m_files), makeFlag(option::Json, "Write JSON", m_asJson), makeStrictFlag(m_isStrict)},
      makeFontOptions(m_fonts), makeLimitOptions(m_limits));
}

/// Metadata that keeps a view from being migrated says nothing about its text.
constexpr int AllMetadata = qvAnnotationMigration::DropViewMetadata |
                            qvAnnotationMigration::DropKnownMetadata |
                            qvAnnotationMigration::DropUnknownMetadata;

qvToolkit::MigrationOptions makeOptions(FontsCommand const& command) {
  qvToolkit::MigrationOptions options;
  options.m_dropped = AllMetadata;
  options.m_fonts = command.m_fonts;
  options.m_trees = qvToolkit::makeTreeLimits(command.m_limits);
  return options;
}

/// Opens one input, reports it and makes its part of the result.
std::string makeReport(FontsCommand const& command, std::string const& path, Reporter& reporter) {
  qvToolkit::Document const document = openInput(path, command.m_limits, reporter);
  reporter.reportOpened(document);
  qvToolkit::Findings found;
  auto const tell = [&found](qvToolkit::Finding finding) { found.push_back(std::move(finding)); };
  qvToolkit::MigrationSession session(makeOptions(command), tell);
  std::vector<qvToolkit::MigratedView> const views = session.migrate(document);
  qvToolkit::FontReport const report = qvToolkit::reportFonts(views);
  qvToolkit::Findings const findings = qvToolkit::selectFontFindings(found);
  reporter.report(document.m_path, findings);
  if (!command.m_asJson)
    return getFailure(document) == qvToolkit::ExitDone ? formatFontReport(document, report) : std::string();
  qvToolkit::Findings all = document.m_findings;
  all.insert(all.end(), findings.begin(), findings.end());
  return qvToolkit::formatFontReportsJson({document}, {report}, {all}, spellOption);
}

std::string makeFailedEntry(qvToolkit::Document const& document) {
  return qvToolkit::formatFontReportsJson({document}, {qvToolkit::FontReport()}, {document.m_findings},
                                          spellOption);
}

void FontsCommand::run(Reporter& reporter) const {
  qvToolkit::Session const session({m_fonts, {}});
  if (!prepare(session, m_files.size(), reporter)) return;
  auto const makeEntry = [&](std::string const& path) { return makeReport(*this, path, reporter); };
  if (m_asJson) {
    return runJson({m_files, m_limits, makeEntry, makeFailedEntry}, reporter);
  }
  auto const makeJob = [&](std::size_t i) -> Job {
    std::string const& path = m_files[i];
    return {path, m_limits, [&] { reporter.print(makeEntry(path)); }, {}, {}};
  };
  static_cast<void>(runAll(m_files, makeJob, reporter));
}

constexpr Example Examples[] = {
    {"qvannot fonts old/*.json",
     "Lists the fonts that documents ask for, what is drawn instead, and which packages to install."},
};

}  // namespace

constexpr CommandRow fontsCommand = {
    "fonts", "List the fonts that documents ask for and get",
    "Shows for each font the one that is drawn, the characters that no font has, and the packages that bring "
    "what is missing.",
    Examples, makeCommand<FontsCommand>};

}  // namespace qvannot
