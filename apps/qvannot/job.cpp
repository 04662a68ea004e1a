#include "job.h"

#include <new>

#include "interruption.h"
#include "memoryBudget.h"
#include "toolkit/limitFinding.h"
#include "worker.h"

namespace qvannot {

namespace {

void doWork(Job const& job, Reporter& reporter) {
  try {
    job.m_work();
  } catch (std::bad_alloc const& error) {
    reporter.report(job.m_path, {qvToolkit::makeLimitFinding(error)});
  }
}

void printSpool(Spool const& spool, Reporter& reporter) {
  constexpr std::uint64_t Piece = 65536;
  std::uint64_t const size = spool.getSize();
  for (std::uint64_t offset = 0; offset < size; offset += Piece) reporter.print(spool.read(offset, Piece));
}

void takeOver(Job const& job, Worker& worker, Reporter& reporter, Progress const& progress) {
  WorkerEnd const end = worker.wait();
  progress.clear();
  reporter.relayErrors(worker.getErrors(), !end.m_exitCode.has_value());
  if (end.m_exitCode.has_value()) {
    reporter.countWorker(*end.m_exitCode);
    if (!job.m_relay) return printSpool(worker.getOutput(), reporter);
    return job.m_relay(worker.getOutput(), *end.m_exitCode);
  }
  // Who interrupts the tool knows why its workers end.
  if (*getInterruption() == 0) reporter.report(job.m_path, {end.m_death});
  if (job.m_afterDeath) job.m_afterDeath(worker.getProcess(), end.m_death);
}

}  // namespace

bool run(Job const& job, Reporter& reporter, Progress const& progress) {
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

qvToolkit::Document openInput(std::string const& path, Limits const& limits, Reporter& reporter) {
  setMemoryBudget(limits.get(Limit::Memory));
  qvToolkit::OpenLimits open = limits.getOpenLimits();
  open.m_onInput = [&](std::uint64_t bytes) { setBudgets(bytes, limits, reporter); };
  return qvToolkit::openDocument(path, open);
}

void setBudgets(std::uint64_t inputBytes, Limits const& limits, Reporter& reporter) {
  std::uint64_t const memory = limits.getMemory(inputBytes);
  setMemoryBudget(memory);
  limitWorkerMemory(memory);
  reporter.setOutputBudget(limits.getOutput(inputBytes));
}

}  // namespace qvannot
