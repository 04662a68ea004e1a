#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include <wm4/matrix3.h>
#include <wm4/matrix4.h>

template <class Real>
class Wm4Matrix : public ::testing::Test {
 protected:
  Wm4::Matrix3<Real> const counting{1, 2, 3, 4, 5, 6, 7, 8, 9};
  Wm4::Matrix3<Real> const quarterTurn{0, -1, 0, 1, 0, 0, 0, 0, 1};
};
using Precisions = ::testing::Types<float, double>;
TYPED_TEST_SUITE(Wm4Matrix, Precisions);

TYPED_TEST(Wm4Matrix, StartsAsZero) {
  EXPECT_EQ(Wm4::Matrix3<TypeParam>(), Wm4::Matrix3<TypeParam>::ZERO);
  EXPECT_EQ(Wm4::Matrix4<TypeParam>(), Wm4::Matrix4<TypeParam>::ZERO);
}

TYPED_TEST(Wm4Matrix, TheIdentityHasPositiveZeros) {
  auto const& identity = Wm4::Matrix3<TypeParam>::IDENTITY;
  for (std::size_t i = 0; i < 9; ++i) {
    EXPECT_EQ(identity.data()[i], TypeParam(i % 4 == 0 ? 1 : 0));
    EXPECT_FALSE(std::signbit(identity.data()[i]));
  }
  auto const& identity4 = Wm4::Matrix4<TypeParam>::IDENTITY;
  for (std::size_t i = 0; i < 16; ++i) EXPECT_EQ(identity4.data()[i], TypeParam(i % 5 == 0 ? 1 : 0));
}

TYPED_TEST(Wm4Matrix, MultipliesColumnVectors) {
  using V = Wm4::Vector3<TypeParam>;
  EXPECT_EQ(this->quarterTurn * V::UNIT_X, V::UNIT_Y);
  EXPECT_EQ(this->counting * V(1, 2, 3), V(14, 32, 50));
}

TYPED_TEST(Wm4Matrix, MultipliesMatricesAndNumbers) {
  using M = Wm4::Matrix3<TypeParam>;
  EXPECT_EQ(this->quarterTurn * this->quarterTurn, M(-1, 0, 0, 0, -1, 0, 0, 0, 1));
  EXPECT_EQ(this->counting * this->quarterTurn, M(2, -1, 3, 5, -4, 6, 8, -7, 9));
  EXPECT_EQ(this->quarterTurn * this->counting, M(-4, -5, -6, 1, 2, 3, 7, 8, 9));
  EXPECT_EQ(this->counting * TypeParam(2), M(2, 4, 6, 8, 10, 12, 14, 16, 18));
}

TYPED_TEST(Wm4Matrix, TransposesAndGivesRowsAndColumns) {
  using V = Wm4::Vector3<TypeParam>;
  EXPECT_EQ(this->counting.Transpose(), (Wm4::Matrix3<TypeParam>(1, 4, 7, 2, 5, 8, 3, 6, 9)));
  EXPECT_EQ(this->counting.row(1), V(4, 5, 6));
  EXPECT_EQ(this->counting.column(1), V(2, 5, 8));
}

TYPED_TEST(Wm4Matrix, WritesEntries) {
  Wm4::Matrix3<TypeParam> m;
  m(1, 2) = TypeParam(5);
  m.data()[0] = TypeParam(3);
  EXPECT_EQ(m, (Wm4::Matrix3<TypeParam>(3, 0, 0, 0, 0, 5, 0, 0, 0)));
  Wm4::Matrix4<TypeParam> n;
  n(3, 1) = TypeParam(5);
  n.data()[0] = TypeParam(3);
  EXPECT_EQ(n, (Wm4::Matrix4<TypeParam>(3, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 5, 0, 0)));
}

TYPED_TEST(Wm4Matrix, ComparesAsNumbers) {
  Wm4::Matrix3<TypeParam> m = Wm4::Matrix3<TypeParam>::IDENTITY;
  m(0, 1) = TypeParam(-0.0);
  EXPECT_EQ(m, Wm4::Matrix3<TypeParam>::IDENTITY);
  m(2, 2) = std::numeric_limits<TypeParam>::quiet_NaN();
  EXPECT_FALSE(m == m);
  Wm4::Matrix4<TypeParam> n = Wm4::Matrix4<TypeParam>::IDENTITY;
  n(3, 3) = std::numeric_limits<TypeParam>::quiet_NaN();
  EXPECT_FALSE(n == n);
}
