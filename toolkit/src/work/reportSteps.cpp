#include <utility>

#include "annotationLegacy/qvAnnotationMigration.h"
#include "qvToolkit/reports/fontCollector.h"
#include "qvToolkit/reports/fontReport.h"
#include "qvToolkit/reports/inspection.h"
#include "qvToolkit/reports/legacyJson.h"
#include "qvToolkit/stream/streamDump.h"
#include "reading/streamDocument.h"
#include "text/sha256.h"
#include "work/work.h"

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationMigration;

/// Metadata that keeps a view from being migrated says nothing about its text.
constexpr int AllMetadata = qvAnnotationMigration::DropViewMetadata |
                            qvAnnotationMigration::DropKnownMetadata |
                            qvAnnotationMigration::DropUnknownMetadata;

std::string formatInspectionEntry(Request const& request, Document const& document, OptionSpelling spelling) {
  JsonWriter json = makeReportList(request).makeEntryWriter();
  if (request.m_isFull) {
    writeLegacyDocument(json, document, spelling);
  } else {
    writeInspection(json, inspectDocument(document), spelling);
  }
  return json.takeText();
}

std::string formatFontsEntry(Request const& request, Document const& document, FontReport const& report,
                             Findings const& findings, OptionSpelling spelling) {
  JsonWriter json = makeReportList(request).makeEntryWriter();
  writeDocumentFonts(json, document, report, findings, spelling);
  return json.takeText();
}

}  // namespace

ReportList makeReportList(Request const& request) {
  ReportFormat const inspection = request.m_isFull ? ReportFormat::InspectFull : ReportFormat::Inspect;
  return ReportList(request.m_action == Action::Fonts ? ReportFormat::Fonts : inspection,
                    toJsonStyle(request.m_isPretty));
}

std::string formatFailedEntry(Request const& request, Outcome const& outcome, OptionSpelling spelling) {
  Document document;
  document.m_path = outcome.m_source.m_path;
  document.m_source = outcome.m_source;
  document.m_findings = outcome.m_findings;
  if (request.m_action == Action::Fonts)
    return formatFontsEntry(request, document, {}, outcome.m_findings, spelling);
  return formatInspectionEntry(request, document, spelling);
}

void inspect(Work& work) {
  Document const document = openInput(work);
  if (work.m_request.m_asJson)
    return print(work, formatInspectionEntry(work.m_request, document, work.m_session.getSpelling()));
  if (getFailure(document) == ExitDone) print(work, formatInspection(inspectDocument(document)));
}

void listFonts(Work& work) {
  Document const document = openInput(work);
  MigrationOptions options = makeMigrationOptions(work);
  options.m_dropped = AllMetadata;
  Findings found;
  FontCollector fonts(work.m_session.getFontHashes());
  MigrationSession migration(options, [&found](Finding finding) { found.push_back(std::move(finding)); });
  migration.migrate(document, [&fonts](MigratedView const& view) {
    fonts.add(view);
    return true;
  });
  tell(work, selectFontFindings(found));
  FontReport const report = fonts.makeReport();
  tell(work, report);
  if (work.m_request.m_asJson) {
    print(work, formatFontsEntry(work.m_request, document, report, work.m_outcome.m_findings,
                                 work.m_session.getSpelling()));
  } else if (getFailure(document) == ExitDone) {
    print(work, formatFontReport(document, report));
  }
}

void dump(Work& work) {
  std::optional<std::string> const bytes = readInput(work);
  if (!bytes.has_value()) return;
  Source& source = work.m_outcome.m_source;
  source.m_size = bytes->size();
  source.m_sha256 = hashSha256(*bytes);
  if (isObjectStream(*bytes)) source.m_format = Format::ObjectStream;
  limitBySize(work, bytes->size());
  bool isTaken = true;
  auto const printLine = [&](std::string_view line) {
    isTaken = isTaken && work.m_results.getText().write(line);
  };
  tell(work, dumpStream(*bytes, work.m_request.m_offset, printLine));
  if (!isTaken) fail(work, work.m_results.getProblem());
}

}  // namespace qvToolkit
