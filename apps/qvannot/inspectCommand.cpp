#include <new>

#include "commands.h"
#include "toolkit/inspection.h"
#include "toolkit/legacyJson.h"

namespace qvannot {

namespace {

std::string formatJson(std::vector<qvToolkit::Document> const& documents, bool isFull) {
  if (isFull) return qvToolkit::formatLegacyJson(documents);
  std::vector<qvToolkit::Inspection> inspections;
  inspections.reserve(documents.size());
  for (auto const& document : documents) inspections.push_back(qvToolkit::inspectDocument(document));
  return qvToolkit::formatInspectionsJson(inspections);
}

}  // namespace

void run(InspectCommand const& command, Reporter& reporter) {
  Progress const progress(command.m_files.size());
  std::vector<qvToolkit::Document> documents;
  for (std::size_t i = 0; i < command.m_files.size(); ++i) {
    std::string const& path = command.m_files[i];
    progress.show(i, path);
    try {
      qvToolkit::Document document = qvToolkit::openDocument(path);
      progress.clear();
      reporter.reportOpened(document);
      if (command.m_asJson) {
        documents.push_back(std::move(document));
      } else if (document.m_failure == qvToolkit::ExitDone) {
        reporter.print(formatInspection(inspectDocument(document)));
      }
    } catch (std::bad_alloc const&) {
      progress.clear();
      reporter.fail(qvToolkit::ExitLimit, "out of memory, '" + path + "' is passed over");
    }
  }
  if (command.m_asJson) reporter.print(formatJson(documents, command.m_isFull));
}

}  // namespace qvannot
