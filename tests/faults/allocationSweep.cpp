#include "allocationSweep.h"

#include <gtest/gtest.h>

#include <new>

namespace qvFaults {

namespace {

using qvFuzz::MemoryFaults;

/// What a failure breaks stays broken, so the step is run undisturbed only now and then.
constexpr std::uint32_t RerunEvery = 64;

std::string runUnder(qvFuzz::AllocationPlan const& plan, Step const& step, std::string const& expected) {
  try {
    MemoryFaults const faults(plan);
    StepResult const result = step.m_run();
    if (result.m_isRefusal || result.m_text == expected) return {};
    return "it passes off something else as its result";
  } catch (std::bad_alloc const&) {
    return {};
  }
}

}  // namespace

FaultyRun runFaulty(Step const& step, std::string const& expected, Failures failures, std::uint32_t first) {
  std::size_t const liveBefore = MemoryFaults::getLiveBytes();
  FaultyRun run;
  run.m_problem = runUnder({failures, first}, step, expected);
  run.m_hasStruck = MemoryFaults::haveStruck();
  if (run.m_problem.empty() && MemoryFaults::getLiveBytes() != liveBefore) run.m_problem = "it leaks";
  return run;
}

std::uint32_t sweepAllocations(Step const& step, Failures failures, std::uint32_t stride) {
  std::string const expected = step.m_run().m_text;
  for (std::uint32_t count = 0;; ++count) {
    std::uint32_t const first = count * stride;
    FaultyRun const run = runFaulty(step, expected, failures, first);
    bool const isLast = !run.m_hasStruck;
    EXPECT_EQ(run.m_problem, "") << step.m_name << ", failure " << first;
    if (isLast || count % RerunEvery == 0) {
      EXPECT_EQ(step.m_run().m_text, expected) << step.m_name << " after failure " << first;
    }
    if (isLast || testing::Test::HasFailure()) return count;
  }
}

}  // namespace qvFaults
