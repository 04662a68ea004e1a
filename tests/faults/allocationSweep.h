#pragma once

#include <cstdint>
#include <string>

#include "documentSteps.h"
#include "fuzz/support/memoryFaults.h"

namespace qvFaults {

using Failures = qvFuzz::AllocationPlan::Failures;

/// How one run under a plan ended.
struct FaultyRun {
  bool m_hasStruck = false;  ///< an allocation failed
  std::string m_problem;     ///< what is wrong with it; empty when all is well
};

/// Runs the step with the allocation behind the first `first` ones failing. It may end in `std::bad_alloc`,
/// in a refusal or in just the expected result; it may leave nothing allocated.
FaultyRun runFaulty(Step const& step, std::string const& expected, Failures failures, std::uint32_t first);

/// Fails each `stride`-th allocation of the step in turn; the expected result is that of an undisturbed run.
/// Now and then in between, and in the end, the step must give that result again. Returns the number of runs
/// with a failure.
std::uint32_t sweepAllocations(Step const& step, Failures failures, std::uint32_t stride);

}  // namespace qvFaults
