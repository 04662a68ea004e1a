#include "annotationLegacy/qvAnnotationMigration.h"
#include "commands.h"
#include "fontChoice.h"
#include "job.h"
#include "jsonFiles.h"
#include "optionNames.h"
#include "qvToolkit/reports/fontReport.h"

namespace qvannot {

namespace {

using qvLegacy::qvAnnotationMigration;

/// Metadata that keeps a view from being migrated says nothing about its text.
constexpr int AllMetadata = qvAnnotationMigration::DropViewMetadata |
                            qvAnnotationMigration::DropKnownMetadata |
                            qvAnnotationMigration::DropUnknownMetadata;

qvToolkit::MigrationOptions makeOptions(FontsCommand const& command) {
  qvToolkit::MigrationOptions options;
  options.m_dropped = AllMetadata;
  options.m_fonts = command.m_fonts;
  options.m_trees = command.m_limits.getTreeLimits();
  return options;
}

/// Opens one input, reports it and makes its part of the result.
std::string makeReport(FontsCommand const& command, std::string const& path, Reporter& reporter) {
  qvToolkit::Document const document = openInput(path, command.m_limits, reporter);
  reporter.reportOpened(document);
  qvToolkit::MigrationSession session(makeOptions(command));
  std::vector<qvToolkit::MigratedView> const views = session.migrate(document);
  qvToolkit::FontReport const report = qvToolkit::reportFonts(views);
  qvToolkit::Findings const findings = qvToolkit::selectFontFindings(views);
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

}  // namespace

void run(FontsCommand const& command, Reporter& reporter) {
  if (!chooseFonts(command.m_fonts, command.m_files.size(), reporter)) return;
  auto const makeEntry = [&](std::string const& path) { return makeReport(command, path, reporter); };
  if (command.m_asJson) {
    return runJson({command.m_files, command.m_limits, makeEntry, makeFailedEntry}, reporter);
  }
  auto const makeJob = [&](std::size_t i) -> Job {
    std::string const& path = command.m_files[i];
    return {path, command.m_limits, [&] { reporter.print(makeEntry(path)); }, {}, {}};
  };
  static_cast<void>(runAll(command.m_files, makeJob, reporter));
}

}  // namespace qvannot
