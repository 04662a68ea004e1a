#include "tests/transform/transformTesting.h"

namespace transformTest {

template <class Real>
class TransformationComposition : public ::testing::Test {
 protected:
  using T = Transformation<Real>;

  static T inverseOf(T const& t) {
    T inverse = general(diagonal<Real>(9, 9, 9), vector<Real>(9, 9, 9));
    inverse.SetScale(vector<Real>(9, 8, 7));
    t.Inverse(inverse);
    return inverse;
  }
  static T product(T const& a, T const& b) {
    T result = general(diagonal<Real>(9, 9, 9), vector<Real>(9, 9, 9));
    result.SetScale(vector<Real>(9, 8, 7));
    result.Product(a, b);
    return result;
  }
  static T turn() {
    T t;
    t.SetRotate(quarterTurn<Real>());
    return t;
  }
};
TYPED_TEST_SUITE(TransformationComposition, Precisions);

// Inverse.

TYPED_TEST(TransformationComposition, InverseOfTheIdentityIsACopy) {
  Transformation<TypeParam> t;
  t.SetMatrix(Matrix<TypeParam>::IDENTITY);
  auto const inverse = this->inverseOf(t);
  EXPECT_EQ(inverse, t);
  expectFlags(inverse, true, false, false);
}

TYPED_TEST(TransformationComposition, InverseOfAGeneralMatrixIsGeneralWithUnitScale) {
  auto t = general(diagonal<TypeParam>(2, 4, 8), vector<TypeParam>(2, 4, 8));
  t.SetScale(vector<TypeParam>(5, 6, 7));
  auto const inverse = this->inverseOf(t);
  EXPECT_EQ(inverse.GetMatrix(), diagonal<TypeParam>(0.5, 0.25, 0.125));
  EXPECT_EQ(inverse.GetScale(), Vector<TypeParam>::ONE);
  EXPECT_EQ(inverse.GetTranslate(), vector<TypeParam>(-1, -1, -1));
  expectFlags(inverse, false, false, false);
}

TYPED_TEST(TransformationComposition, InverseOfASingularMatrixIsTheZeroMatrix) {
  auto const inverse = this->inverseOf(general(diagonal<TypeParam>(1, 1, 0), vector<TypeParam>(1, 2, 3)));
  EXPECT_EQ(inverse.GetMatrix(), Matrix<TypeParam>::ZERO);
  EXPECT_EQ(inverse.GetTranslate(), Vector<TypeParam>::ZERO);
  expectFlags(inverse, false, false, false);
}

TYPED_TEST(TransformationComposition, InverseOfAUniformScaleStaysARotationWithScale) {
  auto const inverse = this->inverseOf(scaling<TypeParam>(2, 2, 2, vector<TypeParam>(1, 2, 3)));
  EXPECT_EQ(inverse.GetMatrix(), Matrix<TypeParam>::IDENTITY);
  EXPECT_EQ(inverse.GetScale(), vector<TypeParam>(0.5, 0.5, 0.5));
  EXPECT_EQ(inverse.GetTranslate(), vector<TypeParam>(-0.5, -1, -1.5));
  expectFlags(inverse, false, true, true);

  auto const turned =
      this->inverseOf(rotation<TypeParam>(quarterTurn<TypeParam>(), 2, vector<TypeParam>(1, 2, 3)));
  EXPECT_EQ(turned.GetMatrix(), quarterTurn<TypeParam>().Transpose());
  EXPECT_EQ(turned.GetTranslate(), vector<TypeParam>(-1, 0.5, -1.5));
}

TYPED_TEST(TransformationComposition, InverseOfScalesOfDifferentSizeIsGeneral) {
  auto const inverse = this->inverseOf(scaling<TypeParam>(1, 2, 4, vector<TypeParam>(1, 2, 3)));
  EXPECT_EQ(inverse.GetMatrix(), diagonal<TypeParam>(1, 0.5, 0.25));
  EXPECT_EQ(inverse.GetScale(), Vector<TypeParam>::ONE);
  EXPECT_EQ(inverse.GetTranslate(), vector<TypeParam>(-1, -1, -0.75));
  expectFlags(inverse, false, false, false);

  auto turned = scaling<TypeParam>(1, 2, 4);
  turned.SetRotate(quarterTurn<TypeParam>());
  EXPECT_EQ(this->inverseOf(turned).GetMatrix(), (Matrix<TypeParam>(0, 1, 0, -0.5, 0, 0, 0, 0, 0.25)));
}

TYPED_TEST(TransformationComposition, InverseOfAMirrorStaysAProperRotationWithScale) {
  auto const inverse = this->inverseOf(scaling<TypeParam>(2, -2, 2, vector<TypeParam>(1, 2, 3)));
  EXPECT_EQ(inverse.GetMatrix(), diagonal<TypeParam>(-1, -1, 1));
  EXPECT_EQ(inverse.GetScale(), vector<TypeParam>(-0.5, 0.5, 0.5));
  EXPECT_EQ(inverse.GetTranslate(), vector<TypeParam>(-0.5, 1, -1.5));
  expectFlags(inverse, false, true, false);

  auto const first = this->inverseOf(scaling<TypeParam>(-2, 2, 2));
  EXPECT_EQ(first.GetMatrix(), Matrix<TypeParam>::IDENTITY);
  EXPECT_EQ(first.GetScale(), vector<TypeParam>(-0.5, 0.5, 0.5));
  expectFlags(first, false, true, false);

  auto const all = this->inverseOf(scaling<TypeParam>(-2, -2, -2.0));
  EXPECT_EQ(all.GetScale(), vector<TypeParam>(-0.5, -0.5, -0.5)) << "equal scales count as uniform before";
}

TYPED_TEST(TransformationComposition, InverseOfTwoNegativeScalesIsUniform) {
  auto const inverse = this->inverseOf(scaling<TypeParam>(-2, -2, 2));
  EXPECT_EQ(inverse.GetMatrix(), diagonal<TypeParam>(-1, -1, 1));
  EXPECT_EQ(inverse.GetScale(), vector<TypeParam>(0.5, 0.5, 0.5));
  expectFlags(inverse, false, true, true);
}

TYPED_TEST(TransformationComposition, InverseOfARotatedMirrorUndoesIt) {
  for (auto const& scale :
       {vector<TypeParam>(2, -2, 2), vector<TypeParam>(-2, 2, 2), vector<TypeParam>(2, 2, -2),
        vector<TypeParam>(-2, -2, 2), vector<TypeParam>(2, -2, -2)}) {
    auto t = rotation<TypeParam>(quarterTurn<TypeParam>(), 1, vector<TypeParam>(1, 2, 3));
    t.SetScale(scale);
    auto const inverse = this->inverseOf(t);
    auto const p = vector<TypeParam>(3, 5, 7);
    EXPECT_EQ(inverse.ApplyForward(t.ApplyForward(p, true), true), p);
    EXPECT_TRUE(inverse.IsRSMatrix());
  }
}

TYPED_TEST(TransformationComposition, InverseBringsALostUniformFlagBack) {
  Transformation<TypeParam> t;
  t.SetMatrix(Matrix<TypeParam>::IDENTITY);
  t.SetRotate(quarterTurn<TypeParam>());
  auto const inverse = this->inverseOf(t);
  EXPECT_EQ(inverse.GetMatrix(), quarterTurn<TypeParam>().Transpose());
  EXPECT_EQ(inverse.GetScale(), Vector<TypeParam>::ONE);
  expectFlags(inverse, false, true, true);
}

TYPED_TEST(TransformationComposition, InverseOfAnInfiniteMirrorIsNotUniform) {
  Transformation<TypeParam> t;
  t.SetScale({infinity<TypeParam>, -infinity<TypeParam>, infinity<TypeParam>});
  auto const inverse = this->inverseOf(t);
  EXPECT_EQ(inverse.GetScale(), Vector<TypeParam>::ZERO);
  EXPECT_TRUE(inverse.IsRSMatrix());
  EXPECT_FALSE(inverse.IsUniformScale());
}

TYPED_TEST(TransformationComposition, InverseRecomputesTheIdentityFlag) {
  Transformation<TypeParam> t;
  t.SetUniformScale(TypeParam(2));
  t.MakeUnitScale();
  ASSERT_FALSE(t.IsIdentity());
  auto const inverse = this->inverseOf(t);
  expectFlags(inverse, true, true, true);
}

TYPED_TEST(TransformationComposition, InverseMayBeWrittenToItself) {
  Random random(11);
  for (Transformation<TypeParam> t : oneOfEachKind<TypeParam>(random)) {
    auto const expected = this->inverseOf(t);
    t.Inverse(t);
    EXPECT_EQ(t, expected);
  }
}

// Product.

TYPED_TEST(TransformationComposition, ProductWithTheIdentityFirstIsACopyOfTheSecond) {
  Transformation<TypeParam> b;
  b.SetUniformScale(TypeParam(2));
  b.MakeUnitScale();
  auto const copy = this->product(Transformation<TypeParam>(), b);
  EXPECT_EQ(copy, b);
  expectFlags(copy, false, true, true);
}

TYPED_TEST(TransformationComposition, ProductWithTheIdentitySecondIsACopyOfTheFirst) {
  auto const copy = this->product(scaling<TypeParam>(1, 2, 1), {});
  EXPECT_EQ(copy, scaling<TypeParam>(1, 2, 1));
  expectFlags(copy, false, true, false);
}

TYPED_TEST(TransformationComposition, ProductOfTwoIdentitiesIsTheSecond) {
  Transformation<TypeParam> generalIdentity;
  generalIdentity.SetMatrix(Matrix<TypeParam>::IDENTITY);
  EXPECT_EQ(this->product({}, generalIdentity), generalIdentity);
  EXPECT_EQ(this->product(generalIdentity, {}), Transformation<TypeParam>());
}

TYPED_TEST(TransformationComposition, ProductKeepsRotationAndScaleUnderAUniformScale) {
  auto const a = rotation<TypeParam>(quarterTurn<TypeParam>(), 2, vector<TypeParam>(1, 2, 3));
  auto b = rotation<TypeParam>(quarterTurn<TypeParam>(), 3, vector<TypeParam>(4, 5, 6));
  auto const uniform = this->product(a, b);
  EXPECT_EQ(uniform.GetMatrix(), diagonal<TypeParam>(-1, -1, 1));
  EXPECT_EQ(uniform.GetTranslate(), vector<TypeParam>(-9, 10, 15));
  EXPECT_EQ(uniform.GetScale(), vector<TypeParam>(6, 6, 6));
  expectFlags(uniform, false, true, true);

  b.SetScale(vector<TypeParam>(1, 2, 3));
  auto const nonUniform = this->product(a, b);
  EXPECT_EQ(nonUniform.GetScale(), vector<TypeParam>(2, 4, 6));
  expectFlags(nonUniform, false, true, false);
}

TYPED_TEST(TransformationComposition, ProductRecomputesUniformityFromTheProducts) {
  auto b = this->turn();
  b.SetScale(vector<TypeParam>(1, 2, 3));
  EXPECT_TRUE(this->product(scaling<TypeParam>(0, 0, 0), b).IsUniformScale());
  Transformation<TypeParam> notANumber;
  notANumber.SetUniformScale(nan<TypeParam>);
  EXPECT_FALSE(this->product(notANumber, b).IsUniformScale());
  EXPECT_TRUE(this->product(notANumber, this->turn()).IsUniformScale());
}

TYPED_TEST(TransformationComposition, ProductThatUndoesItselfIsTheIdentity) {
  auto const product = this->product(scaling<TypeParam>(2, 2, 2), scaling<TypeParam>(0.5, 0.5, 0.5));
  expectFlags(product, true, true, true);
}

TYPED_TEST(TransformationComposition, ProductOfTwoScalesStaysARotationWithScale) {
  auto const product = this->product(scaling<TypeParam>(1, 2, 4, vector<TypeParam>(1, 1, 1)),
                                     scaling<TypeParam>(4, 2, 1, vector<TypeParam>(1, 1, 1)));
  EXPECT_EQ(product.GetMatrix(), Matrix<TypeParam>::IDENTITY);
  EXPECT_EQ(product.GetScale(), vector<TypeParam>(4, 4, 4));
  EXPECT_EQ(product.GetTranslate(), vector<TypeParam>(2, 3, 5));
  expectFlags(product, false, true, true);
}

TYPED_TEST(TransformationComposition, ProductOfAScaleAndAUniformRotationIsNoTrueComposition) {
  auto const a = scaling<TypeParam>(1, 2, 4, vector<TypeParam>(1, 1, 1));
  auto const b = rotation<TypeParam>(quarterTurn<TypeParam>(), 3, vector<TypeParam>(1, 1, 1));
  auto const product = this->product(a, b);
  EXPECT_EQ(product.GetMatrix(), quarterTurn<TypeParam>());
  EXPECT_EQ(product.GetScale(), vector<TypeParam>(3, 6, 12));
  EXPECT_EQ(product.GetTranslate(), vector<TypeParam>(2, 3, 5));
  expectFlags(product, false, true, false);
  auto const p = vector<TypeParam>(1, 0, 0);
  EXPECT_EQ(product.ApplyForward(p, false), vector<TypeParam>(0, 3, 0));
  EXPECT_EQ(a.ApplyForward(b.ApplyForward(p, false), false), vector<TypeParam>(0, 6, 0));
}

TYPED_TEST(TransformationComposition, ProductOfAScaleAndANonUniformRotationIsGeneral) {
  auto b = this->turn();
  b.SetScale(vector<TypeParam>(1, 2, 1));
  auto const product = this->product(scaling<TypeParam>(1, 2, 4), b);
  EXPECT_EQ(product.GetMatrix(), (Matrix<TypeParam>(0, -2, 0, 2, 0, 0, 0, 0, 4)));
  expectFlags(product, false, false, false);
}

TYPED_TEST(TransformationComposition, ProductWithANonUniformRotationFirstIsGeneral) {
  auto a = this->turn();
  a.SetScale(vector<TypeParam>(1, 2, 4));
  a.SetTranslate(vector<TypeParam>(1, 1, 1));
  auto const b = scaling<TypeParam>(2, 2, 2, vector<TypeParam>(1, 2, 3));
  auto const product = this->product(a, b);
  EXPECT_EQ(product.GetMatrix(), (Matrix<TypeParam>(0, -4, 0, 2, 0, 0, 0, 0, 8)));
  EXPECT_EQ(product.GetScale(), Vector<TypeParam>::ONE);
  EXPECT_EQ(product.GetTranslate(), vector<TypeParam>(-3, 2, 13));
  expectFlags(product, false, false, false);
}

TYPED_TEST(TransformationComposition, ProductNeedsTheBitsOfTheIdentityToCountAsUnrotated) {
  auto a = scaling<TypeParam>(1, 2, 4);
  a.m_matrix(0, 1) = TypeParam(-0.0);
  EXPECT_FALSE(this->product(a, this->turn()).IsRSMatrix());
}

TYPED_TEST(TransformationComposition, ProductWithAGeneralMatrixIsGeneral) {
  auto const matrix = general<TypeParam>({1, 2, 3, 0, 1, 4, 5, 6, 0}, vector<TypeParam>(1, 1, 1));
  auto const scale = scaling<TypeParam>(2, 2, 2, vector<TypeParam>(1, 2, 3));
  auto const left = this->product(matrix, scale);
  EXPECT_EQ(left.GetMatrix(), (Matrix<TypeParam>(2, 4, 6, 0, 2, 8, 10, 12, 0)));
  EXPECT_EQ(left.GetTranslate(), vector<TypeParam>(15, 15, 18));
  expectFlags(left, false, false, false);
  auto const right = this->product(scale, matrix);
  EXPECT_EQ(right.GetMatrix(), (Matrix<TypeParam>(2, 4, 6, 0, 2, 8, 10, 12, 0)));
  EXPECT_EQ(right.GetTranslate(), vector<TypeParam>(3, 4, 5));
}

TYPED_TEST(TransformationComposition, ProductIgnoresTheScaleOfAGeneralMatrix) {
  auto matrix = general(diagonal<TypeParam>(2, 3, 4));
  matrix.SetScale(vector<TypeParam>(9, 9, 9));
  EXPECT_EQ(this->product(matrix, this->turn()).GetMatrix(), (Matrix<TypeParam>(0, -2, 0, 3, 0, 0, 0, 0, 4)));
  EXPECT_EQ(this->product(this->turn(), matrix).GetMatrix(), (Matrix<TypeParam>(0, -3, 0, 2, 0, 0, 0, 0, 4)));
}

TYPED_TEST(TransformationComposition, ProductMayBeWrittenToItsOperands) {
  auto moved = translation<TypeParam>(1, 0, 0);
  moved.Product(moved, moved);
  EXPECT_EQ(moved, translation<TypeParam>(2, 0, 0));

  Random random(12);
  auto const kinds = oneOfEachKind<TypeParam>(random);
  for (auto const& a : kinds) {
    for (auto const& b : kinds) {
      auto const expected = this->product(a, b);
      auto first = a;
      first.Product(first, b);
      EXPECT_EQ(first, expected);
      auto second = b;
      second.Product(a, second);
      EXPECT_EQ(second, expected);
    }
    auto both = a;
    both.Product(both, both);
    EXPECT_EQ(both, this->product(a, a));
  }
}

}  // namespace transformTest
