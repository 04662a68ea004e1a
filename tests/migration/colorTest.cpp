#include "migration/color.h"

#include <gtest/gtest.h>

namespace qvLegacy::migration {
namespace {

TEST(Color, ContrastIsWhiteOnlyForNearlyBlackColours) {
  EXPECT_EQ(contrastColor({0, 0, 0}), white);
  EXPECT_EQ(contrastColor({0, 0, 1}), white);
  EXPECT_EQ(contrastColor({0, 0, 2}), white);
  EXPECT_EQ(contrastColor({0, 0, 3}), black);
  EXPECT_EQ(contrastColor({0, 1, 0}), black);
  EXPECT_EQ(contrastColor({255, 255, 255}), black);
  EXPECT_EQ(contrastColor({10, 10, 10}), black);
}

TEST(Color, AFloatLuminanceOfExactlyTheThresholdIsNotBelowIt) {
  EXPECT_EQ(contrastColor({1, 0, 0}), black);
}

TEST(Color, TextIsANumberSignAndThreePairsOfUpperCaseDigits) {
  EXPECT_EQ(colorText({255, 128, 0}), "#FF8000");
  EXPECT_EQ(colorText({0, 0, 0}), "#000000");
  EXPECT_EQ(colorText({1, 2, 3}), "#010203");
  EXPECT_EQ(colorText({171, 205, 239}), "#ABCDEF");
}

}  // namespace
}  // namespace qvLegacy::migration
