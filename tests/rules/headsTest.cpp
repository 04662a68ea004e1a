#include "rules/heads.h"

#include <gtest/gtest.h>

namespace qvLegacy::rules {
namespace {

TEST(Heads, ThereAreSevenKinds) {
  for (std::uint8_t head = 0; head <= 6; ++head) EXPECT_NE(findHeadRule(head), nullptr) << int{head};
  EXPECT_EQ(findHeadRule(7), nullptr);
  EXPECT_EQ(findHeadRule(255), nullptr);
}

TEST(Heads, HeadZeroDrawsNothing) {
  HeadRule const& rule = *findHeadRule(0);
  EXPECT_TRUE(rule.corners.empty());
  EXPECT_TRUE(rule.arms.empty());
  EXPECT_FALSE(rule.circle);
}

TEST(Heads, OnlyHeadTwoIsACircle) {
  for (std::uint8_t head = 0; head <= 6; ++head)
    EXPECT_EQ(findHeadRule(head)->circle, head == 2) << int{head};
}

TEST(Heads, OnlySquareArrowAndTriangleTurnWithTheLeader) {
  for (std::uint8_t head = 0; head <= 6; ++head) {
    bool const expected = head == 1 || head == 3 || head == 6;
    EXPECT_EQ(findHeadRule(head)->turnsWithLeader(), expected) << int{head};
  }
}

}  // namespace
}  // namespace qvLegacy::rules
