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
using qvToolkit::FindingCode;

class JsonRun {
 public:
  JsonRun(JsonFiles const& files, Reporter& reporter)
      : m_files(files), m_reporter(reporter), m_list(files.m_list, reporter) {}

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
    m_list.add(entry);
  }

  std::string makeEntry(std::string const& path) {
    try {
      qvToolkit::JsonWriter json = m_files.m_list.makeEntryWriter();
      m_files.m_writeEntry(json, path);
      return json.takeText();
    } catch (std::bad_alloc const& error) {
      Finding const finding = qvToolkit::makeLimitFinding(error);
      m_reporter.report(path, {finding});
      return makeFailed(path, finding);
    }
  }

  void relay(std::string const& path, Spool const& entry, ExitCode code) {
    if (m_list.add(entry)) return;
    // A worker that withdrew its result has said why.
    if (code == qvToolkit::ExitLimit) {
      addFailed(path, makeFinding(FindingCode::LimitOutput, "its result is larger than it may be"));
    } else if (code == qvToolkit::ExitOutputFailed) {
      addFailed(path, makeFinding(FindingCode::OutputFailed, "its result cannot be kept"));
    } else {
      Finding const garbage =
          makeFinding(FindingCode::WorkerGarbage,
                      "the process that worked on it left no proper result; please report it");
      m_reporter.report(path, {garbage});
      addFailed(path, garbage);
    }
  }

  void addFailed(std::string const& path, Finding const& finding) { m_list.add(makeFailed(path, finding)); }

  std::string makeFailed(std::string const& path, Finding const& finding) {
    qvToolkit::Document document;
    document.m_path = document.m_source.m_path = path;
    document.m_findings = {finding};
    qvToolkit::JsonWriter json = m_files.m_list.makeEntryWriter();
    m_files.m_writeFailedEntry(json, document);
    return json.takeText();
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
