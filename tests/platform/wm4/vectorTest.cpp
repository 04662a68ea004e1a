#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include <wm4/vector2.h>
#include <wm4/vector3.h>

template <class Real>
class Wm4Vector : public ::testing::Test {};
using Precisions = ::testing::Types<float, double>;
TYPED_TEST_SUITE(Wm4Vector, Precisions);

TYPED_TEST(Wm4Vector, StartsAsZero) {
  EXPECT_EQ(Wm4::Vector2<TypeParam>(), Wm4::Vector2<TypeParam>::ZERO);
  EXPECT_EQ(Wm4::Vector3<TypeParam>(), Wm4::Vector3<TypeParam>::ZERO);
}

TYPED_TEST(Wm4Vector, KnowsItsConstants) {
  using V2 = Wm4::Vector2<TypeParam>;
  using V3 = Wm4::Vector3<TypeParam>;
  EXPECT_EQ(V2::UNIT_X + V2::UNIT_Y, V2::ONE);
  EXPECT_EQ(V2::UNIT_X, V2(1, 0));
  EXPECT_EQ(V3::UNIT_X + V3::UNIT_Y + V3::UNIT_Z, V3::ONE);
  EXPECT_EQ(V3::UNIT_X, V3(1, 0, 0));
  EXPECT_EQ(V3::UNIT_Y, V3(0, 1, 0));
  EXPECT_EQ(V3::ONE, V3(1, 1, 1));
}

TYPED_TEST(Wm4Vector, ReadsAndWritesComponentsByNameAndIndex) {
  Wm4::Vector2<TypeParam> v2(1, 2);
  v2.X() = 3;
  v2[1] = 4;
  EXPECT_EQ(v2, (Wm4::Vector2<TypeParam>(3, 4)));
  EXPECT_EQ(v2[0], TypeParam(3));
  EXPECT_EQ(v2.Y(), TypeParam(4));
  Wm4::Vector3<TypeParam> v3(1, 2, 3);
  v3.Y() = 5;
  v3.Z() = 6;
  v3[0] = 4;
  EXPECT_EQ(v3, (Wm4::Vector3<TypeParam>(4, 5, 6)));
  EXPECT_EQ(v3[2], TypeParam(6));
}

TYPED_TEST(Wm4Vector, AddsSubtractsScalesAndNegates) {
  using V2 = Wm4::Vector2<TypeParam>;
  EXPECT_EQ(V2(1, 2) + V2(10, 20), V2(11, 22));
  EXPECT_EQ(V2(1, 2) - V2(10, 20), V2(-9, -18));
  EXPECT_EQ(V2(1, 2) * TypeParam(3), V2(3, 6));
  EXPECT_EQ(TypeParam(3) * V2(1, 2), V2(3, 6));
  EXPECT_EQ(-V2(1, -2), V2(-1, 2));
  using V3 = Wm4::Vector3<TypeParam>;
  EXPECT_EQ(V3(1, 2, 3) + V3(10, 20, 30), V3(11, 22, 33));
  EXPECT_EQ(V3(1, 2, 3) - V3(10, 20, 30), V3(-9, -18, -27));
  EXPECT_EQ(V3(1, 2, 3) * TypeParam(3), V3(3, 6, 9));
  EXPECT_EQ(TypeParam(3) * V3(1, 2, 3), V3(3, 6, 9));
  EXPECT_EQ(-V3(1, -2, 3), V3(-1, 2, -3));
  V3 v(1, 2, 3);
  v += V3(1, 1, 1);
  v -= V3(0, 1, 2);
  EXPECT_EQ(v, V3(2, 2, 2));
  V2 w(1, 2);
  w += V2(1, 1);
  w -= V2(0, 1);
  EXPECT_EQ(w, V2(2, 2));
}

TYPED_TEST(Wm4Vector, NegationKeepsTheSignOfZero) {
  EXPECT_TRUE(std::signbit((-Wm4::Vector3<TypeParam>::ZERO).X()));
  EXPECT_TRUE(std::signbit((-Wm4::Vector2<TypeParam>::ZERO).Y()));
}

TYPED_TEST(Wm4Vector, ComparesAsNumbers) {
  TypeParam const nan = std::numeric_limits<TypeParam>::quiet_NaN();
  EXPECT_EQ((Wm4::Vector3<TypeParam>(TypeParam(-0.0), 0, 0)), Wm4::Vector3<TypeParam>::ZERO);
  EXPECT_FALSE((Wm4::Vector3<TypeParam>(0, nan, 0) == Wm4::Vector3<TypeParam>(0, nan, 0)));
  EXPECT_FALSE((Wm4::Vector3<TypeParam>(0, 0, 1) == Wm4::Vector3<TypeParam>::ZERO));
  EXPECT_EQ((Wm4::Vector2<TypeParam>(TypeParam(-0.0), 0)), Wm4::Vector2<TypeParam>::ZERO);
  EXPECT_FALSE((Wm4::Vector2<TypeParam>(nan, 0) == Wm4::Vector2<TypeParam>(nan, 0)));
  EXPECT_FALSE((Wm4::Vector2<TypeParam>(0, 1) == Wm4::Vector2<TypeParam>::ZERO));
}

TYPED_TEST(Wm4Vector, MultipliesByDotCrossAndPerpendicularProduct) {
  using V2 = Wm4::Vector2<TypeParam>;
  using V3 = Wm4::Vector3<TypeParam>;
  EXPECT_EQ(V2(1, 2).Dot(V2(3, 4)), TypeParam(11));
  EXPECT_EQ(V2(1, 2).DotPerp(V2(3, 4)), TypeParam(-2));
  EXPECT_EQ(V3(1, 2, 3).Dot(V3(4, 5, 6)), TypeParam(32));
  EXPECT_EQ(V3(1, 2, 3).Cross(V3(4, 5, 6)), V3(-3, 6, -3));
  EXPECT_EQ(V3::UNIT_X.Cross(V3::UNIT_Y), V3::UNIT_Z);
}

TYPED_TEST(Wm4Vector, MeasuresItsLength) {
  EXPECT_EQ((Wm4::Vector2<TypeParam>(3, 4).Length()), TypeParam(5));
  EXPECT_EQ((Wm4::Vector2<TypeParam>(3, 4).SquaredLength()), TypeParam(25));
  EXPECT_EQ((Wm4::Vector3<TypeParam>(2, 3, 6).Length()), TypeParam(7));
  EXPECT_EQ((Wm4::Vector3<TypeParam>(2, 3, 6).SquaredLength()), TypeParam(49));
}
