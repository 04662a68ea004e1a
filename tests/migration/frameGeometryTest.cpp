#include "migration/frameGeometry.h"

#include <gtest/gtest.h>

#include "tests/migration/geometry.h"

namespace qvLegacy::migration {
namespace {

using migrationTest::expectPoints;
using migrationTest::Point;

constexpr Extent wideBox{{-5, -2}, {5, 2}, {10, 4}};

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
