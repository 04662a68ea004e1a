#include "rules/arrows.h"

#include <gtest/gtest.h>

#include <utility>

namespace qvLegacy::rules {
namespace {

std::pair<float, float> barbsOf(std::uint8_t direction) {
  ArrowRule const& rule = arrowRuleOf(direction);
  return {rule.atA, rule.atB};
}

TEST(Arrows, EachDirectionHasBarbsOfItsOwn) {
  EXPECT_EQ(barbsOf(0), std::pair(-1.0F, 1.0F));
  EXPECT_EQ(barbsOf(1), std::pair(1.0F, -1.0F));
  EXPECT_EQ(barbsOf(2), std::pair(-1.0F, -1.0F));
  EXPECT_EQ(barbsOf(3), std::pair(1.0F, 1.0F));
}

TEST(Arrows, EveryOtherValueIsDrawnAsTheLastOne) {
  EXPECT_EQ(barbsOf(4), std::pair(1.0F, 1.0F));
  EXPECT_EQ(barbsOf(255), std::pair(1.0F, 1.0F));
}

}  // namespace
}  // namespace qvLegacy::rules
