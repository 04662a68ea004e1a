#include "tests/transform/transformTesting.h"

namespace transformTest {

template <class Real>
class TransformationApplication : public ::testing::Test {
 protected:
  using V = Vector<Real>;
  using Plane = Wm4::Plane3<Real>;

  static constexpr Real largest = std::numeric_limits<Real>::max();
  V const allLargest{largest, largest, largest};
  /// Quarter turn about z, scale 2, translation (1, 2, 3).
  Transformation<Real> const turned = rotation<Real>(quarterTurn<Real>(), 2, vector<Real>(1, 2, 3));

  static void expectPlane(Plane const& plane, V const& normal, Real constant) {
    EXPECT_TRUE(near(plane.Normal, normal));
    EXPECT_NEAR(plane.Constant, constant, 1e-6 * std::fmax(1.0, std::abs(static_cast<double>(constant))));
  }
};
TYPED_TEST_SUITE(TransformationApplication, Precisions);

// Points forward.

TYPED_TEST(TransformationApplication, TheIdentityReturnsItsInputWithEveryFlag) {
  Transformation<TypeParam> const identity;
  for (TypeParam const special : specialNumbers<TypeParam>()) {
    Vector<TypeParam> const p(special, TypeParam(-0.0), special);
    EXPECT_TRUE(sameVector(identity.ApplyForward(p, true), p));
    EXPECT_TRUE(sameVector(identity.ApplyForward(p, false), p));
    EXPECT_TRUE(sameVector(identity.ApplyInverse(p, true), p));
    EXPECT_TRUE(sameVector(identity.ApplyInverse(p, false), p));
    EXPECT_TRUE(sameVector(identity.InvertVector(p), p));
  }
}

TYPED_TEST(TransformationApplication, ForwardScalesThenRotatesThenTranslates) {
  EXPECT_EQ(this->turned.ApplyForward(vector<TypeParam>(1, 0, 0), true), vector<TypeParam>(1, 4, 3));
  EXPECT_EQ(this->turned.ApplyForward(vector<TypeParam>(1, 0, 0), false), vector<TypeParam>(0, 2, 0));
  Transformation<TypeParam> t = this->turned;
  t.SetScale(vector<TypeParam>(2, 3, 4));
  EXPECT_EQ(t.ApplyForward(vector<TypeParam>(1, 1, 1), true), vector<TypeParam>(-2, 4, 7));
}

TYPED_TEST(TransformationApplication, ForwardWithoutTheFlagOfAPureTranslationReturnsThePoint) {
  auto const t = translation<TypeParam>(1, 2, 3);
  EXPECT_EQ(t.ApplyForward(vector<TypeParam>(4, 5, 6), false), vector<TypeParam>(4, 5, 6));
  EXPECT_EQ(t.ApplyForward(vector<TypeParam>(4, 5, 6), true), vector<TypeParam>(5, 7, 9));
}

TYPED_TEST(TransformationApplication, ForwardOfAGeneralMatrixMultipliesRowsByTheColumn) {
  auto t = general<TypeParam>({1, 2, 3, 4, 5, 6, 7, 8, 10}, vector<TypeParam>(1, 1, 1));
  t.SetScale(vector<TypeParam>(9, 9, 9));
  EXPECT_EQ(t.ApplyForward(vector<TypeParam>(1, 2, 3), true), vector<TypeParam>(15, 33, 54));
  EXPECT_EQ(t.ApplyForward(vector<TypeParam>(1, 2, 3), false), vector<TypeParam>(14, 32, 53));
}

TYPED_TEST(TransformationApplication, ForwardRoundsAfterEveryOperation) {
  // With a fused multiply-add the first product would not be rounded, and the sum would not be 0.
  TypeParam const almost = TypeParam(1) + std::numeric_limits<TypeParam>::epsilon();
  auto const t = general<TypeParam>({almost, -1, 0, 0, 1, 0, 0, 0, 1});
  EXPECT_EQ(t.ApplyForward({almost, almost * almost, TypeParam(0)}, true).X(), TypeParam(0));
}

// Points backward.

TYPED_TEST(TransformationApplication, InverseUndoesForward) {
  EXPECT_EQ(this->turned.ApplyInverse(vector<TypeParam>(1, 4, 3), true), vector<TypeParam>(1, 0, 0));
  EXPECT_EQ(this->turned.ApplyInverse(vector<TypeParam>(0, 2, 0), false), vector<TypeParam>(1, 0, 0));
  EXPECT_EQ(this->turned.InvertVector(vector<TypeParam>(0, 2, 0)), vector<TypeParam>(1, 0, 0));
}

TYPED_TEST(TransformationApplication, InverseOfANonUniformScaleDividesEachComponent) {
  auto const t = scaling<TypeParam>(2, 4, 8, vector<TypeParam>(1, 1, 1));
  EXPECT_EQ(t.ApplyInverse(vector<TypeParam>(3, 5, 9), true), vector<TypeParam>(1, 1, 1));
  EXPECT_EQ(t.InvertVector(vector<TypeParam>(2, 4, 8)), vector<TypeParam>(1, 1, 1));
}

TYPED_TEST(TransformationApplication, InverseOfAZeroScaleComponentIsNotGuarded) {
  auto const result = scaling<TypeParam>(0, 1, 1).ApplyInverse(Vector<TypeParam>::ONE, false);
  EXPECT_EQ(result.X(), infinity<TypeParam>);
  EXPECT_TRUE(std::isnan(result.Y()));
  EXPECT_TRUE(std::isnan(result.Z()));
}

TYPED_TEST(TransformationApplication, InverseOfAZeroUniformScaleIsTheLargestNumber) {
  for (double const zero : {0.0, -0.0}) {
    Transformation<TypeParam> t;
    t.SetUniformScale(real<TypeParam>(zero));
    EXPECT_EQ(t.ApplyInverse(vector<TypeParam>(1, 2, 3), true), this->allLargest);
    EXPECT_EQ(t.ApplyInverse(vector<TypeParam>(1, 2, 3), false), this->allLargest);
    EXPECT_EQ(t.InvertVector(vector<TypeParam>(-1, 0, 0)), this->allLargest);
    EXPECT_EQ(t.InvertVector({nan<TypeParam>, TypeParam(0), TypeParam(0)}), this->allLargest);
  }
}

TYPED_TEST(TransformationApplication, ASingularMatrixSendsEveryPointToTheOrigin) {
  auto const t = general<TypeParam>({1, 2, 3, 2, 4, 6, 0, 0, 1}, vector<TypeParam>(1, 2, 3));
  EXPECT_EQ(t.InvertVector(vector<TypeParam>(4, 5, 6)), Vector<TypeParam>::ZERO);
  EXPECT_EQ(t.ApplyInverse(vector<TypeParam>(4, 5, 6), true), Vector<TypeParam>::ZERO);
}

TYPED_TEST(TransformationApplication, ANegativeDeterminantAwayFromMinusOneCountsAsSingular) {
  for (Matrix<TypeParam> const& m : {diagonal<TypeParam>(2, 1, -1), diagonal<TypeParam>(0.5, 1, -1)}) {
    auto const t = general(m);
    EXPECT_EQ(t.ApplyInverse(vector<TypeParam>(1, 2, 3), true), Vector<TypeParam>::ZERO);
    Transformation<TypeParam> inverse;
    t.Inverse(inverse);
    EXPECT_EQ(inverse.GetMatrix(), Matrix<TypeParam>::ZERO);
  }
  auto const mirror = general(diagonal<TypeParam>(1, 1, -1));
  EXPECT_EQ(mirror.ApplyInverse(vector<TypeParam>(1, 2, 3), true), vector<TypeParam>(1, 2, -3));
}

TYPED_TEST(TransformationApplication, ASmallDeterminantCountsAsSingularBelowTheTolerance) {
  Transformation<TypeParam> inverse;
  general(diagonal<TypeParam>(1e-3, 1, 1)).Inverse(inverse);
  EXPECT_TRUE(near(inverse.GetMatrix(), diagonal<TypeParam>(1000, 1, 1)));
  general(diagonal<TypeParam>(1e-9, 1, 1)).Inverse(inverse);
  EXPECT_EQ(inverse.GetMatrix(), Matrix<TypeParam>::ZERO);
}

TYPED_TEST(TransformationApplication, AGeneralMatrixIsInvertedByItsAdjugate) {
  // Determinant 1, so every entry of the inverse is a whole number.
  auto const t = general<TypeParam>({1, 2, 3, 0, 1, 4, 5, 6, 0}, vector<TypeParam>(1, 2, 3));
  Transformation<TypeParam> inverse;
  t.Inverse(inverse);
  EXPECT_EQ(inverse.GetMatrix(), (Matrix<TypeParam>(-24, 18, 5, 20, -15, -4, -5, 4, 1)));
  EXPECT_EQ(t.ApplyInverse(vector<TypeParam>(15, 16, 20), true), vector<TypeParam>(1, 2, 3));
}

// Planes.

TYPED_TEST(TransformationApplication, TheIdentityReturnsAPlaneAsItIs) {
  auto const plane = Transformation<TypeParam>().ApplyForward({vector<TypeParam>(0, 0, 2), TypeParam(6)});
  EXPECT_EQ(plane.Normal, vector<TypeParam>(0, 0, 2));
  EXPECT_EQ(plane.Constant, TypeParam(6));
}

TYPED_TEST(TransformationApplication, APlaneUnderAUniformScaleKeepsTheLengthOfItsNormal) {
  Transformation<TypeParam> t;
  t.SetUniformScale(TypeParam(2));
  this->expectPlane(t.ApplyForward({vector<TypeParam>(0, 0, 2), TypeParam(8)}), vector<TypeParam>(0, 0, 2),
                    16);
  this->expectPlane(this->turned.ApplyForward({vector<TypeParam>(3, 0, 0), TypeParam(6)}),
                    vector<TypeParam>(0, 3, 0), 18);
}

TYPED_TEST(TransformationApplication, APlaneUnderANonUniformScaleComesOutNormalised) {
  Transformation<TypeParam> t = this->turned;
  t.SetScale(vector<TypeParam>(2, 1, 1));
  this->expectPlane(t.ApplyForward({vector<TypeParam>(4, 0, 0), TypeParam(8)}), vector<TypeParam>(0, 1, 0),
                    6);
}

TYPED_TEST(TransformationApplication, APlaneUnderAGeneralMatrixComesOutNormalised) {
  auto const t = general(diagonal<TypeParam>(2, 1, 1));
  this->expectPlane(t.ApplyForward({vector<TypeParam>(1, 0, 0), TypeParam(3)}), vector<TypeParam>(1, 0, 0),
                    6);
  auto const shear = general<TypeParam>({1, 1, 0, 0, 1, 0, 0, 0, 1}, vector<TypeParam>(0, 0, 5));
  TypeParam const half = std::sqrt(TypeParam(0.5));
  this->expectPlane(shear.ApplyForward({vector<TypeParam>(1, 0, 0), TypeParam(2)}),
                    {half, -half, TypeParam(0)}, 2 * half);
}

TYPED_TEST(TransformationApplication, PlanesWithoutAnImageAreNotGuarded) {
  auto const flat = general(diagonal<TypeParam>(1, 1, 0));
  EXPECT_TRUE(std::isnan(flat.ApplyForward({vector<TypeParam>(0, 0, 1), TypeParam(1)}).Normal.Z()));
  auto const collapsed = scaling<TypeParam>(0, 1, 2);
  EXPECT_TRUE(std::isnan(collapsed.ApplyForward({vector<TypeParam>(1, 1, 1), TypeParam(1)}).Normal.Y()));
}

// Normals.

TYPED_TEST(TransformationApplication, NormalsComeOutAsUnitVectorsEvenUnderTheIdentity) {
  EXPECT_EQ(Transformation<TypeParam>().ApplyNormal(vector<TypeParam>(0, 0, 2)), vector<TypeParam>(0, 0, 1));
  EXPECT_TRUE(near(this->turned.ApplyNormal(vector<TypeParam>(7, 0, 0)), vector<TypeParam>(0, 1, 0)));
}

TYPED_TEST(TransformationApplication, NormalsUseTheInverseTranspose) {
  auto const t = scaling<TypeParam>(1, 2, 1);
  EXPECT_EQ(t.ApplyNormal(vector<TypeParam>(0, 1, 0)), vector<TypeParam>(0, 1, 0));
  double const half = std::sqrt(0.5);
  double const length = std::sqrt(1.25);
  EXPECT_TRUE(
      near(t.ApplyNormal(vector<TypeParam>(half, half, 0)), vector<TypeParam>(1 / length, 0.5 / length, 0)));
  auto const shear = general<TypeParam>({1, 1, 0, 0, 1, 0, 0, 0, 1});
  EXPECT_TRUE(near(shear.ApplyNormal(vector<TypeParam>(1, 0, 0)), vector<TypeParam>(half, -half, 0)));
}

TYPED_TEST(TransformationApplication, NormalsFollowAMirror) {
  EXPECT_EQ(scaling<TypeParam>(-1, 1, 1).ApplyNormal(vector<TypeParam>(1, 0, 0)),
            vector<TypeParam>(-1, 0, 0));
}

TYPED_TEST(TransformationApplication, NormalsWithoutALengthBecomeZero) {
  Transformation<TypeParam> flat;
  flat.SetUniformScale(TypeParam(0));
  EXPECT_EQ(flat.ApplyNormal(vector<TypeParam>(0, 0, 1)), Vector<TypeParam>::ZERO);
  EXPECT_EQ(this->turned.ApplyNormal(Vector<TypeParam>::ZERO), Vector<TypeParam>::ZERO);
  auto const singular = general(diagonal<TypeParam>(1, 1, 0));
  EXPECT_EQ(singular.ApplyNormal(vector<TypeParam>(0, 0, 1)), Vector<TypeParam>::ZERO);
  TypeParam const tiny = std::numeric_limits<TypeParam>::denorm_min();
  EXPECT_EQ(this->turned.ApplyNormal({tiny, TypeParam(0), TypeParam(0)}), Vector<TypeParam>::ZERO);
}

}  // namespace transformTest
