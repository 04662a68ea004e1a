#include "migration/measureGeometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/migration/geometry.h"

namespace qvLegacy::migration {
namespace {

using migrationTest::expectPoint;
using migrationTest::Point;
using migrationTest::Point3;

/// Measured from (0, 0) to (10, 0), the dimension line 5 above, the text in its middle, arrows of size 1.
Measure dimension() {
  return {.pointA = {0, 0, 0},
          .pointB = {10, 0, 0},
          .offset = {0, 5, 0},
          .arrows = rules::arrowRuleOf(1),
          .origin = {5, 5, 0},
          .headSize = 1};
}

void expectSegment(Segment const& segment, Point3 const& from, Point3 const& to) {
  expectPoint(segment.from, from);
  expectPoint(segment.to, to);
}

TEST(MeasureGeometry, TheDimensionLineIsSplitAtAnOriginBetweenTheFeet) {
  auto const segments = measureSegments(dimension());
  ASSERT_TRUE(segments.has_value());
  ASSERT_EQ(segments->size(), 8U);
  expectSegment((*segments)[0], {5, 5, 0}, {10, 5, 0});
  expectSegment((*segments)[1], {5, 5, 0}, {0, 5, 0});
}

TEST(MeasureGeometry, BarbsLieBehindTheTipAndToEachSide) {
  auto const segments = measureSegments(dimension());
  ASSERT_TRUE(segments.has_value());
  expectSegment((*segments)[2], {-1, 5.2679F, 0}, {0, 5, 0});
  expectSegment((*segments)[3], {-1, 4.7321F, 0}, {0, 5, 0});
  expectSegment((*segments)[4], {11, 5.2679F, 0}, {10, 5, 0});
  expectSegment((*segments)[5], {11, 4.7321F, 0}, {10, 5, 0});
}

TEST(MeasureGeometry, BarbsFollowTheHeadSize) {
  Measure measure = dimension();
  measure.headSize = 2;
  auto const segments = measureSegments(measure);
  ASSERT_TRUE(segments.has_value());
  expectSegment((*segments)[2], {-2, 5.5358F, 0}, {0, 5, 0});
  expectSegment((*segments)[5], {12, 4.4642F, 0}, {10, 5, 0});
}

TEST(MeasureGeometry, ExtensionLinesRunFromTheMeasuredPointsToTheFeet) {
  auto const segments = measureSegments(dimension());
  ASSERT_TRUE(segments.has_value());
  expectSegment((*segments)[6], {0, 0, 0}, {0, 5, 0});
  expectSegment((*segments)[7], {10, 0, 0}, {10, 5, 0});
}

TEST(MeasureGeometry, EachArrowDirectionPlacesTheBarbs) {
  struct Row {
    std::uint8_t direction;
    float barbAtA;
    float barbAtB;
  };
  for (Row const& row : {Row{0, 1, 9}, Row{1, -1, 11}, Row{2, 1, 11}, Row{3, -1, 9}, Row{4, -1, 9},
                         Row{9, -1, 9}, Row{255, -1, 9}}) {
    SCOPED_TRACE(int{row.direction});
    Measure measure = dimension();
    measure.arrows = rules::arrowRuleOf(row.direction);
    auto const segments = measureSegments(measure);
    ASSERT_TRUE(segments.has_value());
    for (std::size_t const barb : {2U, 3U}) EXPECT_EQ((*segments)[barb].from.X(), row.barbAtA);
    for (std::size_t const barb : {4U, 5U}) EXPECT_EQ((*segments)[barb].from.X(), row.barbAtB);
  }
}

TEST(MeasureGeometry, AnOriginOnAFootGivesOneLineToTheOther) {
  Measure measure = dimension();
  measure.origin = {0, 5, 0};
  auto const segments = measureSegments(measure);
  ASSERT_TRUE(segments.has_value());
  ASSERT_EQ(segments->size(), 7U);
  expectSegment((*segments)[0], {0, 5, 0}, {10, 5, 0});
}

TEST(MeasureGeometry, AnOriginOutsideTheFeetGivesOneLineToTheFartherOne) {
  Measure measure = dimension();
  measure.origin = {20, 5, 0};
  expectSegment(measureSegments(measure)->front(), {20, 5, 0}, {0, 5, 0});
  measure.origin = {-20, 5, 0};
  expectSegment(measureSegments(measure)->front(), {-20, 5, 0}, {10, 5, 0});
}

TEST(MeasureGeometry, FeetThatAreEquallyFarGiveTheLineToTheFirst) {
  Measure measure = dimension();
  measure.pointB = measure.pointA;
  measure.pointB.Z() = 3;
  auto const segments = measureSegments(measure);
  ASSERT_TRUE(segments.has_value());
  ASSERT_EQ(segments->size(), 7U);
  expectSegment(segments->front(), {5, 5, 0}, {0, 5, 0});
}

TEST(MeasureGeometry, FeetTooNearToTellApartGiveTheLineToTheFirst) {
  Measure measure = dimension();
  measure.pointA = {-1e-30F, 0, 0};
  measure.pointB = {-2e-30F, 0, 0};
  measure.origin = {0, 5, 0};
  auto const segments = measureSegments(measure);
  ASSERT_TRUE(segments.has_value());
  ASSERT_EQ(segments->size(), 7U);
  EXPECT_EQ(segments->front().to.X(), -1e-30F);
}

TEST(MeasureGeometry, WithoutAnOffsetTheExtensionLinesRunAcrossTheMeasuredDistance) {
  Measure measure = dimension();
  measure.offset = {0, 0, 0};
  expectPoint(extensionDirection(measure), Point(0, -1));
  auto const segments = measureSegments(measure);
  ASSERT_TRUE(segments.has_value());
  expectSegment((*segments)[6], {0, 0, 0}, {0, 5, 0});
  expectSegment((*segments)[7], {10, 0, 0}, {10, 5, 0});
}

TEST(MeasureGeometry, AnOffsetAcrossThePlaneCountsAsNoneButMovesTheExtensionLinesEnds) {
  Measure measure = dimension();
  measure.offset = {0, 0, 5};
  expectPoint(extensionDirection(measure), Point(0, -1));
  auto const segments = measureSegments(measure);
  ASSERT_TRUE(segments.has_value());
  expectSegment((*segments)[6], {0, 0, 0}, {0, 5, 5});
}

TEST(MeasureGeometry, AnOffsetLongerThanTheWayToTheFootEndsTheExtensionLine) {
  Measure measure = dimension();
  measure.offset = {0, 8, 0};
  auto const segments = measureSegments(measure);
  ASSERT_TRUE(segments.has_value());
  expectSegment((*segments)[6], {0, 0, 0}, {0, 8, 0});
  expectSegment((*segments)[7], {10, 0, 0}, {10, 8, 0});
}

TEST(MeasureGeometry, AnOffsetAwayFromTheDimensionLineIsMeasuredByItsLength) {
  Measure measure = dimension();
  measure.offset = {0, -8, 0};
  expectSegment((*measureSegments(measure))[6], {0, 0, 0}, {0, -8, 0});
  measure.offset = {0, -3, 0};
  expectSegment((*measureSegments(measure))[6], {0, 0, 0}, {0, 5, 0});
}

TEST(MeasureGeometry, AnOffsetAwayFromTheDimensionLineThatIsAsLongAsTheWayToTheFootYieldsToTheFoot) {
  Measure measure = dimension();
  measure.offset = {0, -5, 0};
  auto const segments = measureSegments(measure);
  ASSERT_TRUE(segments.has_value());
  expectSegment((*segments)[6], {0, 0, 0}, {0, 5, 0});
  expectSegment((*segments)[7], {10, 0, 0}, {10, 5, 0});
}

TEST(MeasureGeometry, MeasuredPointsAtUnequalHeightsHaveTheirOwnExtensionLines) {
  Measure measure = dimension();
  measure.pointB = {10, 3, 0};
  auto const segments = measureSegments(measure);
  ASSERT_TRUE(segments.has_value());
  expectSegment((*segments)[6], {0, 0, 0}, {0, 5, 0});
  expectSegment((*segments)[7], {10, 3, 0}, {10, 8, 0});
}

TEST(MeasureGeometry, DepthIsTheOriginsExceptAtTheExtensionLines) {
  Measure measure = dimension();
  measure.pointA.Z() = 1;
  measure.pointB.Z() = 2;
  measure.offset.Z() = 10;
  measure.origin.Z() = 40;
  auto const segments = measureSegments(measure);
  ASSERT_TRUE(segments.has_value());
  for (std::size_t i = 0; i < 6; ++i) {
    EXPECT_EQ((*segments)[i].from.Z(), 40) << i;
    EXPECT_EQ((*segments)[i].to.Z(), 40) << i;
  }
  expectSegment((*segments)[6], {0, 0, 1}, {0, 5, 11});
  expectSegment((*segments)[7], {10, 0, 2}, {10, 5, 12});
}

TEST(MeasureGeometry, ASlantedOffsetTurnsTheWholeDrawing) {
  Measure measure = dimension();
  measure.offset = {5, 5, 0};
  measure.origin = {5, 5, 0};
  auto const feet = findFeet(measure, extensionDirection(measure));
  ASSERT_TRUE(feet.has_value());
  expectPoint(feet->atA, {5, 5});
  expectPoint(feet->atB, {10, 0});
}

TEST(MeasureGeometry, CoincidingPointsWithoutAnOffsetHaveTheDirectionMinusZeroZero) {
  Measure measure = dimension();
  measure.pointA = measure.pointB = {1, 1, 0};
  measure.offset = {0, 0, 0};
  Point const direction = extensionDirection(measure);
  EXPECT_EQ(direction, Point(0, 0));
  EXPECT_TRUE(std::signbit(direction.X()));
  EXPECT_FALSE(std::signbit(direction.Y()));
  EXPECT_FALSE(measureSegments(measure).has_value());
}

TEST(MeasureGeometry, LengthsUpToTheToleranceCountAsZero) {
  Measure measure = dimension();
  measure.offset = {1e-6F, 0, 0};
  expectPoint(extensionDirection(measure), Point(0, -1));
  measure.offset = {2e-6F, 0, 0};
  expectPoint(extensionDirection(measure), Point(1, 0));
}

TEST(MeasureGeometry, NumbersThatAreNoneMakeNoLines) {
  Measure measure = dimension();
  float const nan = std::numeric_limits<float>::quiet_NaN();
  measure.offset = {nan, nan, 0};
  expectPoint(extensionDirection(measure), Point(0, -1));
  measure.pointA = {nan, 0, 0};
  EXPECT_FALSE(measureSegments(measure).has_value());
}

}  // namespace
}  // namespace qvLegacy::migration
