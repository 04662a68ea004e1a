#include "rules/colors.h"

#include <gtest/gtest.h>

namespace qvLegacy::rules {
namespace {

TEST(Colors, OnlyWhatIsAllButBlackTakesWhiteText) {
  EXPECT_TRUE(takesWhiteText(0, 0, 0));
  EXPECT_TRUE(takesWhiteText(0, 0, 2));
  EXPECT_FALSE(takesWhiteText(0, 0, 3));
  EXPECT_FALSE(takesWhiteText(1, 0, 0));
  EXPECT_FALSE(takesWhiteText(0, 1, 0));
  EXPECT_FALSE(takesWhiteText(255, 255, 255));
}

}  // namespace
}  // namespace qvLegacy::rules
