#include <cstring>

#include "tests/transform/transformTesting.h"

namespace transformTest {

template <class Real>
class TransformationFromHomogeneous : public ::testing::Test {
 protected:
  using Matrix4 = Wm4::Matrix4<Real>;

  /// The decomposition of linear part and translation, written in both conventions over a used object.
  static Transformation<Real> decomposed(Matrix<Real> const& m, Vector<Real> const& t = {}) {
    Matrix4 const columns(m(0, 0), m(0, 1), m(0, 2), t[0],  //
                          m(1, 0), m(1, 1), m(1, 2), t[1],  //
                          m(2, 0), m(2, 1), m(2, 2), t[2],  //
                          7, 8, 9, 10);
    Matrix4 const rows(m(0, 0), m(1, 0), m(2, 0), 7,  //
                       m(0, 1), m(1, 1), m(2, 1), 8,  //
                       m(0, 2), m(1, 2), m(2, 2), 9,  //
                       t[0], t[1], t[2], 10);
    Transformation<Real> fromColumns = used();
    fromColumns.FromHomogeneousMatrix(columns, false);
    Transformation<Real> fromRows = used();
    fromRows.FromHomogeneousMatrix(rows, true);
    EXPECT_EQ(fromColumns.m_isRSMatrix, fromRows.m_isRSMatrix);
    EXPECT_EQ(std::memcmp(&fromColumns, &fromRows, 15 * sizeof(Real) + 3), 0);
    return fromColumns;
  }

  static Transformation<Real> used() {
    auto t = general(diagonal<Real>(4, 4, 4), vector<Real>(9, 9, 9));
    t.SetScale(vector<Real>(5, 5, 6));
    return t;
  }
};
TYPED_TEST_SUITE(TransformationFromHomogeneous, Precisions);

TYPED_TEST(TransformationFromHomogeneous, TheIdentityGivesTheDefaultStateWhateverWasThere) {
  EXPECT_EQ(this->decomposed(Matrix<TypeParam>::IDENTITY), Transformation<TypeParam>());
}

TYPED_TEST(TransformationFromHomogeneous, ReadsWhatGetHomogeneousWrites) {
  auto const t = rotation<TypeParam>(quarterTurn<TypeParam>(), 2, vector<TypeParam>(1, 2, 3));
  Wm4::Matrix4<TypeParam> written;
  t.GetHomogeneous(written);
  auto read = this->used();
  read.FromHomogeneousMatrix(written, true);
  EXPECT_TRUE(near(read.GetMatrix(), t.GetMatrix()));
  EXPECT_TRUE(near(read.GetScale(), t.GetScale()));
  EXPECT_EQ(read.GetTranslate(), t.GetTranslate());
  expectFlags(read, false, true, true);
}

TYPED_TEST(TransformationFromHomogeneous, TheOtherConventionReadsTheTransposeAndIgnoresTheLastRow) {
  auto const t = rotation<TypeParam>(quarterTurn<TypeParam>(), 2, vector<TypeParam>(1, 2, 3));
  Wm4::Matrix4<TypeParam> written;
  t.GetHomogeneous(written);
  auto read = this->used();
  read.FromHomogeneousMatrix(written, false);
  EXPECT_EQ(read.GetMatrix(), quarterTurn<TypeParam>().Transpose());
  EXPECT_EQ(read.GetScale(), vector<TypeParam>(2, 2, 2));
  EXPECT_EQ(read.GetTranslate(), Vector<TypeParam>::ZERO);
  expectFlags(read, false, true, true);
}

TYPED_TEST(TransformationFromHomogeneous, AZeroColumnMakesItGeneral) {
  auto const t = this->decomposed(diagonal<TypeParam>(1, 1, 0));
  EXPECT_EQ(t.GetMatrix(), diagonal<TypeParam>(1, 1, 0));
  EXPECT_EQ(t.GetScale(), Vector<TypeParam>::ONE);
  expectFlags(t, false, false, false);
}

TYPED_TEST(TransformationFromHomogeneous, AColumnTooShortToNormaliseMakesItGeneral) {
  double const tiny = static_cast<double>(std::numeric_limits<TypeParam>::denorm_min());
  auto const t = this->decomposed(diagonal<TypeParam>(tiny, 1, 1));
  EXPECT_EQ(t.GetMatrix(), diagonal<TypeParam>(tiny, 1, 1));
  expectFlags(t, false, false, false);
}

TYPED_TEST(TransformationFromHomogeneous, AShearMakesItGeneral) {
  Matrix<TypeParam> const shear(1, 1, 0, 0, 1, 0, 0, 0, 1);
  auto const t = this->decomposed(shear, vector<TypeParam>(1, 2, 3));
  EXPECT_FALSE(t.IsRSMatrix());
  EXPECT_EQ(t.GetMatrix(), shear);
  EXPECT_EQ(t.GetTranslate(), vector<TypeParam>(1, 2, 3));
  expectFlags(t, false, false, false);
}

TYPED_TEST(TransformationFromHomogeneous, TheProjectionTestSeesPositiveShearOnly) {
  Matrix<TypeParam> sheared(1000, real<TypeParam>(0.0005), 0, 0, 1, 0, 0, 0, 1);
  auto const positive = this->decomposed(sheared);
  EXPECT_EQ(positive.GetMatrix(), sheared);
  expectFlags(positive, false, false, false);
  sheared(0, 1) = -sheared(0, 1);
  auto const negative = this->decomposed(sheared);
  expectFlags(negative, false, true, false);
  EXPECT_TRUE(near(negative.GetScale(), vector<TypeParam>(1000, 1, 1), 1e-3));
}

TYPED_TEST(TransformationFromHomogeneous, EveryPairOfColumnsIsTestedForShear) {
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t j = 0; j < 3; ++j) {
      if (i == j) continue;
      Matrix<TypeParam> sheared = diagonal<TypeParam>(1, 2, 3);
      sheared(i, j) = real<TypeParam>(0.0004);
      EXPECT_FALSE(this->decomposed(sheared).IsRSMatrix()) << i << j;
      sheared(i, j) = -sheared(i, j);
      EXPECT_TRUE(this->decomposed(sheared).IsRSMatrix()) << i << j;
    }
  }
}

