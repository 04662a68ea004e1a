#include <gtest/gtest.h>

#include "fuzz/support/memoryFaults.h"
#include "qvToolkit/files/outputSet.h"

namespace qvFaults {

namespace {

/// The work is counted by what it allocates: a number that is tried is a text that is made.
TEST(OutputNames, OfManyInputsOfOneNameTakeTheSameWorkEach) {
  constexpr std::size_t Inputs = 2000;
  constexpr std::uint32_t MaxAllocationsEach = 20;
  std::vector<std::string> paths;
  for (std::size_t i = 0; i < Inputs; ++i) paths.push_back(std::to_string(i) + "/a name of some length.json");
  qvFuzz::MemoryFaults const faults({qvFuzz::AllocationPlan::Failures::Once, Inputs * MaxAllocationsEach});
  EXPECT_EQ(qvToolkit::makeStems(paths).back(), "a_name_of_some_length-2000");
  EXPECT_FALSE(qvFuzz::MemoryFaults::haveStruck());
}

}  // namespace

}  // namespace qvFaults
