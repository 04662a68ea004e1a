#include <new>

#include "commands.h"
#include "interruption.h"
#include "toolkit/migratedJson.h"
#include "toolkit/outputSet.h"
#include "toolkit/svgPage.h"

namespace qvannot {

namespace {

using qvToolkit::ExitCode;
using qvToolkit::Findings;

void append(Findings& findings, Findings const& more) {
  findings.insert(findings.end(), more.begin(), more.end());
}

/// Writes the outputs of one document. Whatever fails on the way is in the set's problem.
bool writeOutputs(qvToolkit::Document const& document, qvToolkit::MigrationSession const& session,
                  std::vector<qvToolkit::MigratedView> const& views, std::string const& stem,
                  qvToolkit::OutputSet& outputs, Findings& findings) {
  std::vector<std::string> pages(views.size());
  for (std::size_t i = 0; i < views.size(); ++i) {
    append(findings, views[i].m_findings);
    if (views[i].m_view == nullptr) continue;
    pages[i] = qvToolkit::getPageName(stem, views[i].m_index);
    if (!outputs.open(pages[i])) return false;
    append(findings, writeSvgPage(views[i], session.getRasters(), outputs));
  }
  if (!outputs.open(qvToolkit::getModelName(stem))) return false;
  Findings all = document.m_findings;
  append(all, findings);
  return outputs.write(formatMigratedDocument(document, session, views, pages, all)) && outputs.commit();
}

void migrateFile(MigrateCommand const& command, std::size_t index, std::string const& stem,
                 Reporter& reporter, Progress const& progress) {
  qvToolkit::Document const document = qvToolkit::openDocument(command.m_files[index]);
  progress.clear();
  if (!reporter.reportOpened(document)) return;
  qvToolkit::MigrationSession session(command.m_options);
  std::vector<qvToolkit::MigratedView> const views = session.migrate(document);
  qvToolkit::OutputSet outputs(command.m_outputFolder, command.m_force, getInterruption());
  for (std::string const& input : command.m_files) outputs.protect(input);
  Findings findings;
  bool const isWritten = writeOutputs(document, session, views, stem, outputs, findings);
  if (!isWritten) {
    findings.push_back(outputs.getProblem());
    reporter.count(qvToolkit::ExitOutputFailed);
  }
  reporter.report(document.m_path, findings);
  if (!isWritten) return;
  for (std::string const& path : outputs.getPaths()) reporter.print(path + '\n');
}

bool checkRasterFolder(std::string const& folder, Reporter& reporter) {
  std::string const problem = qvToolkit::RasterFolder(folder).getFolderProblem();
  if (problem.empty()) return true;
  reporter.fail(qvToolkit::ExitInputUnreadable,
                "cannot use the folder of images '" + folder + "': " + problem + "; correct --rasters");
  return false;
}

}  // namespace

void run(MigrateCommand const& command, Reporter& reporter) {
  if (!checkRasterFolder(command.m_options.m_rasterFolder, reporter)) return;
  Progress const progress(command.m_files.size());
  std::vector<std::string> const stems = qvToolkit::makeStems(command.m_files);
  for (std::size_t i = 0; i < command.m_files.size() && *getInterruption() == 0; ++i) {
    progress.show(i, command.m_files[i]);
    try {
      migrateFile(command, i, stems[i], reporter, progress);
    } catch (std::bad_alloc const&) {
      progress.clear();
      reporter.fail(qvToolkit::ExitLimit, "out of memory, '" + command.m_files[i] + "' is passed over");
    }
  }
}

}  // namespace qvannot
