#include "job.h"

#include <algorithm>
#include <new>

#include "files/inputFingerprint.h"
#include "interruption.h"
#include "memoryBudget.h"
#include "qvToolkit/findings/limitFinding.h"
#include "qvToolkit/reading/openDocument.h"
#include "worker.h"

namespace qvannot {

using qvToolkit::Limit;
using qvToolkit::Limits;

namespace {

void doWork(Job const& job, Reporter& reporter) {
  try {
    job.m_work();
  } catch (std::bad_alloc const& error) {
    reporter.report(job.m_path, {qvToolkit::makeLimitFinding(error)});
  }
}

/// Tells which content a process died of: the file may be another one by the time somebody looks.
std::string describeInput(Job const& job) {
  auto const print = qvToolkit::takeFingerprint(job.m_path, job.m_limits.get(Limit::Input));
  if (!print.has_value()) return {};
  return "; the input has " + std::to_string(print->m_size) + " bytes of hash " + print->m_hash;
}

void takeOver(Job const& job, Worker& worker, Reporter& reporter, Progress const& progress) {
  WorkerEnd end = worker.wait();
  progress.clear();
  reporter.relayErrors(worker.getErrors(), !end.m_exitCode.has_value());
  if (end.m_exitCode.has_value()) {
    reporter.countWorker(*end.m_exitCode);
    if (!job.m_relay) return reporter.print(worker.getOutput(), 0, worker.getOutput().getSize());
    return job.m_relay(worker.getOutput(), *end.m_exitCode);
  }
  // Who interrupts the tool knows why its workers end.
  if (*getInterruption() == 0) {
    end.m_death.m_text += describeInput(job);
    reporter.report(job.m_path, {end.m_death});
  }
  if (job.m_afterDeath) job.m_afterDeath(worker.getProcess(), end.m_death);
}

}  // namespace

bool run(Job const& job, Reporter& reporter, Progress const& progress) {
  reporter.setInput(job.m_path);
  if (job.m_limits.areLifted()) {
    progress.clear();
    doWork(job, reporter);
    return true;
  }
  Worker worker(job.m_path, job.m_limits);
  if (!worker.isHere()) {
    takeOver(job, worker, reporter, progress);
    return true;
  }
  reporter.beginWorker();
  doWork(job, reporter);
  return false;
}

bool runAll(std::vector<std::string> const& paths, std::function<Job(std::size_t)> const& makeJob,
            Reporter& reporter) {
  Progress const progress(paths.size());
  for (std::size_t i = 0; i < paths.size() && *getInterruption() == 0; ++i) {
    Job const job = makeJob(i);
    if (!reporter.flush() && !job.m_writesFiles) return true;
    progress.show(i, paths[i]);
    if (!run(job, reporter, progress)) return false;
  }
  return true;
}

qvToolkit::Document openInput(std::string const& path, Limits const& limits, Reporter& reporter) {
  setMemoryBudget(limits.get(Limit::Memory));
  qvToolkit::OpenLimits open = qvToolkit::makeOpenLimits(limits);
  open.m_onInput = [&](std::uint64_t bytes) { setBudgets(bytes, limits, reporter); };
  return qvToolkit::openDocument(path, open);
}

void setBudgets(std::uint64_t inputBytes, Limits const& limits, Reporter& reporter) {
  std::uint64_t const memory = limits.getMemory(inputBytes);
  // What the tool itself takes belongs to it, but leaves the document most of a small one.
  setMemoryBudget(memory, std::min(getUncountedBytes(), memory / 16));
  limitWorkerMemory(memory);
  reporter.setOutputBudget(limits.getOutput(inputBytes), limits.get(Limit::OutputFile));
}

}  // namespace qvannot
