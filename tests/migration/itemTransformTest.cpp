#include "migration/itemTransform.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/migration/geometry.h"

namespace qvLegacy::migration {
namespace {

using migrationTest::expectMatrix;
using migrationTest::Matrix;
using Order = ItemTransform::Order;

constexpr float rightAngle = Wm4::Math<float>::WM4_PI / 2.0F;
constexpr Matrix doubled(2.0F, 0.0F, 5.0F, 0.0F, 2.0F, 7.0F, 0.0F, 0.0F, 1.0F);

TEST(ItemTransform, NothingToDoLeavesAnItemWithoutATransform) {
  EXPECT_FALSE(transformed(std::nullopt, {}).has_value());
  EXPECT_FALSE(transformed(std::nullopt, {.translation = {-0.0F, 0.0F}, .angle = -0.0F}).has_value());
}

TEST(ItemTransform, NothingToDoKeepsWhatAnItemHas) {
  EXPECT_EQ(transformed(doubled, {}), doubled);
}

TEST(ItemTransform, AnItemWithoutATransformGetsTheMatrix) {
  auto const matrix = transformed(std::nullopt, {.translation = {3.0F, -4.0F}});
  ASSERT_TRUE(matrix.has_value());
  expectMatrix(*matrix, {1, 0, 3, 0, 1, -4, 0, 0, 1});
}

TEST(ItemTransform, TheScaleMultipliesTheDiagonalOnly) {
  auto const matrix =
      transformed(std::nullopt, {.translation = {2.0F, 3.0F}, .angle = rightAngle, .scale = {2.0F, 3.0F}});
  ASSERT_TRUE(matrix.has_value());
  expectMatrix(*matrix, {0, -1, 2, 1, 0, 3, 0, 0, 1});

  auto const sixtyDegrees =
      transformed(std::nullopt, {.angle = Wm4::Math<float>::WM4_PI / 3.0F, .scale = {2.0F, 4.0F}});
  ASSERT_TRUE(sixtyDegrees.has_value());
  expectMatrix(*sixtyDegrees, {1, -0.8660254F, 0, 0.8660254F, 2, 0, 0, 0, 1});
}

TEST(ItemTransform, AngleZeroGivesExactlyTheScaleOnTheDiagonal) {
  EXPECT_EQ(transformed(std::nullopt, {.scale = {0.1F, 0.3F}}), Matrix(0.1F, 0, 0, 0, 0.3F, 0, 0, 0, 1));
}

TEST(ItemTransform, TheOrderSaysOnWhichSideOfTheExistingOneTheMatrixGoes) {
  auto const before = transformed(doubled, {.translation = {10.0F, 20.0F}, .order = Order::NewTimesExisting});
  auto const after = transformed(doubled, {.translation = {10.0F, 20.0F}, .order = Order::ExistingTimesNew});
  ASSERT_TRUE(before.has_value() && after.has_value());
  expectMatrix(*before, {2, 0, 15, 0, 2, 27, 0, 0, 1});
  expectMatrix(*after, {2, 0, 25, 0, 2, 47, 0, 0, 1});
}

TEST(ItemTransform, ATranslationScaleOrAngleAloneCounts) {
  EXPECT_TRUE(transformed(std::nullopt, {.translation = {0.0F, 1.0F}}).has_value());
  EXPECT_TRUE(transformed(std::nullopt, {.scale = {1.0F, 0.0F}}).has_value());
  EXPECT_TRUE(transformed(std::nullopt, {.angle = 1.0F}).has_value());
  float const nan = std::numeric_limits<float>::quiet_NaN();
  EXPECT_TRUE(transformed(std::nullopt, {.translation = {nan, 0.0F}}).has_value());
}

TEST(ItemTransform, TheMirrorNegatesTheSecondAxis) {
  EXPECT_EQ(transformed(std::nullopt, verticalMirror), Matrix(1, 0, 0, 0, -1, 0, 0, 0, 1));
  EXPECT_EQ(transformed(doubled, verticalMirror), Matrix(2, 0, 5, 0, -2, 7, 0, 0, 1));
}

}  // namespace
}  // namespace qvLegacy::migration
