#include <gtest/gtest.h>

#include <cmath>

#include "toolkit/documentTransform.h"

namespace {

using qvToolkit::readTransform;
using qvToolkit::TransformKind;
using Transformation = qv::qvGenericTransformation<float>;
using Vector = Wm4::Vector3<float>;
using Words = std::vector<std::string>;

TEST(TransformWords, TranslateByAVector) {
  Transformation transformation;
  EXPECT_EQ(readTransform(TransformKind::Translate, {"1", "-2.5", "1e2"}, transformation), "");
  EXPECT_EQ(transformation.GetTranslate(), Vector(1, -2.5F, 100));
}

TEST(TransformWords, ScaleByOneNumberOrByThree) {
  Transformation uniform;
  EXPECT_EQ(readTransform(TransformKind::Scale, {"2"}, uniform), "");
  EXPECT_TRUE(uniform.IsUniformScale());
  Transformation each;
  EXPECT_EQ(readTransform(TransformKind::Scale, {"1", "2", "3"}, each), "");
  EXPECT_EQ(each.GetScale(), Vector(1, 2, 3));
}

TEST(TransformWords, TurnByQuarterTurnsExactly) {
  struct Case {
    char const* m_axis;
    char const* m_degrees;
    Vector m_from;
    Vector m_to;
  };
  for (Case const& turn : {Case{"z", "90", {1, 0, 0}, {0, 1, 0}}, Case{"z", "-90", {1, 0, 0}, {0, -1, 0}},
                           Case{"z", "180", {1, 0, 0}, {-1, 0, 0}}, Case{"z", "720", {1, 0, 0}, {1, 0, 0}},
                           Case{"x", "90", {0, 1, 0}, {0, 0, 1}}, Case{"y", "90", {0, 0, 1}, {1, 0, 0}}}) {
    Transformation transformation;
    ASSERT_EQ(readTransform(TransformKind::Rotate, {turn.m_axis, turn.m_degrees}, transformation), "");
    EXPECT_EQ(transformation.ApplyForward(turn.m_from, true), turn.m_to) << turn.m_axis << turn.m_degrees;
  }
}

TEST(TransformWords, AFullTurnIsTheIdentity) {
  Transformation transformation;
  EXPECT_EQ(readTransform(TransformKind::Rotate, {"z", "-360"}, transformation), "");
  EXPECT_TRUE(transformation.IsIdentity());
}

TEST(TransformWords, TurnByAnyAngle) {
  Transformation transformation;
  EXPECT_EQ(readTransform(TransformKind::Rotate, {"z", "30"}, transformation), "");
  Vector const turned = transformation.ApplyForward({1, 0, 0}, true);
  EXPECT_NEAR(turned.X(), std::sqrt(0.75F), 1e-6F);
  EXPECT_NEAR(turned.Y(), 0.5F, 1e-6F);
}

TEST(TransformWords, ReadAMatrixByRows) {
  Transformation transformation;
  Words const rows{"0", "-1", "0", "5", "1", "0", "0", "6", "0", "0", "1", "7"};
  EXPECT_EQ(readTransform(TransformKind::Matrix, rows, transformation), "");
  EXPECT_EQ(transformation.ApplyForward({1, 0, 0}, true), Vector(5, 7, 7));
  Words whole = rows;
  whole.insert(whole.end(), {"0", "0", "0", "1"});
  Transformation same;
  EXPECT_EQ(readTransform(TransformKind::Matrix, whole, same), "");
  EXPECT_TRUE(same == transformation);
}

TEST(TransformWords, KeepTheSmallNumbersOfAMatrix) {
  Transformation transformation;
  Words const rows{"1", "-0.0001", "0", "0.0005", "0", "1.0000005", "0", "0", "0", "0", "1", "0"};
  EXPECT_EQ(readTransform(TransformKind::Matrix, rows, transformation), "");
  EXPECT_EQ(transformation.ApplyForward({0, 0, 0}, true), Vector(0.0005F, 0, 0));
  EXPECT_EQ(transformation.ApplyForward({0, 1, 0}, false), Vector(-0.0001F, 1.0000005F, 0));
}

TEST(TransformWords, RefuseAMatrixWithItsTranslationInTheFourthRow) {
  Transformation transformation;
  Words const rows{"1", "0", "0", "0", "0", "1", "0", "0", "0", "0", "1", "0", "5", "6", "7", "1"};
  EXPECT_EQ(readTransform(TransformKind::Matrix, rows, transformation),
            "the fourth row of a matrix is 0 0 0 1; the translation is its fourth column");
  EXPECT_TRUE(transformation.IsIdentity());
}

TEST(TransformWords, SayWhatIsWrongWithThem) {
  Transformation transformation;
  EXPECT_EQ(readTransform(TransformKind::Translate, {"1", "2"}, transformation),
            "a translation takes three numbers");
  EXPECT_EQ(readTransform(TransformKind::Scale, {"1", "2"}, transformation),
            "a scale takes one number, or three");
  EXPECT_EQ(readTransform(TransformKind::Matrix, {"1"}, transformation),
            "a matrix takes 12 numbers, three rows of four, or 16");
  for (char const* const word : {"", "x", "1,5", "+1", " 1", "1 ", "nan", "inf", "1e39", "1e999"}) {
    EXPECT_NE(readTransform(TransformKind::Scale, {word}, transformation), "") << word;
  }
  for (Words const& words :
       {Words{"z"}, Words{"w", "90"}, Words{"xy", "90"}, Words{"z", "right"}, Words{"", "90"}}) {
    EXPECT_NE(readTransform(TransformKind::Rotate, words, transformation), "") << words[0];
  }
  EXPECT_TRUE(transformation.IsIdentity());
}

}  // namespace
