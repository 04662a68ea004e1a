#include "rules/directions.h"

#include <gtest/gtest.h>

#include <limits>

namespace qvLegacy::rules {
namespace {

TEST(Directions, NeedMoreThanAMillionth) {
  EXPECT_TRUE(hasDirection(2e-6F, 0));
  EXPECT_TRUE(hasDirection(0, -1));
  EXPECT_FALSE(hasDirection(1e-6F, 0));
  EXPECT_FALSE(hasDirection(0, 0));
}

TEST(Directions, NeedALengthThatIsANumber) {
  EXPECT_FALSE(hasDirection(std::numeric_limits<float>::quiet_NaN(), 1));
  EXPECT_TRUE(hasDirection(std::numeric_limits<float>::infinity(), 1));
}

}  // namespace
}  // namespace qvLegacy::rules