TYPED_TEST(TransformationFromHomogeneous, AReflectionGoesIntoTheXScale) {
  auto const flipped = this->decomposed(diagonal<TypeParam>(-1, 1, 1));
  EXPECT_EQ(flipped.GetMatrix(), Matrix<TypeParam>::IDENTITY);
  EXPECT_EQ(flipped.GetScale(), vector<TypeParam>(-1, 1, 1));
  expectFlags(flipped, false, true, false);

  auto const other = this->decomposed(diagonal<TypeParam>(2, 2, -2));
  EXPECT_EQ(other.GetMatrix(), diagonal<TypeParam>(-1, 1, -1));
  EXPECT_EQ(other.GetScale(), vector<TypeParam>(-2, 2, 2));
  expectFlags(other, false, true, false);
}

TYPED_TEST(TransformationFromHomogeneous, ANonUniformScaleKeepsItsRotation) {
  auto const t = this->decomposed(quarterTurn<TypeParam>() * diagonal<TypeParam>(2, 3, 4));
  EXPECT_EQ(t.GetMatrix(), quarterTurn<TypeParam>());
  EXPECT_EQ(t.GetScale(), vector<TypeParam>(2, 3, 4));
  expectFlags(t, false, true, false);
}

TYPED_TEST(TransformationFromHomogeneous, APureRotationKeepsScaleOne) {
  auto const t = this->decomposed(quarterTurn<TypeParam>());
  EXPECT_EQ(t.GetMatrix(), quarterTurn<TypeParam>());
  EXPECT_EQ(t.GetScale(), Vector<TypeParam>::ONE);
  expectFlags(t, false, true, true);
}

TYPED_TEST(TransformationFromHomogeneous, WhatIsCloseToTheIdentityBecomesExactlyTheIdentity) {
  EXPECT_EQ(this->decomposed(diagonal<TypeParam>(1.0000005, 1.0000005, 1.0000005)),
            Transformation<TypeParam>());
  EXPECT_EQ(this->decomposed(diagonal<TypeParam>(1.0000005, 1, 0.9999995)), Transformation<TypeParam>());
}

TYPED_TEST(TransformationFromHomogeneous, AScaleJustBeyondTheToleranceIsKept) {
  TypeParam const s = real<TypeParam>(1.000002);
  auto const uniform = this->decomposed(diagonal<TypeParam>(1.000002, 1.000002, 1.000002));
  EXPECT_EQ(uniform.GetMatrix(), Matrix<TypeParam>::IDENTITY);
  EXPECT_TRUE(near(uniform.GetScale(), {s, s, s}, 1e-7));
  EXPECT_EQ(uniform.GetScale().X(), uniform.GetScale().Y());
  expectFlags(uniform, false, true, true);

  auto const nonUniform = this->decomposed(diagonal<TypeParam>(1.000002, 1, 1));
  EXPECT_EQ(nonUniform.GetMatrix(), Matrix<TypeParam>::IDENTITY);
  EXPECT_TRUE(near(nonUniform.GetScale(), {s, TypeParam(1), TypeParam(1)}, 1e-7));
  expectFlags(nonUniform, false, true, false);
}

TYPED_TEST(TransformationFromHomogeneous, ShortTranslationsAreDropped) {
  EXPECT_EQ(this->decomposed(Matrix<TypeParam>::IDENTITY, vector<TypeParam>(0.0005, 0, 0)).GetTranslate(),
            Vector<TypeParam>::ZERO);
  EXPECT_TRUE(this->decomposed(Matrix<TypeParam>::IDENTITY, vector<TypeParam>(0.0005, 0, 0)).IsIdentity());
  auto const kept = this->decomposed(Matrix<TypeParam>::IDENTITY, vector<TypeParam>(0.0008, 0, 0.0008));
  EXPECT_EQ(kept.GetTranslate(), vector<TypeParam>(0.0008, 0, 0.0008));
  expectFlags(kept, false, true, true);
}

TYPED_TEST(TransformationFromHomogeneous, NaNMakesItGeneralAndIsNoTranslation) {
  Matrix<TypeParam> matrix = Matrix<TypeParam>::IDENTITY;
  matrix(1, 1) = nan<TypeParam>;
  auto const t = this->decomposed(matrix, {nan<TypeParam>, TypeParam(1), TypeParam(1)});
  EXPECT_TRUE(std::isnan(t.GetMatrix()(1, 1)));
  EXPECT_EQ(t.GetTranslate(), Vector<TypeParam>::ZERO);
  expectFlags(t, false, false, false);
}

}  // namespace transformTest
