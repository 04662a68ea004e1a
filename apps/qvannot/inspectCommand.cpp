#include "commands.h"
#include "job.h"
#include "jsonFiles.h"
#include "optionNames.h"
#include "qvToolkit/reports/inspection.h"
#include "qvToolkit/reports/legacyJson.h"

namespace qvannot {

namespace {

std::string formatJson(qvToolkit::Document const& document, bool isFull) {
  return isFull ? qvToolkit::formatLegacyJson({document}, spellOption)
                : qvToolkit::formatInspectionsJson({qvToolkit::inspectDocument(document)}, spellOption);
}

void inspectFile(InspectCommand const& command, std::string const& path, Reporter& reporter) {
  qvToolkit::Document const document = openInput(path, command.m_limits, reporter);
  reporter.reportOpened(document);
  if (getFailure(document) == qvToolkit::ExitDone)
    reporter.print(formatInspection(inspectDocument(document)));
}

}  // namespace

void run(InspectCommand const& command, Reporter& reporter) {
  auto const makeEntry = [&](std::string const& path) {
    qvToolkit::Document const document = openInput(path, command.m_limits, reporter);
    reporter.reportOpened(document);
    return formatJson(document, command.m_isFull);
  };
  auto const makeFailedEntry = [&](qvToolkit::Document const& document) {
    return formatJson(document, command.m_isFull);
  };
  if (command.m_asJson) {
    return runJson({command.m_files, command.m_limits, makeEntry, makeFailedEntry}, reporter);
  }
  auto const makeJob = [&](std::size_t i) -> Job {
    std::string const& path = command.m_files[i];
    return {path, command.m_limits, [&] { inspectFile(command, path, reporter); }, {}, {}};
  };
  static_cast<void>(runAll(command.m_files, makeJob, reporter));
}

}  // namespace qvannot
