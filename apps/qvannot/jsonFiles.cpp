#include "jsonFiles.h"

#include <cstddef>
#include <new>

#include "interruption.h"
#include "jsonList.h"
#include "qvToolkit/findings/limitFinding.h"

namespace qvannot {

namespace {

using qvToolkit::ExitCode;
using qvToolkit::Finding;

class JsonRun {
 public:
  JsonRun(JsonFiles const& files, Reporter& reporter)
      : m_files(files), m_reporter(reporter), m_list(reporter) {}

  void run() {
    auto const make = [this](std::size_t i) { return makeJob(m_files.m_files[i]); };
    bool const isDone = runAll(m_files.m_files, make, m_reporter);
    // What was interrupted must not look whole.
    if (isDone && *getInterruption() == 0) m_list.finish();
  }

 private:
  Job makeJob(std::string const& path) {
    return {path, m_files.m_limits, [&] { work(path); },
            [&](Spool const& entry, ExitCode code) { relay(path, entry, code); },
            [&](pid_t, Finding const& death) { addFailed(path, death); }};
  }

  void work(std::string const& path) {
    std::string const entry = makeEntry(path);
    if (!m_files.m_limits.areLifted()) return m_reporter.print(entry);
    static_cast<void>(m_list.add(entry));
  }

  std::string makeEntry(std::string const& path) {
    try {
      return m_files.m_makeEntry(path);
    } catch (std::bad_alloc const& error) {
      Finding const finding = qvToolkit::makeLimitFinding(error);
      m_reporter.report(path, {finding});
      return makeFailed(path, finding);
    }
  }

  void relay(std::string const& path, Spool const& entry, ExitCode code) {
    if (m_list.add(entry)) return;
    // A worker that withdrew its result has said why.
    Finding finding{qvToolkit::FindingCode::LimitOutput,
                    qvToolkit::Severity::Error,
                    "its result is larger than it may be",
                    {},
                    {},
                    "--max-output"};
    if (code == qvToolkit::ExitOutputFailed) {
      finding.m_code = qvToolkit::FindingCode::OutputFailed;
      finding.m_text = "its result cannot be kept";
      finding.m_option.clear();
    } else if (code != qvToolkit::ExitLimit) {
      finding.m_code = qvToolkit::FindingCode::WorkerGarbage;
      finding.m_text = "the process that worked on it left no proper result; please report it";
      finding.m_option.clear();
      m_reporter.report(path, {finding});
    }
    addFailed(path, finding);
  }

  void addFailed(std::string const& path, Finding const& finding) {
    static_cast<void>(m_list.add(makeFailed(path, finding)));
  }

  std::string makeFailed(std::string const& path, Finding const& finding) {
    qvToolkit::Document document;
    document.m_path = path;
    document.m_failure = qvToolkit::ExitLimit;
    document.m_findings = {finding};
    return m_files.m_makeFailedEntry(document);
  }

  JsonFiles const& m_files;
  Reporter& m_reporter;
  JsonList m_list;
};

}  // namespace

void runJson(JsonFiles const& files, Reporter& reporter) {
  JsonRun(files, reporter).run();
}

}  // namespace qvannot
