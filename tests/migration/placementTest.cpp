#include "migration/placement.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>

#include "tests/migration/geometry.h"

namespace qvLegacy::migration {
namespace {

using migrationTest::Point;
using migrationTest::Point3;

/// A frame of 10 x 4 at (100, 50, 7) with a sub-annotation of 4 x 2 at (3, 4, 9).
PlacementInput inputAt(std::uint32_t anchor) {
  return {.anchor = anchor,
          .parentPosition = {100.0F, 50.0F, 7.0F},
          .subPosition = {3.0F, 4.0F, 9.0F},
          .subAngle = 0.25F,
          .subScale = 2.0F,
          .parentSize = {10.0F, 4.0F},
          .subSize = {4.0F, 2.0F}};
}

TEST(Placement, EachAnchorHasItsOffset) {
  constexpr std::array<Point, 12> offsets{{{-3, 3},
                                           {0, 3},
                                           {3, 3},
                                           {-3, -3},
                                           {0, -3},
                                           {3, -3},
                                           {-7, 1},
                                           {-7, 0},
                                           {-7, -1},
                                           {7, 1},
                                           {7, 0},
                                           {7, -1}}};
  for (std::uint32_t anchor = 1; anchor <= 12; ++anchor) {
    auto const placement = placeSubAnnotation(inputAt(anchor));
    ASSERT_TRUE(placement.has_value()) << anchor;
    EXPECT_EQ(placement->leaderOffset, offsets[anchor - 1]) << anchor;
    EXPECT_EQ(placement->transform.translation, offsets[anchor - 1]) << anchor;
  }
}

TEST(Placement, AnAnchoredSubAnnotationIsNeitherTurnedNorScaledAndMovedAfterWhatItHas) {
  auto const placement = placeSubAnnotation(inputAt(7));
  ASSERT_TRUE(placement.has_value());
  EXPECT_EQ(placement->transform.angle, 0.0F);
  EXPECT_EQ(placement->transform.scale, Point(1, 1));
  EXPECT_EQ(placement->transform.order, ItemTransform::Order::ExistingTimesNew);
}

TEST(Placement, AnAnchoredLeaderOriginTurnsTheOffsetUpAndKeepsTheParentsDepth) {
  EXPECT_EQ(placeSubAnnotation(inputAt(1))->leaderOrigin, Point3(97, 47, 7));
  EXPECT_EQ(placeSubAnnotation(inputAt(12))->leaderOrigin, Point3(107, 51, 7));
}

TEST(Placement, AFreeSubAnnotationGoesToItsOwnPosition) {
  auto const placement = placeSubAnnotation(inputAt(0));
  ASSERT_TRUE(placement.has_value());
  EXPECT_EQ(placement->transform.translation, Point(3, -4));
  EXPECT_EQ(placement->transform.angle, 0.25F);
  EXPECT_EQ(placement->transform.scale, Point(2, 2));
  EXPECT_EQ(placement->transform.order, ItemTransform::Order::NewTimesExisting);
  EXPECT_EQ(placement->leaderOrigin, Point3(103, 54, 7));
  EXPECT_EQ(placement->leaderOffset, Point(3, -4));
}

TEST(Placement, AnchorsAboveTwelveDoNotExist) {
  EXPECT_FALSE(placeSubAnnotation(inputAt(13)).has_value());
  EXPECT_FALSE(placeSubAnnotation(inputAt(0xFFFFFFFFU)).has_value());
}

}  // namespace
}  // namespace qvLegacy::migration
