#include "documentRun.h"

#include <filesystem>
#include <system_error>

#include "interruption.h"
#include "optionNames.h"
#include "programHooks.h"
#include "progress.h"
#include "qvToolkit/files/outputSet.h"
#include "qvToolkit/work/pool.h"

namespace qvannot {

namespace {

using qvToolkit::PoolResult;

/// Beneath the folder that the tool was started in, relative to it; of any other file the name: where the
/// rest lies differs from run to run.
std::string makeSourcePath(std::string const& given) {
  if (given == "-") return given;
  std::error_code error;
  std::filesystem::path const root = std::filesystem::current_path(error);
  std::filesystem::path const path = (root / given).lexically_normal();
  std::filesystem::path const relative = path.lexically_relative(root);
  bool const isBeneath = !error && !relative.empty() && *relative.begin() != "..";
  return isBeneath ? relative.string() : path.filename().string();
}

std::vector<qvToolkit::PoolInput> makeInputs(DocumentRun const& run) {
  std::vector<std::string> const stems = qvToolkit::makeStems(run.m_files);
  std::vector<qvToolkit::PoolInput> inputs;
  for (std::size_t i = 0; i < run.m_files.size(); ++i) {
    inputs.push_back({run.m_files[i], makeSourcePath(run.m_files[i]),
                      run.m_outputName.empty() ? stems[i] : run.m_outputName});
  }
  return inputs;
}

/// Shows results in the order of the inputs.
class Show {
 public:
  Show(DocumentRun const& run, Reporter& reporter)
      : m_run(run),
        m_reporter(reporter),
        m_list(qvToolkit::makeReportList(run.m_request)),
        m_progress(run.m_files.size()) {}

  void begin(std::size_t index) const { m_progress.show(index, m_run.m_files[index]); }

  /// False when nobody takes what is printed, and nothing else is left.
  bool operator()(PoolResult const& result) {
    m_progress.clear();
    m_reporter.relay(result.m_messages, result.m_hasDied);
    m_reporter.report(m_run.m_files[result.m_index], result.m_outcome);
    if (m_run.m_request.m_asJson) m_reporter.print(m_list.beginEntry());
    print(result);
    printOutputs(result.m_outcome);
    return m_reporter.flush() || !m_run.m_outputFolder.empty();
  }

  void finish() {
    if (m_run.m_request.m_asJson) m_reporter.print(m_list.end());
  }

 private:
  void print(PoolResult const& result) {
    bool isPrinted = false;
    bool const isRead = result.forEachText([&](std::string_view text) {
      isPrinted = true;
      return m_reporter.print(text);
    });
    if (!isRead) return m_reporter.breakOff("the result cannot be read back");
    if (!isPrinted && m_run.m_request.m_asJson)
      m_reporter.print(formatFailedEntry(m_run.m_request, result.m_outcome, spellOption));
  }

  void printOutputs(qvToolkit::Outcome const& outcome) {
    std::string const& folder = m_run.m_outputFolder;
    for (qvToolkit::OutputFile const& file : outcome.m_outputs)
      m_reporter.print((folder.ends_with('/') ? folder : folder + '/') + file.m_name + '\n');
  }

  DocumentRun const& m_run;
  Reporter& m_reporter;
  qvToolkit::ReportList m_list;
  Progress m_progress;
};

qvToolkit::PoolOptions makePoolOptions(DocumentRun const& run, Show const& show) {
  qvToolkit::PoolOptions options;
  options.m_processes = run.m_jobs > 0 ? run.m_jobs : qvToolkit::getDefaultProcesses(run.m_request.m_limits);
  options.m_outputFolder = run.m_outputFolder;
  options.m_force = run.m_force;
  options.m_hooks = makeProgramHooks();
  options.m_interrupted = getInterruption();
  options.m_onBegin = [&show](std::size_t index) { show.begin(index); };
  return options;
}

/// What all inputs need; the work on each of them would fail in the same way.
bool checkFolders(qvToolkit::Request const& request, Reporter& reporter) {
  qvToolkit::Session const session(makeSessionOptions(request));
  auto const problem = session.findProblem();
  if (problem.has_value())
    reporter.fail(qvToolkit::ExitInputUnreadable,
                  problem->m_text + "; correct " + std::string(spellOption(problem->m_option)));
  return !problem.has_value();
}

}  // namespace

void runDocuments(DocumentRun const& run, Reporter& reporter) {
  if (!checkFolders(run.m_request, reporter)) return;
  Show show(run, reporter);
  bool const isDone = runPool(run.m_request, makeInputs(run), makePoolOptions(run, show),
                              [&show](auto const& result) { return show(result); });
  // What was interrupted must not look whole, and has not told which inputs have views.
  if (!isDone) return reporter.expectNoViews();
  show.finish();
}

}  // namespace qvannot
