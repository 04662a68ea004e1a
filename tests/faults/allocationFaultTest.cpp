#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <span>
#include <string_view>

#include "allocationSweep.h"
#include "exampleDocuments.h"
#include "qvToolkit/work/session.h"

/// Each allocation of everything that is done with the example documents fails: once, and from then on.
namespace qvFaults {

namespace {

/// What takes long: each allocation fails for the newest binary documents only.
constexpr std::string_view LongSteps[] = {"migrate", "livePages", "model"};
/// What takes longest: each allocation fails for the smallest document only.
constexpr std::string_view LongestSteps[] = {"dump", "outlinePages"};

bool isOneOf(std::span<std::string_view const> names, Step const& step) {
  return std::ranges::find(names, step.m_name) != names.end();
}

std::uint32_t getStride(Step const& step, Example const& example) {
  bool const isSampled = (isOneOf(LongSteps, step) && !example.m_name.ends_with("6.27.qvs")) ||
                         (isOneOf(LongestSteps, step) && example.m_name != "image_sheet_6.27.qvs");
  return isSampled ? getSampleStep() : 1;
}

class FailingAllocation : public testing::TestWithParam<char const*> {
 protected:
  /// Sweeps the step over all examples.
  static void sweep(Failures failures) {
    std::uint32_t count = 0;
    for (Example const& example : readExamples()) {
      SCOPED_TRACE(example.m_name);
      for (Step const& step : makeSteps(example.m_bytes)) {
        if (step.m_name == GetParam()) count += sweepAllocations(step, failures, getStride(step, example));
      }
    }
    EXPECT_GT(count, 0U) << "nothing was allocated, so nothing was tested";
    std::cout << count << " failures\n";
  }

  qvToolkit::Session const m_session;
};

TEST_P(FailingAllocation, OnceLeavesNoLeakAndNoHalfResult) {
  sweep(Failures::Once);
}

TEST_P(FailingAllocation, FromThenOnLeavesNoLeakAndNoHalfResult) {
  sweep(Failures::FromThenOn);
}

INSTANTIATE_TEST_SUITE_P(Of, FailingAllocation,
                         testing::Values("load", "inspect", "dump", "copy", "clone", "cloneAnnotations",
                                         "transform", "encode", "migrate", "livePages", "outlinePages",
                                         "model", "fonts"),
                         [](auto const& test) { return std::string(test.param); });

}  // namespace

}  // namespace qvFaults
