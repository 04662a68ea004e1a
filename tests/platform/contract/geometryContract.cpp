#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <type_traits>

#include "annotationLegacy/platform.h"
#include "ports/geometry.h"

namespace {

using Point2 = Wm4::Vector2<float>;
using Point3 = Wm4::Vector3<float>;
using Matrix3 = Wm4::Matrix3<float>;

static_assert(sizeof(Point2) == 2 * sizeof(float) && sizeof(Point3) == 3 * sizeof(float));
static_assert(sizeof(Wm4::Vector3<double>) == 3 * sizeof(double) && sizeof(Wm4::Vector3<unsigned char>) == 3);
static_assert(sizeof(Matrix3) == 9 * sizeof(float) && sizeof(Wm4::Matrix4<double>) == 16 * sizeof(double));
static_assert(std::is_trivially_copyable_v<Point3> && std::is_trivially_copyable_v<Matrix3>);

TEST(GeometryContract, VectorsAreTheirNumbersInOrderAndBeginAsZero) {
  Point3 const point(1.0F, 2.0F, 3.0F);
  float numbers[3];
  std::memcpy(numbers, &point, sizeof numbers);
  EXPECT_EQ(numbers[0], point.X());
  EXPECT_EQ(numbers[1], point[1]);
  EXPECT_EQ(numbers[2], point.Z());
  EXPECT_EQ(Point3(), Point3(0.0F, 0.0F, 0.0F));
  EXPECT_EQ(Point3::UNIT_Z, Point3(0.0F, 0.0F, 1.0F));
  EXPECT_EQ(Point3::ONE, Point3(1.0F, 1.0F, 1.0F));
  EXPECT_EQ(Point2(), Point2::ZERO);
}

TEST(GeometryContract, VectorsAreComparedAsNumbers) {
  float const nan = std::numeric_limits<float>::quiet_NaN();
  EXPECT_TRUE(Point3(-0.0F, 0.0F, 0.0F) == Point3::ZERO);
  EXPECT_FALSE(Point3(nan, 0.0F, 0.0F) == Point3(nan, 0.0F, 0.0F));
}

TEST(GeometryContract, VectorsCalculateInTheirPrecision) {
  Point3 const a(1.0F, 2.0F, 3.0F);
  Point3 const b(4.0F, 6.0F, 8.0F);
  EXPECT_EQ(b - a, Point3(3.0F, 4.0F, 5.0F));
  EXPECT_EQ(a * 2.0F, Point3(2.0F, 4.0F, 6.0F));
  EXPECT_EQ(a.Dot(b), 40.0F);
  EXPECT_EQ(a.Cross(b), Point3(-2.0F, 4.0F, -2.0F));
  EXPECT_EQ(Point2(3.0F, 4.0F).Length(), 5.0F);
  EXPECT_EQ(Point2(3.0F, 4.0F).SquaredLength(), 25.0F);
  EXPECT_EQ(b.SquaredLength(), 116.0F);
}

TEST(GeometryContract, MatricesAreRowMajorAndMapColumns) {
  Matrix3 const m(0.0F, 1.0F, 2.0F, 3.0F, 4.0F, 5.0F, 6.0F, 7.0F, 8.0F);
  float numbers[9];
  std::memcpy(numbers, &m, sizeof numbers);
  for (std::size_t i = 0; i < 9; ++i) {
    EXPECT_EQ(numbers[i], m(i / 3, i % 3));
    EXPECT_EQ(m.data()[i], numbers[i]);
    EXPECT_EQ(m.Transpose()(i % 3, i / 3), numbers[i]);
  }
  EXPECT_EQ(m.column(1), Point3(1.0F, 4.0F, 7.0F));
  EXPECT_EQ(m * Point3(1.0F, 0.0F, 2.0F), Point3(4.0F, 13.0F, 22.0F));
  EXPECT_EQ(m * Matrix3::IDENTITY, m);
}

TEST(GeometryContract, PlanesKeepNormalAndConstantAsGiven) {
  Wm4::Plane3<float> const plane(Point3(0.0F, 0.0F, 2.0F), 3.0F);
  EXPECT_EQ(plane.Normal, Point3(0.0F, 0.0F, 2.0F));
  EXPECT_EQ(plane.Constant, 3.0F);
}

TEST(GeometryContract, ConstantsHaveTheirPrecision) {
  EXPECT_EQ(Wm4::Math<float>::ZERO_TOLERANCE, 1e-6F);
  EXPECT_EQ(Wm4::Math<double>::ZERO_TOLERANCE, 1e-8);
  EXPECT_EQ(Wm4::Math<float>::MAX_REAL, std::numeric_limits<float>::max());
  EXPECT_EQ(Wm4::Math<float>::WM4_PI, 3.14159265F);
}

TEST(GeometryContract, LinesMeetInAPointWhenTheirDirectionsDifferByMoreThanTheTolerance) {
  Wm4::Line2<float> const x(Point2(0.0F, 2.0F), Point2(1.0F, 0.0F));
  Wm4::Line2<float> const y(Point2(3.0F, 0.0F), Point2(0.0F, 1.0F));
  Wm4::IntrLine2Line2<float> crossing(x, y);
  ASSERT_TRUE(crossing.Find());
  EXPECT_EQ(crossing.GetIntersectionType(), Wm4::IT_POINT);
  EXPECT_EQ(crossing.GetPoint(), Point2(3.0F, 2.0F));
  Wm4::Line2<float> const parallel(Point2(0.0F, 5.0F), Point2(1.0F, 0.0F));
  EXPECT_FALSE(Wm4::IntrLine2Line2<float>(x, parallel).Find());
  Wm4::IntrLine2Line2<float> same(x, x);
  EXPECT_TRUE(same.Find());
  EXPECT_EQ(same.GetIntersectionType(), Wm4::IT_LINE);
}

}  // namespace
