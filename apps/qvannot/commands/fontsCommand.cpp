#include "annotationLegacy/qvAnnotationMigration.h"
#include "qvToolkit/reports/fontCollector.h"
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
  bool m_isPretty = false;
  qvToolkit::Limits m_limits;
};

Options FontsCommand::listOptions() {
  return join({makeFilesOperand(m_files), makeFlag(option::Json, "Write JSON", m_asJson),
               makePrettyFlag(m_isPretty), makeStrictFlag(m_isStrict)},
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

/// What becomes of one input.
struct DocumentFonts {
  qvToolkit::Document m_document;
  qvToolkit::FontReport m_report;
  qvToolkit::Findings m_findings;  ///< about fonts
};

/// Opens one input and reports it.
DocumentFonts collectFonts(FontsCommand const& command, std::string const& path,
                           qvToolkit::FontHashes& hashes, Reporter& reporter) {
  DocumentFonts fonts;
  fonts.m_document = openInput(path, command.m_limits, reporter);
  reporter.reportOpened(fonts.m_document);
  qvToolkit::Findings found;
  auto const tell = [&found](qvToolkit::Finding finding) { found.push_back(std::move(finding)); };
  qvToolkit::MigrationSession session(makeOptions(command), tell);
  qvToolkit::FontCollector collector(hashes);
  session.migrate(fonts.m_document, [&collector](qvToolkit::MigratedView&& view) {
    collector.add(view);
    return true;
  });
  fonts.m_report = collector.makeReport();
  fonts.m_findings = qvToolkit::selectFontFindings(found);
  reporter.report(path, fonts.m_findings);
  return fonts;
}

void writeEntry(qvToolkit::JsonWriter& json, DocumentFonts const& fonts) {
  qvToolkit::Findings all = fonts.m_document.m_findings;
  all.insert(all.end(), fonts.m_findings.begin(), fonts.m_findings.end());
  writeDocumentFonts(json, fonts.m_document, fonts.m_report, all, spellOption);
}

void printText(DocumentFonts const& fonts, Reporter& reporter) {
  if (getFailure(fonts.m_document) != qvToolkit::ExitDone) return;
  reporter.print(formatFontReport(fonts.m_document, fonts.m_report));
}

void FontsCommand::run(Reporter& reporter) const {
  qvToolkit::Session const session({m_fonts, {}});
  if (!prepare(session, m_files.size(), reporter)) return;
  qvToolkit::FontHashes hashes;
  auto const find = [&](std::string const& path) { return collectFonts(*this, path, hashes, reporter); };
  if (m_asJson) {
    auto const write = [&](qvToolkit::JsonWriter& json, std::string const& path) {
      writeEntry(json, find(path));
    };
    auto const writeFailed = [](qvToolkit::JsonWriter& json, qvToolkit::Document const& document) {
      writeEntry(json, {document, {}, {}});
    };
    qvToolkit::ReportList const list(qvToolkit::ReportFormat::Fonts, qvToolkit::toJsonStyle(m_isPretty));
    return runJson({list, m_files, m_limits, write, writeFailed}, reporter);
  }
  auto const makeJob = [&](std::size_t i) -> Job {
    std::string const& path = m_files[i];
    return {path, m_limits, [&] { printText(find(path), reporter); }, {}, {}};
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
