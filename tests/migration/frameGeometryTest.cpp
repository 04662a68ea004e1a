#include "migration/frameGeometry.h"

#include <gtest/gtest.h>

#include "tests/migration/geometry.h"

namespace qvLegacy::migration {
namespace {

using migrationTest::expectPoints;
using migrationTest::Point;
using Outline = FrameRule::Outline;

constexpr Extent wideBox{{-5, -2}, {5, 2}, {10, 4}};

TEST(FrameGeometry, OnlyFiveShapesHaveAGeometryOfTheirOwn) {
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

TEST(FrameGeometry, OnlyNoFrameHasNoBorder) {
  EXPECT_FALSE(findFrameRule(0)->border);
  for (int shape = 1; shape <= 14; ++shape) EXPECT_TRUE(findFrameRule(shape)->border) << shape;
}

TEST(FrameGeometry, FlagsPointWhereTheirNamesSay) {
  EXPECT_TRUE(!findFrameRule(5)->pointLeft && findFrameRule(5)->pointRight);
  EXPECT_TRUE(findFrameRule(6)->pointLeft && !findFrameRule(6)->pointRight);
  EXPECT_TRUE(findFrameRule(7)->pointLeft && findFrameRule(7)->pointRight);
}

TEST(FrameGeometry, ShapesOutsideTheTableHaveNoRule) {
  EXPECT_EQ(findFrameRule(15), nullptr);
  EXPECT_EQ(findFrameRule(16), nullptr);
  EXPECT_EQ(findFrameRule(-1), nullptr);
}

TEST(FrameGeometry, ASquareGrowsTheShorterSide) {
  EXPECT_EQ(marginToSquare({10, 4}), Point(0, 3));
  EXPECT_EQ(marginToSquare({4, 10}), Point(3, 0));
  EXPECT_EQ(marginToSquare({6, 6}), Point(0, 0));
}

TEST(FrameGeometry, AFlagOnBothSidesHasSixPoints) {
  expectPoints(flagPoints(wideBox, true, true), {{-6.6F, 0}, {-5, 2}, {5, 2}, {6.6F, 0}, {5, -2}, {-5, -2}});
}

TEST(FrameGeometry, AFlagToTheLeftLeavesOutTheRightPoint) {
  expectPoints(flagPoints(wideBox, true, false), {{-6.6F, 0}, {-5, 2}, {5, 2}, {5, -2}, {-5, -2}});
}

TEST(FrameGeometry, AFlagToTheRightLeavesOutTheLeftPoint) {
  expectPoints(flagPoints(wideBox, false, true), {{-5, 2}, {5, 2}, {6.6F, 0}, {5, -2}, {-5, -2}});
}

TEST(FrameGeometry, AParallelogramSlantsOutOfTheBox) {
  expectPoints(parallelogramPoints(wideBox), {{-5, -2}, {-6.6F, 2}, {5, 2}, {6.6F, -2}});
}

TEST(FrameGeometry, ShapesFollowABoxThatIsNotCentred) {
  constexpr Extent box{{10, 20}, {30, 30}, {20, 10}};
  expectPoints(flagPoints(box, true, true), {{6, 25}, {10, 30}, {30, 30}, {34, 25}, {30, 20}, {10, 20}});
  expectPoints(parallelogramPoints(box), {{10, 20}, {6, 30}, {30, 30}, {34, 20}});
}

}  // namespace
}  // namespace qvLegacy::migration
