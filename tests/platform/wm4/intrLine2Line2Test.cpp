#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include <wm4/intrLine2Line2.h>

template <class Real>
class Wm4IntrLine2Line2 : public ::testing::Test {
 protected:
  using Line = Wm4::Line2<Real>;
  using Point = Wm4::Vector2<Real>;
  static constexpr Real tolerance = Wm4::Math<Real>::ZERO_TOLERANCE;

  struct Result {
    bool found;
    Wm4::IntersectionType type;
    Point point;
  };
  static Result find(Line const& line0, Line const& line1) {
    Wm4::IntrLine2Line2<Real> query(line0, line1);
    EXPECT_EQ(query.GetIntersectionType(), Wm4::IT_EMPTY);
    bool const found = query.Find();
    return {found, query.GetIntersectionType(), query.GetPoint()};
  }

  Line const xAxis{Point(0, 0), Point(1, 0)};
};
using Precisions = ::testing::Types<float, double>;
TYPED_TEST_SUITE(Wm4IntrLine2Line2, Precisions);

TYPED_TEST(Wm4IntrLine2Line2, FindsThePointWhereLinesCross) {
  using P = Wm4::Vector2<TypeParam>;
  auto const result = this->find(this->xAxis, {P(3, 5), P(0, 1)});
  EXPECT_TRUE(result.found);
  EXPECT_EQ(result.type, Wm4::IT_POINT);
  EXPECT_EQ(result.point, P(3, 0));
}

TYPED_TEST(Wm4IntrLine2Line2, TakesDirectionsOfAnyLength) {
  using P = Wm4::Vector2<TypeParam>;
  auto const result = this->find({P(1, 1), P(4, 4)}, {P(8, 0), P(0, -2)});
  EXPECT_EQ(result.type, Wm4::IT_POINT);
  EXPECT_EQ(result.point, P(8, 8));
}

TYPED_TEST(Wm4IntrLine2Line2, NeedsAPerpendicularProductAboveTheTolerance) {
  using P = Wm4::Vector2<TypeParam>;
  auto const at = [&](TypeParam slope) { return this->find(this->xAxis, {P(0, 1), P(1, slope)}); };
  EXPECT_FALSE(at(this->tolerance).found);
  EXPECT_FALSE(at(-this->tolerance).found);
  EXPECT_EQ(at(std::nextafter(this->tolerance, TypeParam(1))).type, Wm4::IT_POINT);
  EXPECT_EQ(at(-std::nextafter(this->tolerance, TypeParam(1))).type, Wm4::IT_POINT);
}

TYPED_TEST(Wm4IntrLine2Line2, ParallelDistinctLinesDoNotMeet) {
  using P = Wm4::Vector2<TypeParam>;
  auto const result = this->find(this->xAxis, {P(7, 1), P(-1, 0)});
  EXPECT_FALSE(result.found);
  EXPECT_EQ(result.type, Wm4::IT_EMPTY);
}

TYPED_TEST(Wm4IntrLine2Line2, CoincidentLinesMeetInALine) {
  using P = Wm4::Vector2<TypeParam>;
  for (TypeParam const direction : {TypeParam(1), TypeParam(-1)}) {
    auto const result = this->find(this->xAxis, {P(7, 0), P(direction, 0)});
    EXPECT_TRUE(result.found);
    EXPECT_EQ(result.type, Wm4::IT_LINE);
  }
  EXPECT_EQ(this->find(this->xAxis, this->xAxis).type, Wm4::IT_LINE)
      << "the same origin, no difference to normalise";
}

TYPED_TEST(Wm4IntrLine2Line2, NormalisesTheDifferenceOfTheOriginsForCoincidence) {
  using P = Wm4::Vector2<TypeParam>;
  TypeParam const far = TypeParam(2) / this->tolerance;
  EXPECT_EQ(this->find(this->xAxis, {P(far, 1), P(1, 0)}).type, Wm4::IT_LINE);
  EXPECT_EQ(this->find(this->xAxis, {P(far / 8, 1), P(1, 0)}).type, Wm4::IT_EMPTY);
}

TYPED_TEST(Wm4IntrLine2Line2, ALineWithNaNMeetsNothing) {
  using P = Wm4::Vector2<TypeParam>;
  TypeParam const nan = std::numeric_limits<TypeParam>::quiet_NaN();
  EXPECT_FALSE(this->find(this->xAxis, {P(0, 1), P(nan, 1)}).found);
  EXPECT_FALSE(this->find({P(0, 0), P(1, nan)}, {P(0, 1), P(1, 0)}).found);
}
