#include "migration/leaderHeads.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/migration/geometry.h"

namespace qvLegacy::migration {
namespace {

using migrationTest::expectPoint;
using migrationTest::expectPoints;
using migrationTest::Point;
using rules::findHeadRule;

constexpr Point alongX(1, 0);
constexpr Point slanted(0.6F, 0.8F);

std::vector<Point> polygon(std::uint8_t head, float size, Point const& direction) {
  return headPolygon(*findHeadRule(head), size, direction);
}

void expectLines(std::uint8_t head, float size, std::vector<HeadLine> const& expected) {
  std::vector<HeadLine> const lines = headLines(*findHeadRule(head), size);
  ASSERT_EQ(lines.size(), expected.size());
  for (std::size_t i = 0; i < lines.size(); ++i) {
    expectPoint(lines[i].from, expected[i].from);
    expectPoint(lines[i].to, expected[i].to);
  }
}

TEST(LeaderHeads, ASquareIsAlignedWithTheLeader) {
  expectPoints(polygon(1, 2, alongX), {{-1, -1}, {-1, 1}, {1, 1}, {1, -1}});
  expectPoints(polygon(1, 2, slanted), {{0.2F, -1.4F}, {-1.4F, -0.2F}, {-0.2F, 1.4F}, {1.4F, 0.2F}});
}

TEST(LeaderHeads, AnArrowRunsFromBarbOverTipToBarb) {
  expectPoints(polygon(3, 2, alongX), {{-2, 0.6F}, {0, 0}, {-2, -0.6F}});
  expectPoints(polygon(3, 2, slanted), {{-1.68F, -1.24F}, {0, 0}, {-0.72F, -1.96F}});
}

TEST(LeaderHeads, TheTipOfAnArrowIsExactlyZeroWhateverTheSize) {
  float const nan = std::numeric_limits<float>::quiet_NaN();
  float const infinity = std::numeric_limits<float>::infinity();
  for (float const size : {2.0F, -2.0F, 1e38F, infinity, nan}) {
    for (Point const& direction : {Point(-0.6F, 0.8F), Point(0.6F, -0.8F), Point(nan, nan), Point(0, 0)}) {
      Point const tip = polygon(3, size, direction)[1];
      EXPECT_EQ(tip, Point(0, 0));
      EXPECT_FALSE(std::signbit(tip.X()) || std::signbit(tip.Y()));
    }
  }
}

TEST(LeaderHeads, ATriangleHasItsCornerBehindTheTipAndASideThroughIt) {
  expectPoints(polygon(6, 2, alongX), {{0, -1}, {-2, 0}, {0, 1}});
  expectPoints(polygon(6, 2, slanted), {{0.8F, -0.6F}, {-1.2F, -1.6F}, {-0.8F, 0.6F}});
}

TEST(LeaderHeads, ThePlusHasFixedArmsWhateverTheSize) {
  for (float const size : {2.0F, 50.0F, 0.0F}) expectLines(4, size, {{{-1, 0}, {1, 0}}, {{0, -1}, {0, 1}}});
}

TEST(LeaderHeads, TheCrossHasDiagonalsOfTheHeadSize) {
  expectLines(5, 2, {{{-0.7071F, -0.7071F}, {0.7071F, 0.7071F}}, {{0.7071F, -0.7071F}, {-0.7071F, 0.7071F}}});
  expectLines(
      5, 50,
      {{{-17.6775F, -17.6775F}, {17.6775F, 17.6775F}}, {{17.6775F, -17.6775F}, {-17.6775F, 17.6775F}}});
}

TEST(LeaderHeads, DirectedHeadsCollapseWithoutADirection) {
  for (std::uint8_t const head : {std::uint8_t{1}, std::uint8_t{3}, std::uint8_t{6}}) {
    for (Point const& point : polygon(head, 2, {0, 0})) EXPECT_EQ(point, Point(0, 0)) << int{head};
  }
}

TEST(LeaderHeads, ANegativeSizeIsDrawnAsComputed) {
  expectPoints(polygon(3, -2, alongX), {{2, -0.6F}, {0, 0}, {2, 0.6F}});
}

TEST(LeaderHeads, TheDirectionLeadsFromTheOriginToTheEndInThePlane) {
  expectPoint(leaderDirection({3, 4, 9}, {0, 0, 7}), slanted);
  expectPoint(leaderDirection({1, 1, 0}, {1, 3, 0}), {0, -1});
}

TEST(LeaderHeads, AShortLeaderHasNoDirection) {
  EXPECT_EQ(leaderDirection({1, 2, 3}, {1, 2, -8}), Point(0, 0));
  EXPECT_EQ(leaderDirection({1e-6F, 0, 0}, {0, 0, 0}), Point(0, 0));
  EXPECT_EQ(leaderDirection({2e-6F, 0, 0}, {0, 0, 0}), Point(1, 0));
}

TEST(LeaderHeads, ALengthThatIsNoNumberHasNoDirection) {
  float const nan = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(leaderDirection({nan, 0, 0}, {0, 0, 0}), Point(0, 0));
}

}  // namespace
}  // namespace qvLegacy::migration
