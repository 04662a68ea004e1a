// Eigen as an oracle for the maps whose mathematics it shares.

#include <Eigen/Geometry>

#include "tests/transform/transformTesting.h"

namespace transformTest {

template <class Real>
class TransformationAgainstEigen : public ::testing::Test {
 protected:
  using Affine = Eigen::Transform<Real, 3, Eigen::Affine>;
  using Column = Eigen::Matrix<Real, 3, 1>;

  static constexpr double tolerance = sizeof(Real) == 4 ? 2e-3 : 1e-10;

  static Column column(Vector<Real> const& v) { return {v.X(), v.Y(), v.Z()}; }
  static Vector<Real> vectorOf(Column const& c) { return {c.x(), c.y(), c.z()}; }

  static Affine affine(Transformation<Real> const& t) {
    Affine result;
    for (Eigen::Index i = 0; i < 3; ++i) {
      for (Eigen::Index j = 0; j < 3; ++j) {
        auto const row = static_cast<std::size_t>(i);
        auto const col = static_cast<std::size_t>(j);
        result.matrix()(i, j) = t.m_matrix(row, col) * (t.m_isRSMatrix ? t.m_scale[col] : Real(1));
      }
    }
    result.translation() = column(t.m_translate);
    result.makeAffine();
    return result;
  }

  /// What the transformation treats as singular is compared elsewhere.
  static bool isInvertible(Transformation<Real> const& t) {
    auto const det = affine(t).linear().determinant();
    return t.IsRSMatrix() || det > Real(0.05);
  }

  Random random{41};
};
TYPED_TEST_SUITE(TransformationAgainstEigen, Precisions);

TYPED_TEST(TransformationAgainstEigen, MapsPointsForwardAndBackward) {
  for (int round = 0; round < 2000; ++round) {
    for (auto const& t : oneOfEachKind<TypeParam>(this->random)) {
      auto const p = randomVector<TypeParam>(this->random);
      auto const affine = this->affine(t);
      ASSERT_TRUE(near(t.ApplyForward(p, true), this->vectorOf(affine * this->column(p)), this->tolerance));
      ASSERT_TRUE(
          near(t.ApplyForward(p, false), this->vectorOf(affine.linear() * this->column(p)), this->tolerance));
      if (!this->isInvertible(t)) continue;
      auto const back = affine.inverse();
      ASSERT_TRUE(near(t.ApplyInverse(p, true), this->vectorOf(back * this->column(p)), this->tolerance));
      ASSERT_TRUE(near(t.InvertVector(p), this->vectorOf(back.linear() * this->column(p)), this->tolerance));
    }
  }
}

TYPED_TEST(TransformationAgainstEigen, InvertsAndComposes) {
  for (int round = 0; round < 500; ++round) {
    auto const kinds = oneOfEachKind<TypeParam>(this->random);
    for (auto const& a : kinds) {
      auto const p = randomVector<TypeParam>(this->random);
      if (this->isInvertible(a)) {
        Transformation<TypeParam> inverse;
        a.Inverse(inverse);
        ASSERT_TRUE(near(inverse.ApplyForward(p, true),
                         this->vectorOf(this->affine(a).inverse() * this->column(p)), this->tolerance));
      }
      for (auto const& b : kinds) {
        bool const bareScale =
            !a.IsUniformScale() && a.IsRSMatrix() && a.GetRotate() == Matrix<TypeParam>::IDENTITY;
        if (bareScale && b.IsUniformScale()) continue;  // no true composition by design
        Transformation<TypeParam> product;
        product.Product(a, b);
        ASSERT_TRUE(near(product.ApplyForward(p, true),
                         this->vectorOf(this->affine(a) * this->affine(b) * this->column(p)),
                         this->tolerance));
      }
    }
  }
}

TYPED_TEST(TransformationAgainstEigen, MapsNormalsByTheInverseTranspose) {
  for (int round = 0; round < 2000; ++round) {
    for (auto const& t : oneOfEachKind<TypeParam>(this->random)) {
      if (!this->isInvertible(t)) continue;
      auto const n = randomVector<TypeParam>(this->random);
      auto const expected =
          (this->affine(t).linear().inverse().transpose() * this->column(n)).normalized().eval();
      ASSERT_TRUE(near(t.ApplyNormal(n), this->vectorOf(expected), this->tolerance));
    }
  }
}

}  // namespace transformTest
