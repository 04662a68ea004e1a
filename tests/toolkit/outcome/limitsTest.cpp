#include "qvToolkit/outcome/limits.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <set>

#include "qvToolkit/reading/openDocument.h"

using namespace qvToolkit;

namespace {

constexpr std::uint64_t MiB = std::uint64_t{1} << 20;
constexpr std::uint64_t GiB = std::uint64_t{1} << 30;

}  // namespace

TEST(Limits, OfMemoryAndOutputGrowWithTheInput) {
  Limits const limits;
  EXPECT_EQ(limits.getMemory(0), 256 * MiB);
  EXPECT_EQ(limits.getMemory(MiB), 320 * MiB);
  EXPECT_EQ(limits.getMemory(GiB), 4 * GiB);
  EXPECT_EQ(limits.getOutput(MiB), 128 * MiB);
  EXPECT_EQ(limits.getOutput(Limits::Unlimited / 2), Limits::Unlimited);
}

TEST(Limits, ThatAreLiftedLeaveThoseThatAreSet) {
  Limits limits;
  limits.set(Limit::Depth, 7);
  limits.lift();
  EXPECT_EQ(limits.get(Limit::Depth), 7U);
  EXPECT_EQ(limits.getMemory(1), Limits::Unlimited);
  EXPECT_EQ(makeTreeLimits(limits).m_maxDepth, 7U);
  EXPECT_EQ(makeTreeLimits(limits).m_maxNodes, Limits::Unlimited);
}

TEST(Limits, TellWhatIsSetFromWhatIsDefault) {
  Limits limits;
  EXPECT_EQ(limits.findSet(Limit::Views), std::nullopt);
  limits.set(Limit::Views, limits.get(Limit::Views));
  EXPECT_EQ(limits.findSet(Limit::Views), 10'000U);
  EXPECT_NE(limits, Limits());
}

TEST(Limits, HaveAnOptionOfTheirOwnEach) {
  std::set<OptionKey> keys;
  for (std::size_t i = 0; i < LimitCount; ++i) keys.insert(getOptionKey(static_cast<Limit>(i)));
  EXPECT_EQ(keys.size(), LimitCount);
  EXPECT_EQ(keys.count(OptionKey::None), 0U);
}

TEST(Limits, OfOpeningFollowFromThoseOfTheWork) {
  Limits limits;
  OpenLimits open = makeOpenLimits(limits);
  OpenLimits const byDefault;
  EXPECT_EQ(open.m_maxInputBytes, byDefault.m_maxInputBytes);
  EXPECT_EQ(open.m_maxContainers, byDefault.m_maxContainers);
  EXPECT_EQ(open.m_maxFailedReads, byDefault.m_maxFailedReads);
  EXPECT_EQ(open.m_maxStackBytes, byDefault.m_maxStackBytes);
  EXPECT_EQ(open.m_maxMilliseconds, byDefault.m_maxMilliseconds);
  limits.lift();
  open = makeOpenLimits(limits);
  EXPECT_EQ(open.m_maxContainers, Limits::MostContainers);
  EXPECT_EQ(open.m_maxMilliseconds, Limits::Unlimited);
}
