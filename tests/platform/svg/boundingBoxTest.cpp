#include "qvSvg/boundingBox.h"

#include <gtest/gtest.h>

#include <limits>

namespace qv::svg {
namespace {

using Point = Wm4::Vector2<float>;

constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();
constexpr float INFINITE = std::numeric_limits<float>::infinity();

TEST(BoundingBox, StartsInvalidWithoutExtent) {
  BoundingBox const box;
  EXPECT_FALSE(box.isValid());
  EXPECT_EQ(box.getSize(), Point::ZERO);
}

TEST(BoundingBox, OfOnePointIsValidAndHasNoExtent) {
  BoundingBox box;
  box.addPoint({3.0F, -4.0F});
  EXPECT_TRUE(box.isValid());
  EXPECT_EQ(box.getMinPoint(), Point(3.0F, -4.0F));
  EXPECT_EQ(box.getMaxPoint(), Point(3.0F, -4.0F));
  EXPECT_EQ(box.getWidth(), 0.0F);
}

TEST(BoundingBox, GrowsToHoldEachPoint) {
  BoundingBox box;
  box.addPoint({1.0F, 5.0F});
  box.addPoint({-2.0F, 7.0F});
  EXPECT_EQ(box.getMinPoint(), Point(-2.0F, 5.0F));
  EXPECT_EQ(box.getMaxPoint(), Point(1.0F, 7.0F));
  EXPECT_EQ(box.getWidth(), 3.0F);
  EXPECT_EQ(box.getHeight(), 2.0F);
  EXPECT_EQ(box.getSize(), Point(3.0F, 2.0F));
}

TEST(BoundingBox, GrowsByTheMarginOnBothSidesOfEachAxis) {
  BoundingBox box({-5.0F, -2.0F}, {5.0F, 2.0F});
  box.addMargin({2.0F, 2.0F});
  EXPECT_EQ(box.getMinPoint(), Point(-7.0F, -4.0F));
  EXPECT_EQ(box.getMaxPoint(), Point(7.0F, 4.0F));
}

TEST(BoundingBox, StaysInvalidWithAMargin) {
  BoundingBox box;
  box.addMargin({2.0F, 2.0F});
  EXPECT_FALSE(box.isValid());
}

TEST(BoundingBox, CanShrinkUntilItIsInsideOut) {
  BoundingBox box({0.0F, 0.0F}, {4.0F, 4.0F});
  box.addMargin({-2.0F, -2.0F});
  EXPECT_TRUE(box.isValid());
  box.addMargin({-1.0F, 0.0F});
  EXPECT_FALSE(box.isValid());
}

TEST(BoundingBox, HasItsCentreHalfwayBetweenTheCorners) {
  BoundingBox const box({1.0F, -3.0F}, {4.0F, 5.0F});
  EXPECT_EQ(box.getCenterPoint(), Point(2.5F, 1.0F));
}

TEST(BoundingBox, MovesBothCornersWhenTranslated) {
  BoundingBox box({1.0F, 2.0F}, {3.0F, 4.0F});
  box.translate({-1.0F, 10.0F});
  EXPECT_EQ(box.getMinPoint(), Point(0.0F, 12.0F));
  EXPECT_EQ(box.getMaxPoint(), Point(2.0F, 14.0F));
}

TEST(BoundingBox, IsInvalidWithACornerThatIsNotFinite) {
  EXPECT_FALSE(BoundingBox({0.0F, 0.0F}, {INFINITE, 1.0F}).isValid());
  EXPECT_FALSE(BoundingBox({0.0F, -INFINITE}, {1.0F, 1.0F}).isValid());
  EXPECT_FALSE(BoundingBox({NOT_A_NUMBER, 0.0F}, {1.0F, 1.0F}).isValid());
}

TEST(BoundingBox, IsSpoiltForGoodByAPointThatIsNotFinite) {
  for (float const bad : {NOT_A_NUMBER, INFINITE, -INFINITE}) {
    BoundingBox first;
    first.addPoint({0.0F, bad});
    first.addPoint({1.0F, 1.0F});
    EXPECT_FALSE(first.isValid());
    BoundingBox later({0.0F, 0.0F}, {1.0F, 1.0F});
    later.addPoint({bad, 0.5F});
    later.addPoint({0.5F, 0.5F});
    EXPECT_FALSE(later.isValid());
  }
}

TEST(BoundingBox, IsUnchangedByAnInvalidBox) {
  BoundingBox box({0.0F, 0.0F}, {1.0F, 1.0F});
  box.addBox(BoundingBox());
  box.addBox(BoundingBox({NOT_A_NUMBER, 0.0F}, {1.0F, 9.0F}));
  EXPECT_TRUE(box.isValid());
  EXPECT_EQ(box.getMaxPoint(), Point(1.0F, 1.0F));
}

TEST(BoundingBox, BecomesTheFirstBoxThatIsAdded) {
  BoundingBox box;
  box.addBox({{-1.0F, -2.0F}, {3.0F, 4.0F}});
  EXPECT_TRUE(box.isValid());
  EXPECT_EQ(box.getMinPoint(), Point(-1.0F, -2.0F));
  EXPECT_EQ(box.getMaxPoint(), Point(3.0F, 4.0F));
}

TEST(BoundingBox, HoldsAllFourCornersAfterATurn) {
  Wm4::Matrix3<float> const quarterTurn(0.0F, -1.0F, 10.0F, 1.0F, 0.0F, 0.0F, 0.0F, 0.0F, 1.0F);
  BoundingBox const box = BoundingBox({0.0F, 0.0F}, {4.0F, 2.0F}).transformed(quarterTurn);
  EXPECT_EQ(box.getMinPoint(), Point(8.0F, 0.0F));
  EXPECT_EQ(box.getMaxPoint(), Point(10.0F, 4.0F));
  EXPECT_FALSE(BoundingBox().transformed(quarterTurn).isValid());
}

}  // namespace
}  // namespace qv::svg
