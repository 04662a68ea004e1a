#include "rules/anchors.h"

#include <gtest/gtest.h>

namespace qvLegacy::rules {
namespace {

TEST(Anchors, ZeroIsFreeAndTwelveOthersAreKnown) {
  for (std::uint32_t anchor = 0; anchor <= 12; ++anchor) EXPECT_TRUE(isKnownAnchor(anchor)) << anchor;
  for (std::uint32_t const anchor : {13U, 14U, 255U, 0xFFFFFFFFU}) {
    EXPECT_FALSE(isKnownAnchor(anchor)) << anchor;
    EXPECT_EQ(findAnchorRule(anchor), nullptr) << anchor;
  }
}

TEST(Anchors, AFreeOneHasNoRule) {
  EXPECT_EQ(findAnchorRule(0), nullptr);
}

TEST(Anchors, OnTheLeftTheSubAnnotationLiesBesideItsParent) {
  for (std::uint32_t const anchor : {7U, 8U, 9U}) {
    AnchorRule const& rule = *findAnchorRule(anchor);
    EXPECT_EQ(rule.parentWidths, -0.5F) << anchor;
    EXPECT_EQ(rule.subWidths, -0.5F) << anchor;
  }
}

TEST(Anchors, BelowBottomIsPositiveAndAboveTopNegative) {
  for (std::uint32_t const anchor : {1U, 2U, 3U})
    EXPECT_EQ(findAnchorRule(anchor)->subHeights, 0.5F) << anchor;
  for (std::uint32_t const anchor : {4U, 5U, 6U})
    EXPECT_EQ(findAnchorRule(anchor)->subHeights, -0.5F) << anchor;
}

}  // namespace
}  // namespace qvLegacy::rules
