#include "qvToolkit/work/pool.h"

#include <sys/resource.h>

#include <algorithm>
#include <cerrno>
#include <map>
#include <system_error>
#include <utility>

#include "files/inputFile.h"
#include "files/inputFingerprint.h"
#include "files/outputFolder.h"
#include "files/spool.h"
#include "files/stagedFiles.h"
#include "files/stagingFolder.h"
#include "qvToolkit/outcome/outcomeJson.h"
#include "work/answer.h"
#include "work/runClock.h"
#include "work/taskRunner.h"

namespace qvToolkit {

/// The files that one task writes into.
class PoolResult::Files {
 public:
  Spool m_answer;
  Spool m_errors;
  FileDescriptor m_input;
  FileDescriptor m_staging;
  RunClock m_clock;
};

bool PoolResult::forEachText(std::function<bool(std::string_view)> const& take) const {
  if (m_files == nullptr || m_hasDied) return true;
  AnswerReader const answer(m_files->m_answer);
  return answer.isWhole() && answer.forEachText(take);
}

/// One run of a pool.
class PoolRun {
 public:
  PoolRun(Request const& request, std::vector<PoolInput> const& inputs, PoolOptions const& options,
          std::function<bool(PoolResult const&)> const& show)
      : m_request(request),
        m_inputs(inputs),
        m_options(options),
        m_show(show),
        m_folder(options.m_outputFolder, options.m_force),
        m_protected(listPaths(inputs)),
        // Without processes a result is shown before the next input is begun.
        m_processes(isHere() ? 1 : countProcesses(options.m_processes)) {
    m_folder.protect(m_protected);
  }

  bool run() {
    while (m_shown < m_inputs.size()) {
      begin();
      if (!showWaiting()) return false;
      if (isInterrupted()) return false;
      if (m_running.empty()) continue;
      auto const end = m_runner->wait();
      // What an interruption cuts short is not to be told apart from what it does not.
      if (end.has_value() && !isInterrupted()) take(*end);
    }
    return true;
  }

 private:
  /// Results that wait to be shown, for each process.
  static constexpr std::size_t MaxWaiting = 4;
  static constexpr std::size_t MaxMessageBytes = std::size_t{1} << 20;

  /// As many as are wanted, but not more than files may be opened for, nor than can tell of their end while
  /// nobody listens.
  static std::size_t countProcesses(std::size_t wanted) {
    constexpr std::size_t MaxProcesses = 256;
    constexpr rlim_t FilesOfOthers = 64;
    constexpr rlim_t FilesOfEach = 4 + 2 * MaxWaiting;
    rlimit files{};
    getrlimit(RLIMIT_NOFILE, &files);
    rlim_t const most = files.rlim_cur > FilesOfOthers ? (files.rlim_cur - FilesOfOthers) / FilesOfEach : 0;
    return std::clamp<std::size_t>(wanted, 1, std::clamp<rlim_t>(most, 1, MaxProcesses));
  }

  static std::vector<std::string> listPaths(std::vector<PoolInput> const& inputs) {
    std::vector<std::string> paths;
    paths.reserve(inputs.size());
    for (PoolInput const& input : inputs) paths.push_back(input.m_givenPath);
    return paths;
  }

  bool isInterrupted() const { return m_options.m_interrupted != nullptr && *m_options.m_interrupted != 0; }
  bool writesFiles() const { return !m_options.m_outputFolder.empty(); }
  bool isHere() const { return m_request.m_limits.areLifted(); }

  void begin() {
    while (m_next < m_inputs.size() && m_running.size() < m_processes &&
           m_next - m_shown < MaxWaiting * m_processes && !isInterrupted()) {
      if (m_options.m_onBegin) m_options.m_onBegin(m_next);
      begin(m_next++);
    }
  }

  void begin(std::size_t index) {
    PoolResult result;
    result.m_index = index;
    result.m_files = std::make_shared<PoolResult::Files>();
    if (auto problem = open(index, *result.m_files)) return fail(std::move(result), std::move(*problem));
    TaskOrder const order = makeOrder(index, *result.m_files);
    if (m_runner == nullptr) m_runner = makeRunner();
    m_running.emplace(index, std::move(result));
    m_runner->start(order);
  }

  std::unique_ptr<TaskRunner> makeRunner() const {
    bool const warms = m_inputs.size() > 1;
    return isHere() ? makeHereRunner(m_request, m_options.m_hooks, warms)
                    : makeProgramRunner(m_request, m_options.m_program, m_options.m_hooks, warms);
  }

  /// Why the work cannot begin.
  std::optional<Finding> open(std::size_t index, PoolResult::Files& files) {
    OpenedInput input = openInputFile(m_inputs[index].m_givenPath, m_request.m_limits.get(Limit::Input));
    if (input.m_problem.has_value()) return std::move(input.m_problem);
    files.m_input = std::move(input.m_file);
    if (files.m_answer.getDescriptor() < 0 || files.m_errors.getDescriptor() < 0)
      return makeFinding(FindingCode::OutputFailed,
                         "cannot keep the result: " + std::generic_category().message(errno));
    return writesFiles() ? stage(index, files) : std::nullopt;
  }

  std::optional<Finding> stage(std::size_t index, PoolResult::Files& files) {
    if (!m_folder.open()) return m_folder.getProblem();
    if (!m_staging.isMade()) {
      removeAbandoned(m_folder.get());
      if (!m_staging.make(m_folder.get())) return failToStage();
    }
    files.m_staging = m_staging.makePlace(std::to_string(index));
    return files.m_staging.isOpen() ? std::nullopt : std::optional(failToStage());
  }

