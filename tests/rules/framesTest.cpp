#include "rules/frames.h"

#include <gtest/gtest.h>

namespace qvLegacy::rules {
namespace {

using Outline = FrameRule::Outline;

TEST(Frames, OnlyFiveShapesHaveAGeometryOfTheirOwn) {
  for (int shape = 0; shape <= 14; ++shape) {
    FrameRule const* const rule = findFrameRule(shape);
    ASSERT_NE(rule, nullptr) << shape;
    Outline const expected = shape == 2                 ? Outline::Square
                             : shape >= 5 && shape <= 7 ? Outline::Flag
                             : shape == 8               ? Outline::Parallelogram
                                                        : Outline::Box;
    EXPECT_EQ(rule->outline, expected) << shape;
  }
}

TEST(Frames, OnlyNoFrameHasNoBorder) {
  EXPECT_FALSE(findFrameRule(0)->border);
  for (int shape = 1; shape <= 14; ++shape) EXPECT_TRUE(findFrameRule(shape)->border) << shape;
}

TEST(Frames, FlagsPointWhereTheirNamesSay) {
  EXPECT_TRUE(!findFrameRule(5)->pointLeft && findFrameRule(5)->pointRight);
  EXPECT_TRUE(findFrameRule(6)->pointLeft && !findFrameRule(6)->pointRight);
  EXPECT_TRUE(findFrameRule(7)->pointLeft && findFrameRule(7)->pointRight);
}

TEST(Frames, ShapesOutsideTheTableHaveNoRule) {
  EXPECT_EQ(findFrameRule(15), nullptr);
  EXPECT_EQ(findFrameRule(16), nullptr);
  EXPECT_EQ(findFrameRule(-1), nullptr);
}

TEST(Frames, ShapesWithoutGeometryStandInAsRectangles) {
  for (int shape = 0; shape <= 14; ++shape) {
    bool const expected = shape == 3 || shape == 4 || shape >= 9;
    EXPECT_EQ(findFrameRule(shape)->standIn, expected) << shape;
  }
}

}  // namespace
}  // namespace qvLegacy::rules
