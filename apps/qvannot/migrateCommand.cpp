#include <filesystem>
#include <system_error>

#include "commands.h"
#include "fontChoice.h"
#include "interruption.h"
#include "job.h"
#include "memoryBudget.h"
#include "optionNames.h"
#include "qvToolkit/files/outputSet.h"
#include "qvToolkit/pages/svgPage.h"
#include "qvToolkit/reports/migratedJson.h"

namespace qvannot {

namespace {

using qvToolkit::Findings;

void append(Findings& findings, Findings const& more) {
  findings.insert(findings.end(), more.begin(), more.end());
}

/// With what the document has left of its memory, where that is limited.
qvToolkit::PageConversion getConversion(MigrateCommand const& command) {
  qvToolkit::PageConversion conversion = command.m_conversion;
  if (getMemoryBudget() != Limits::Unlimited) {
    conversion.m_getMemory = [] { return qvToolkit::MemoryLeft{getMemoryBudget(), getMemoryLeft()}; };
  }
  return conversion;
}

/// What all inputs have to do with each one's outputs.
struct InputNames {
  explicit InputNames(std::vector<std::string> const& paths)
      : m_stems(qvToolkit::makeStems(paths)), m_files(paths) {}

  std::vector<std::string> m_stems;   ///< of the names of their outputs
  qvToolkit::FileIdentities m_files;  ///< none of them is replaced
};

/// Writes the outputs of one document.
class DocumentWriter {
 public:
  DocumentWriter(MigrateCommand const& command, qvToolkit::MigrationSession const& session,
                 qvToolkit::FileIdentities const& inputs, std::uint64_t outputBudget)
      : m_command(command),
        m_session(session),
        m_outputs(command.m_outputFolder, command.m_force, getInterruption()),
        m_converter(getConversion(command), command.m_options.m_fonts) {
    m_outputs.limit(outputBudget, command.m_limits.get(Limit::OutputFile));
    m_outputs.protect(inputs);
  }

  [[nodiscard]] bool write(qvToolkit::Document const& document,
                           std::vector<qvToolkit::MigratedView> const& views, std::string const& stem) {
    std::vector<std::string> pages(views.size());
    for (std::size_t i = 0; i < views.size(); ++i) {
      append(m_findings, views[i].m_findings);
      if (views[i].m_view == nullptr) continue;
      pages[i] =
          qvToolkit::getPageName(stem, views[i].m_index, getFormatText(m_command.m_conversion.m_format));
      if (!m_outputs.open(pages[i]) || !writePage(views[i])) return fail();
    }
    if (!m_outputs.open(qvToolkit::getModelName(stem))) return fail();
    Findings all = document.m_findings;
    append(all, m_findings);
    bool const isWritten =
        writeMigratedDocument(m_outputs, document, m_session, views, pages, all, spellOption);
    return (isWritten && m_outputs.commit()) || fail();
  }

  /// What was found on the way, and in the end why the outputs could not be written.
  Findings const& getFindings() const noexcept { return m_findings; }
  std::vector<std::string> getPaths() const { return m_outputs.getPaths(); }

 private:
  bool writePage(qvToolkit::MigratedView const& view) {
    if (m_command.m_conversion.m_format == qvToolkit::PageFormat::Svg) {
      append(m_findings, writeSvgPage(view, m_session.getRasters(), m_outputs, m_command.m_textMode));
      return true;
    }
    qvToolkit::TextSink page;
    append(m_findings, writeSvgPage(view, m_session.getRasters(), page, m_command.m_textMode));
    return m_converter.convert(page.m_text, m_outputs);
  }

  bool fail() {
    m_findings.push_back(m_converter.findProblem().value_or(m_outputs.getProblem()));
    return false;
  }

  MigrateCommand const& m_command;
  qvToolkit::MigrationSession const& m_session;
  qvToolkit::OutputSet m_outputs;
  qvToolkit::PageConverter m_converter;
  Findings m_findings;
};

qvToolkit::MigrationOptions getOptions(MigrateCommand const& command) {
  qvToolkit::MigrationOptions options = command.m_options;
  options.m_trees = command.m_limits.getTreeLimits();
  options.m_maxRasterBytes = command.m_limits.get(Limit::Raster);
  return options;
}

/// Each view makes a file, and files cost more than the few bytes that an empty view takes in a document.
bool checkViews(MigrateCommand const& command, qvToolkit::Document const& document, Reporter& reporter) {
  std::uint64_t const limit = command.m_limits.get(Limit::Views);
  std::size_t const count = document.m_views.size();
  if (count <= limit) return true;
  reporter.report(document.m_path,
                  {makeFinding(qvToolkit::FindingCode::LimitViews,
                               "it has " + std::to_string(count) + " views, more than the limit of " +
                                   std::to_string(limit) + "; nothing is migrated",
                               qvToolkit::Address::ofView(limit).getText())});
  return false;
}

void migrateFile(MigrateCommand const& command, std::size_t index, InputNames const& inputs,
                 Reporter& reporter) {
  qvToolkit::Document const document = openInput(command.m_files[index], command.m_limits, reporter);
  if (!reporter.reportOpened(document) || !checkViews(command, document, reporter)) return;
  qvToolkit::MigrationSession session(getOptions(command));
  std::vector<qvToolkit::MigratedView> const views = session.migrate(document);
  DocumentWriter writer(command, session, inputs.m_files, reporter.getOutputBudget());
  bool const isWritten = writer.write(document, views, inputs.m_stems[index]);
  reporter.report(document.m_path, writer.getFindings());
  if (!isWritten) return;
  for (std::string const& path : writer.getPaths()) reporter.print(path + '\n');
}

bool checkRasterFolder(std::string const& folder, Reporter& reporter) {
  std::string const problem = qvToolkit::RasterFolder(folder).getFolderProblem();
  if (problem.empty()) return true;
  reporter.fail(qvToolkit::ExitInputUnreadable, "cannot use the folder of images '" + folder +
                                                    "': " + problem + "; correct " + option::Rasters);
  return false;
}

}  // namespace

void run(MigrateCommand const& command, Reporter& reporter) {
  if (!checkRasterFolder(command.m_options.m_rasterFolder, reporter)) return;
  if (!chooseFonts(command.m_options.m_fonts, command.m_files.size(), reporter)) return;
  InputNames const inputs(command.m_files);
  auto const cleanUp = [&](pid_t process, qvToolkit::Finding const&) {
    qvToolkit::removeTemporaryFiles(command.m_outputFolder, process);
    // The converter's fonts.
    std::error_code error;
    qvToolkit::removeTemporaryFiles(std::filesystem::temp_directory_path(error), process);
  };
  auto const makeJob = [&](std::size_t i) -> Job {
    auto const work = [&, i] { migrateFile(command, i, inputs, reporter); };
    return {command.m_files[i], command.m_limits, work, {}, cleanUp, true};
  };
  static_cast<void>(runAll(command.m_files, makeJob, reporter));
}

}  // namespace qvannot
