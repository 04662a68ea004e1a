// A later major version of the geometry library as an oracle where the mathematics is the same.

#include <Wm5IntrLine2Line2.h>
#include <Wm5Matrix3.h>
#include <Wm5Vector3.h>
#undef assertion

#include <wm4/intrLine2Line2.h>

#include "tests/transform/transformTesting.h"

namespace transformTest {

template <class Real>
class TransformationAgainstWildMagic : public ::testing::Test {
 protected:
  using OtherMatrix = Wm5::Matrix3<Real>;
  using OtherVector = Wm5::Vector3<Real>;

  static constexpr double tolerance = sizeof(Real) == 4 ? 2e-3 : 1e-10;

  static OtherVector other(Vector<Real> const& v) { return {v.X(), v.Y(), v.Z()}; }
  static Vector<Real> own(OtherVector const& v) { return {v.X(), v.Y(), v.Z()}; }
  static OtherMatrix other(Matrix<Real> const& m) {
    return OtherMatrix(m(0, 0), m(0, 1), m(0, 2), m(1, 0), m(1, 1), m(1, 2), m(2, 0), m(2, 1), m(2, 2));
  }

  static OtherMatrix linear(Transformation<Real> const& t) {
    OtherMatrix const m = other(t.m_matrix);
    auto const& s = t.m_scale;
    return t.m_isRSMatrix ? m * OtherMatrix(s.X(), s.Y(), s.Z()) : m;
  }

  Random random{51};
};
TYPED_TEST_SUITE(TransformationAgainstWildMagic, Precisions);

TYPED_TEST(TransformationAgainstWildMagic, MapsPointsForwardAndBackward) {
  for (int round = 0; round < 2000; ++round) {
    for (auto const& t : oneOfEachKind<TypeParam>(this->random)) {
      auto const p = randomVector<TypeParam>(this->random);
      auto const matrix = this->linear(t);
      auto const moved = this->own(matrix * this->other(p)) + t.m_translate;
      ASSERT_TRUE(near(t.ApplyForward(p, true), moved, this->tolerance));
      if (!t.IsRSMatrix() && !(matrix.Determinant() > TypeParam(0.05))) continue;
      auto const back = matrix.Inverse() * this->other(p - t.m_translate);
      ASSERT_TRUE(near(t.ApplyInverse(p, true), this->own(back), this->tolerance));
    }
  }
}

TYPED_TEST(TransformationAgainstWildMagic, InvertsGeneralMatrices) {
  for (int round = 0; round < 5000; ++round) {
    auto const m = randomMatrix<TypeParam>(this->random);
    if (!(this->other(m).Determinant() > TypeParam(1))) continue;
    Transformation<TypeParam> inverse;
    general(m).Inverse(inverse);
    auto const expected = this->other(m).Inverse();
    for (std::size_t i = 0; i < 9; ++i) {
      ASSERT_NEAR(inverse.m_matrix.data()[i], expected[static_cast<int>(i / 3)][static_cast<int>(i % 3)],
                  this->tolerance);
    }
  }
}

TYPED_TEST(TransformationAgainstWildMagic, IntersectsLines) {
  using Line = Wm4::Line2<TypeParam>;
  using OtherLine = Wm5::Line2<TypeParam>;
  using OtherPoint = Wm5::Vector2<TypeParam>;
  for (int round = 0; round < 5000; ++round) {
    Line lines[2];
    for (Line& line : lines) {
      double const angle = number<double>(this->random, 0, 6.2);
      line = Line({number<TypeParam>(this->random), number<TypeParam>(this->random)},
                  {real<TypeParam>(std::cos(angle)), real<TypeParam>(std::sin(angle))});
    }
    if (std::abs(lines[0].Direction.DotPerp(lines[1].Direction)) < TypeParam(0.05)) continue;
    auto const otherLine = [](Line const& line) {
      return OtherLine(OtherPoint(line.Origin.X(), line.Origin.Y()),
                       OtherPoint(line.Direction.X(), line.Direction.Y()));
    };
    OtherLine const first = otherLine(lines[0]);
    OtherLine const second = otherLine(lines[1]);
    Wm5::IntrLine2Line2<TypeParam> expected(first, second);
    Wm4::IntrLine2Line2<TypeParam> actual(lines[0], lines[1]);
    ASSERT_TRUE(expected.Find());
    ASSERT_TRUE(actual.Find());
    ASSERT_EQ(actual.GetIntersectionType(), Wm4::IT_POINT);
    ASSERT_NEAR(actual.GetPoint().X(), expected.GetPoint().X(), this->tolerance);
    ASSERT_NEAR(actual.GetPoint().Y(), expected.GetPoint().Y(), this->tolerance);
  }
}

}  // namespace transformTest