  Finding failToStage() const { return makeOutputFinding("write to", m_folder.getPath(), ".", errno); }

  TaskOrder makeOrder(std::size_t index, PoolResult::Files const& files) const {
    PoolInput const& input = m_inputs[index];
    TaskOrder order;
    order.m_number = index;
    order.m_task = {input.m_givenPath, input.m_path, input.m_stem, files.m_input.get()};
    order.m_place = m_folder.getPath();
    order.m_answer = files.m_answer.getDescriptor();
    order.m_errors = files.m_errors.getDescriptor();
    order.m_staging = files.m_staging.get();
    return order;
  }

  /// Of an input that no work came to its end with.
  void fail(PoolResult result, Finding problem) {
    Outcome outcome;
    outcome.m_source = describeSource(result);
    outcome.m_findings.push_back(std::move(problem));
    outcome.m_conclusion = conclude(ExitDone, outcome.m_findings, Severity::Error);
    result.m_outcome = std::move(outcome);
    result.m_hasDied = true;
    addInput(result);
    m_waiting.emplace(result.m_index, std::move(result));
  }

  /// A death is told with the content that somebody must have to look into it.
  static void addInput(PoolResult& result) {
    Source const& source = result.m_outcome.m_source;
    if (source.m_size.has_value())
      result.m_outcome.m_findings.back().m_text +=
          "; the input has " + std::to_string(*source.m_size) + " bytes of SHA-256 " + source.m_sha256;
  }

  void take(TaskEnd const& end) {
    auto running = m_running.extract(end.m_task);
    if (running.empty()) return;
    PoolResult result = std::move(running.mapped());
    auto const files = result.m_files;
    result.m_messages = readMessages(result.m_files->m_errors);
    result.m_facts = describeRun(end, result);
    AnswerReader const answer(result.m_files->m_answer);
    auto death = findDeath(end, m_request.m_limits, answer.isWhole() && isRead(answer, result.m_outcome));
    if (death.has_value()) {
      fail(std::move(result), std::move(*death));
    } else {
      commit(result);
      m_waiting.emplace(result.m_index, std::move(result));
    }
    files->m_input.reset();
    files->m_staging.reset();
    if (writesFiles()) m_staging.removePlace(std::to_string(end.m_task));
  }

  static bool isRead(AnswerReader const& answer, Outcome& outcome) {
    return readOutcome(answer.getOutcome(), outcome).empty();
  }

  RunFacts describeRun(TaskEnd const& end, PoolResult const& result) const {
    RunFacts facts = result.m_files->m_clock.describe();
    facts.m_givenPath = m_inputs[result.m_index].m_givenPath;
    facts.m_processorSeconds = end.m_processorSeconds;
    facts.m_peakMemory = end.m_peakMemory;
    facts.m_process = end.m_process;
    return facts;
  }

  /// Whole results get their names; what is not whole leaves nothing.
  void commit(PoolResult& result) {
    Outcome& outcome = result.m_outcome;
    if (outcome.m_outputs.empty()) return;
    if (m_folder.place(result.m_files->m_staging.get(), outcome.m_outputs)) return;
    outcome.m_outputs.clear();
    for (ViewOutcome& view : outcome.m_views) view.m_page.clear();
    outcome.m_findings.push_back(m_folder.getProblem());
    outcome.m_conclusion = conclude(outcome.m_conclusion, outcome.m_findings, Severity::Error);
  }

  /// The messages in full, or whole lines of their beginning.
  static std::string readMessages(Spool const& errors) {
    std::string text = errors.read(0, std::min<std::uint64_t>(errors.getSize(), MaxMessageBytes));
    if (errors.getSize() > MaxMessageBytes) text.erase(text.rfind('\n') + 1);
    return text;
  }

  /// Which content a process died of: the file may be another one by the time somebody looks.
  Source describeSource(PoolResult const& result) const {
    Source source;
    source.m_path = m_inputs[result.m_index].m_path;
    auto const print = takeFingerprint(result.m_files->m_input.get(), m_request.m_limits.get(Limit::Input));
    if (!print.has_value()) return source;
    source.m_size = print->m_size;
    source.m_sha256 = print->m_sha256;
    return source;
  }

  bool showWaiting() {
    for (auto next = m_waiting.extract(m_shown); !next.empty(); next = m_waiting.extract(m_shown)) {
      ++m_shown;
      if (!m_show(next.mapped())) return false;
    }
    return true;
  }

  Request const& m_request;
  std::vector<PoolInput> const& m_inputs;
  PoolOptions const& m_options;
  std::function<bool(PoolResult const&)> const& m_show;
  OutputFolder m_folder;
  FileIdentities m_protected;
  StagingFolder m_staging;
  std::unique_ptr<TaskRunner> m_runner;
  std::map<std::size_t, PoolResult> m_running;
  std::map<std::size_t, PoolResult> m_waiting;
  std::size_t m_processes;
  std::size_t m_next = 0;
  std::size_t m_shown = 0;
};

bool runPool(Request const& request, std::vector<PoolInput> const& inputs, PoolOptions const& options,
             std::function<bool(PoolResult const&)> const& show) {
  return PoolRun(request, inputs, options, show).run();
}

}  // namespace qvToolkit
