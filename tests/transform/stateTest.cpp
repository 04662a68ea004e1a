#include "tests/transform/transformTesting.h"

namespace transformTest {

template <class Real>
class TransformationState : public ::testing::Test {
 protected:
  Transformation<Real> t;
};
TYPED_TEST_SUITE(TransformationState, Precisions);

// Reset and flags.

TYPED_TEST(TransformationState, StartsAsTheIdentity) {
  expectFlags(this->t, true, true, true);
  EXPECT_TRUE(this->t.IsIdentity());
  EXPECT_TRUE(this->t.IsRSMatrix());
  EXPECT_TRUE(this->t.IsUniformScale());
  EXPECT_EQ(this->t.GetUniformScale(), TypeParam(1));
  EXPECT_EQ(this->t.GetNorm(), TypeParam(1));
  EXPECT_TRUE(this->t.IsFinite());
  EXPECT_EQ(this->t.GetRotate(), Matrix<TypeParam>::IDENTITY);
  EXPECT_EQ(this->t.GetTranslate(), Vector<TypeParam>::ZERO);
  EXPECT_EQ(this->t.GetScale(), Vector<TypeParam>::ONE);
}

TYPED_TEST(TransformationState, MakeIdentityRestoresTheDefaultState) {
  this->t = general(diagonal<TypeParam>(2, 3, 4), vector<TypeParam>(1, 2, 3));
  this->t.SetScale(vector<TypeParam>(5, 6, 7));
  this->t.MakeIdentity();
  EXPECT_EQ(this->t, Transformation<TypeParam>());
}

TYPED_TEST(TransformationState, MakeUnitScaleLeavesTheIdentityFlagAlone) {
  this->t.SetScale(vector<TypeParam>(2, 2, 2));
  this->t.MakeUnitScale();
  EXPECT_EQ(this->t.GetScale(), Vector<TypeParam>::ONE);
  expectFlags(this->t, false, true, true);
  this->t.recomputeIsIdentity();
  EXPECT_TRUE(this->t.IsIdentity());
}

TYPED_TEST(TransformationState, MakeUnitScaleLeavesAGeneralMatrixGeneral) {
  this->t.SetMatrix(diagonal<TypeParam>(2, 1, 1));
  this->t.MakeUnitScale();
  expectFlags(this->t, false, false, true);
  EXPECT_FALSE(this->t.IsUniformScale());
}

TYPED_TEST(TransformationState, SetRotateMakesARotationAndKeepsTheUniformFlag) {
  this->t.SetScale(vector<TypeParam>(1, 2, 1));
  this->t.SetRotate(quarterTurn<TypeParam>());
  expectFlags(this->t, false, true, false);
  this->t.SetUniformScale(TypeParam(2));
  this->t.SetRotate(Matrix<TypeParam>::IDENTITY);
  expectFlags(this->t, false, true, true);
}

TYPED_TEST(TransformationState, SetMatrixWithTheIdentityIsTheIdentityButNoRotation) {
  this->t.SetMatrix(Matrix<TypeParam>::IDENTITY);
  expectFlags(this->t, true, false, false);
  EXPECT_FALSE(this->t.IsRSMatrix());
  EXPECT_FALSE(this->t.IsUniformScale());
}

TYPED_TEST(TransformationState, SetRotateAfterSetMatrixDoesNotBringUniformityBack) {
  this->t.SetMatrix(Matrix<TypeParam>::IDENTITY);
  this->t.SetRotate(Matrix<TypeParam>::IDENTITY);
  expectFlags(this->t, true, true, false);
  EXPECT_FALSE(this->t.IsUniformScale());
}

TYPED_TEST(TransformationState, SetTranslateTouchesTheIdentityFlagOnly) {
  this->t.SetTranslate(vector<TypeParam>(0, 0, 1));
  expectFlags(this->t, false, true, true);
  this->t.SetTranslate(vector<TypeParam>(-0.0, 0, 0));
  expectFlags(this->t, true, true, true);
}

TYPED_TEST(TransformationState, SetScaleFindsUniformityByNumber) {
  this->t.SetScale(vector<TypeParam>(2, 2, 2));
  EXPECT_TRUE(this->t.IsUniformScale());
  this->t.SetScale(vector<TypeParam>(0, -0.0, 0));
  EXPECT_TRUE(this->t.IsUniformScale());
  this->t.SetScale({TypeParam(2), TypeParam(2), nan<TypeParam>});
  EXPECT_FALSE(this->t.IsUniformScale());
  this->t.SetScale({nan<TypeParam>, nan<TypeParam>, nan<TypeParam>});
  EXPECT_FALSE(this->t.IsUniformScale());
  this->t.SetScale(vector<TypeParam>(2, 3, 2));
  EXPECT_FALSE(this->t.IsUniformScale());
  this->t.SetScale(vector<TypeParam>(2, 2, 3));
  EXPECT_FALSE(this->t.IsUniformScale());
}

TYPED_TEST(TransformationState, SetUniformScaleIsUniformEvenForNaN) {
  this->t.SetScale(vector<TypeParam>(1, 2, 3));
  this->t.SetUniformScale(nan<TypeParam>);
  expectFlags(this->t, false, true, true);
}

TYPED_TEST(TransformationState, ScalesOfAGeneralMatrixHaveNoEffectUntilSetRotate) {
  this->t.SetMatrix(diagonal<TypeParam>(3, 3, 3));
  this->t.SetUniformScale(TypeParam(2));
  expectFlags(this->t, false, false, true);
  EXPECT_FALSE(this->t.IsUniformScale());
  EXPECT_EQ(this->t.ApplyForward(Vector<TypeParam>::ONE, true), vector<TypeParam>(3, 3, 3));
  this->t.SetRotate(diagonal<TypeParam>(3, 3, 3));
  EXPECT_EQ(this->t.ApplyForward(Vector<TypeParam>::ONE, true), vector<TypeParam>(6, 6, 6));
  EXPECT_TRUE(this->t.IsUniformScale());
}

TYPED_TEST(TransformationState, GetUniformScaleIsTheFirstComponent) {
  this->t.SetScale(vector<TypeParam>(3, 4, 5));
  EXPECT_EQ(this->t.GetUniformScale(), TypeParam(3));
}

TYPED_TEST(TransformationState, GettersReferToTheFields) {
  Transformation<TypeParam> const& constant = this->t;
  EXPECT_EQ(&this->t.GetRotate(), &this->t.m_matrix);
  EXPECT_EQ(&constant.GetRotate(), &this->t.m_matrix);
  EXPECT_EQ(&constant.GetMatrix(), &this->t.m_matrix);
  EXPECT_EQ(&constant.GetTranslate(), &this->t.m_translate);
  EXPECT_EQ(&constant.GetScale(), &this->t.m_scale);
}

TYPED_TEST(TransformationState, FlagsAreACacheUntilRecomputed) {
  Vector<TypeParam> const ones = Vector<TypeParam>::ONE;
  this->t.GetRotate()(0, 0) = TypeParam(5);
  EXPECT_TRUE(this->t.IsIdentity());
  EXPECT_EQ(this->t.ApplyForward(ones, true), ones);
  this->t.recomputeIsIdentity();
  EXPECT_FALSE(this->t.IsIdentity());
  EXPECT_EQ(this->t.ApplyForward(ones, true), vector<TypeParam>(5, 1, 1));
}

// The identity rule: numbers for the vectors, bits for the matrix.

TYPED_TEST(TransformationState, ANegativeZeroInTheMatrixIsNoIdentity) {
  Matrix<TypeParam> matrix = Matrix<TypeParam>::IDENTITY;
  matrix(0, 1) = TypeParam(-0.0);
  this->t.SetRotate(matrix);
  EXPECT_EQ(matrix, Matrix<TypeParam>::IDENTITY);
  EXPECT_FALSE(this->t.IsIdentity());
  EXPECT_FALSE(this->t == Transformation<TypeParam>());
  EXPECT_TRUE(this->t.Equals(Transformation<TypeParam>()));
}

TYPED_TEST(TransformationState, EveryEntryCountsForTheIdentity) {
  for (std::size_t i = 0; i < 9; ++i) {
    Matrix<TypeParam> matrix = Matrix<TypeParam>::IDENTITY;
    matrix.data()[i] += std::numeric_limits<TypeParam>::epsilon();
    this->t.SetRotate(matrix);
    EXPECT_FALSE(this->t.IsIdentity()) << i;
  }
  for (std::size_t i = 0; i < 3; ++i) {
    Transformation<TypeParam> moved;
    moved.m_translate[i] = std::numeric_limits<TypeParam>::denorm_min();
    moved.recomputeIsIdentity();
    EXPECT_FALSE(moved.IsIdentity()) << i;
    Transformation<TypeParam> scaled;
    scaled.m_scale[i] = TypeParam(2);
    scaled.recomputeIsIdentity();
    EXPECT_FALSE(scaled.IsIdentity()) << i;
  }
}

TYPED_TEST(TransformationState, NaNIsNoIdentity) {
  this->t.SetTranslate({nan<TypeParam>, TypeParam(0), TypeParam(0)});
  EXPECT_FALSE(this->t.IsIdentity());
  this->t.SetTranslate(Vector<TypeParam>::ZERO);
  this->t.SetScale({TypeParam(1), nan<TypeParam>, TypeParam(1)});
  EXPECT_FALSE(this->t.IsIdentity());
}

TYPED_TEST(TransformationState, AGeneralMatrixNeedsScaleOneForTheIdentity) {
  this->t.SetScale(vector<TypeParam>(2, 2, 2));
  this->t.SetMatrix(Matrix<TypeParam>::IDENTITY);
  EXPECT_FALSE(this->t.IsIdentity());
}

// Queries.

TYPED_TEST(TransformationState, IsFiniteLooksAtAllFifteenNumbers) {
  auto const field = [](Transformation<TypeParam>& of, std::size_t i) -> TypeParam& {
    if (i < 9) return of.m_matrix.data()[i];
    return i < 12 ? of.m_translate[i - 9] : of.m_scale[i - 12];
  };
  for (std::size_t i = 0; i < 15; ++i) {
    Transformation<TypeParam> largest;
    for (std::size_t j = 0; j < 15; ++j) field(largest, j) = std::numeric_limits<TypeParam>::max();
    EXPECT_TRUE(largest.IsFinite());
    field(largest, i) = std::numeric_limits<TypeParam>::lowest();
    EXPECT_TRUE(largest.IsFinite());
    for (TypeParam const bad : {nan<TypeParam>, infinity<TypeParam>, -infinity<TypeParam>}) {
      field(largest, i) = bad;
      EXPECT_FALSE(largest.IsFinite()) << i << ' ' << bad;
    }
  }
}

TYPED_TEST(TransformationState, IsFiniteMindsTheScaleOfAGeneralMatrix) {
  this->t.SetMatrix(diagonal<TypeParam>(1, 2, 3));
  this->t.SetScale({TypeParam(1), infinity<TypeParam>, TypeParam(1)});
  EXPECT_FALSE(this->t.IsFinite());
}

TYPED_TEST(TransformationState, NormOfAPureRotationIsItsLargestRowSum) {
  TypeParam const half = std::sqrt(TypeParam(0.5));
  Matrix<TypeParam> const eighth(half, -half, 0, half, half, 0, 0, 0, 1);
  this->t.SetRotate(eighth);
  EXPECT_NEAR(this->t.GetNorm(), std::sqrt(TypeParam(2)), 1e-6);
  this->t.SetScale(vector<TypeParam>(-1, 1, -1));
  EXPECT_NEAR(this->t.GetNorm(), std::sqrt(TypeParam(2)), 1e-6);
  this->t.SetUniformScale(TypeParam(3));
  EXPECT_EQ(this->t.GetNorm(), TypeParam(3));
}

TYPED_TEST(TransformationState, NormOfAScaledRotationIsItsLargestScale) {
  this->t.SetScale(vector<TypeParam>(1, -4, 2));
  EXPECT_EQ(this->t.GetNorm(), TypeParam(4));
  this->t.SetScale(vector<TypeParam>(0.5, 0.25, 0.5));
  EXPECT_EQ(this->t.GetNorm(), TypeParam(0.5));
  this->t.SetScale(vector<TypeParam>(0.5, 1, 1));
  EXPECT_EQ(this->t.GetNorm(), TypeParam(1));
}

TYPED_TEST(TransformationState, NormOfAGeneralMatrixIsItsLargestRowSumWhateverTheScale) {
  this->t.SetMatrix({1, -2, 3, 0, 0, 0, -7, 0, 0});
  this->t.SetUniformScale(TypeParam(100));
  EXPECT_EQ(this->t.GetNorm(), TypeParam(7));
  this->t.SetMatrix({1, -2, 3, 0, 0, 0, 0, 0, 0});
  EXPECT_EQ(this->t.GetNorm(), TypeParam(6));
  this->t.SetMatrix({0, 0, 0, 1, -2, 4, 0, 0, 0});
  EXPECT_EQ(this->t.GetNorm(), TypeParam(7));
}

TYPED_TEST(TransformationState, HomogeneousFormIsTheTransposedOneWithTheTranslationInTheLastRow) {
  this->t.SetRotate(quarterTurn<TypeParam>());
  this->t.SetScale(vector<TypeParam>(2, 3, 4));
  this->t.SetTranslate(vector<TypeParam>(5, 6, 7));
  Wm4::Matrix4<TypeParam> out;
  this->t.GetHomogeneous(out);
  EXPECT_EQ(out, (Wm4::Matrix4<TypeParam>(0, 2, 0, 0, -3, 0, 0, 0, 0, 0, 4, 0, 5, 6, 7, 1)));
}

TYPED_TEST(TransformationState, HomogeneousFormOfAGeneralMatrixIgnoresTheScale) {
  this->t.SetMatrix({1, 2, 3, 4, 5, 6, 7, 8, 9});
  this->t.SetUniformScale(TypeParam(10));
  Wm4::Matrix4<TypeParam> out;
  this->t.GetHomogeneous(out);
  EXPECT_EQ(out, (Wm4::Matrix4<TypeParam>(1, 4, 7, 0, 2, 5, 8, 0, 3, 6, 9, 0, 0, 0, 0, 1)));
}

// Comparisons.

TYPED_TEST(TransformationState, EqualityTakesTheMatrixByBits) {
  Matrix<TypeParam> matrix = Matrix<TypeParam>::IDENTITY;
  matrix(1, 2) = nan<TypeParam>;
  this->t.SetMatrix(matrix);
  EXPECT_TRUE(this->t == Transformation<TypeParam>(this->t));
}

TYPED_TEST(TransformationState, EqualityTakesTheVectorsByNumber) {
  Transformation<TypeParam> other;
  other.SetTranslate(vector<TypeParam>(-0.0, 0, 0));
  EXPECT_TRUE(this->t == other);
  this->t.SetTranslate({nan<TypeParam>, TypeParam(0), TypeParam(0)});
  EXPECT_FALSE(this->t == this->t);
  this->t.SetTranslate(Vector<TypeParam>::ZERO);
  this->t.SetScale({nan<TypeParam>, TypeParam(1), TypeParam(1)});
  EXPECT_FALSE(this->t == this->t);
}

TYPED_TEST(TransformationState, EqualityNeedsAllThreeFlags) {
  for (bool Transformation<TypeParam>::*flag :
       {&Transformation<TypeParam>::m_isIdentity, &Transformation<TypeParam>::m_isRSMatrix,
        &Transformation<TypeParam>::m_isUniformScale}) {
    Transformation<TypeParam> other;
    other.*flag = false;
    EXPECT_FALSE(this->t == other);
    EXPECT_TRUE(this->t != other);
    EXPECT_TRUE(this->t.Equals(other));
  }
}

TYPED_TEST(TransformationState, EqualsBoundsTheSquaredDistanceOfTranslations) {
  EXPECT_TRUE(this->t.Equals(translation<TypeParam>(0.0009, 0, 0)));
  EXPECT_FALSE(this->t.Equals(translation<TypeParam>(0.001, 0, 0)));
  EXPECT_FALSE(this->t.Equals(translation<TypeParam>(0.0008, 0.0008, 0)));
}

TYPED_TEST(TransformationState, EqualsBoundsTheSquaredDistanceOfScalesEvenOfGeneralMatrices) {
  Transformation<TypeParam> other;
  this->t.SetMatrix(diagonal<TypeParam>(2, 2, 2));
  other.SetMatrix(diagonal<TypeParam>(2, 2, 2));
  other.SetScale(vector<TypeParam>(1.0009, 1, 1));
  EXPECT_TRUE(this->t.Equals(other));
  other.SetScale(vector<TypeParam>(1, 1, 1.0011));
  EXPECT_FALSE(this->t.Equals(other));
}

TYPED_TEST(TransformationState, EqualsBoundsEveryMatrixEntry) {
  for (std::size_t i = 0; i < 9; ++i) {
    Transformation<TypeParam> other;
    other.m_matrix.data()[i] += real<TypeParam>(0.9e-6);
    EXPECT_TRUE(this->t.Equals(other)) << i;
    other.m_matrix.data()[i] += real<TypeParam>(0.3e-6);
    EXPECT_FALSE(this->t.Equals(other)) << i;
    EXPECT_FALSE(other.Equals(this->t)) << i;
  }
}

TYPED_TEST(TransformationState, EqualsIsFalseForNaNEvenOnBothSides) {
  this->t.m_matrix(2, 1) = nan<TypeParam>;
  EXPECT_FALSE(this->t.Equals(this->t));
  this->t.MakeIdentity();
  this->t.m_translate[1] = nan<TypeParam>;
  EXPECT_FALSE(this->t.Equals(this->t));
  this->t.MakeIdentity();
  this->t.m_scale[1] = nan<TypeParam>;
  EXPECT_FALSE(this->t.Equals(this->t));
}

}  // namespace transformTest
