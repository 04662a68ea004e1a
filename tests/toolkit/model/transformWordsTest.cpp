#include <gtest/gtest.h>

#include <cmath>

#include "qvToolkit/model/documentTransform.h"

namespace {

using qvToolkit::readTransform;
using qvToolkit::Similarity;
using qvToolkit::TransformKind;
using Vector = Wm4::Vector3<double>;
using Words = std::vector<std::string>;

Vector apply(Similarity const& s, Vector const& p) {
  return s.m_rotation * p * s.m_scale + s.m_translation;
}

bool isIdentity(Similarity const& s) {
  return s.m_rotation == Wm4::Matrix3<double>::IDENTITY && s.m_scale == 1 && s.m_translation == Vector::ZERO;
}

/// What is wrong with the words; then they leave the transformation as it was.
std::string refuse(TransformKind kind, Words const& words) {
  Similarity transformation;
  std::string const problem = readTransform(kind, words, transformation);
  EXPECT_NE(problem, "");
  EXPECT_TRUE(isIdentity(transformation));
  return problem;
}

TEST(TransformWords, TranslateByAVector) {
  Similarity transformation;
  EXPECT_EQ(readTransform(TransformKind::Translate, {"1", "-2.5", "1e2"}, transformation), "");
  EXPECT_EQ(transformation.m_translation, Vector(1, -2.5, 100));
}

TEST(TransformWords, ScaleByOneNumberOrByThreeThatAgree) {
  for (Words const& words : {Words{"2.5"}, Words{"2.5", "2.5", "2.50"}}) {
    Similarity transformation;
    EXPECT_EQ(readTransform(TransformKind::Scale, words, transformation), "");
    EXPECT_EQ(transformation.m_scale, 2.5);
  }
}

TEST(TransformWords, RefuseAScaleThatTextsAndPlanesCannotFollow) {
  EXPECT_NE(refuse(TransformKind::Scale, {"1", "2", "3"}).find("non-uniform"), std::string::npos);
  EXPECT_NE(refuse(TransformKind::Scale, {"-2"}).find("mirrors"), std::string::npos);
  EXPECT_NE(refuse(TransformKind::Scale, {"-1", "-1", "1"}).find("mirrors"), std::string::npos);
  EXPECT_NE(refuse(TransformKind::Scale, {"0"}).find("give a number above 0"), std::string::npos);
  EXPECT_NE(refuse(TransformKind::Scale, {"1", "0", "1"}).find("give a number above 0"), std::string::npos);
  for (char const* const word : {"1e-13", "1e13"}) {
    EXPECT_NE(refuse(TransformKind::Scale, {word}).find("from 1e-12 to 1e+12"), std::string::npos) << word;
  }
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
    Similarity transformation;
    ASSERT_EQ(readTransform(TransformKind::Rotate, {turn.m_axis, turn.m_degrees}, transformation), "");
    EXPECT_EQ(apply(transformation, turn.m_from), turn.m_to) << turn.m_axis << turn.m_degrees;
  }
}

TEST(TransformWords, AFullTurnIsTheIdentity) {
  Similarity transformation;
  EXPECT_EQ(readTransform(TransformKind::Rotate, {"z", "-360"}, transformation), "");
  EXPECT_TRUE(isIdentity(transformation));
}

TEST(TransformWords, TurnByAnyAngleWithinAThousandTurns) {
  Similarity transformation;
  EXPECT_EQ(readTransform(TransformKind::Rotate, {"z", "30"}, transformation), "");
  Vector const turned = apply(transformation, {1, 0, 0});
  EXPECT_NEAR(turned.X(), std::sqrt(0.75), 1e-12);
  EXPECT_NEAR(turned.Y(), 0.5, 1e-12);
  EXPECT_EQ(readTransform(TransformKind::Rotate, {"z", "-360000"}, transformation), "");
  EXPECT_EQ(refuse(TransformKind::Rotate, {"z", "360001"}),
            "'360001' is no angle from -360000 to 360000; write it like 90 or -22.5");
}

TEST(TransformWords, ReadAMatrixByRows) {
  Similarity transformation;
  Words const rows{"0", "-1", "0", "5", "1", "0", "0", "6", "0", "0", "1", "7"};
  EXPECT_EQ(readTransform(TransformKind::Matrix, rows, transformation), "");
  EXPECT_EQ(apply(transformation, {1, 0, 0}), Vector(5, 7, 7));
  Words whole = rows;
  whole.insert(whole.end(), {"0", "0", "0", "1"});
  Similarity same;
  EXPECT_EQ(readTransform(TransformKind::Matrix, whole, same), "");
  EXPECT_EQ(same.m_rotation, transformation.m_rotation);
  EXPECT_EQ(same.m_scale, transformation.m_scale);
  EXPECT_EQ(same.m_translation, transformation.m_translation);
}

TEST(TransformWords, TakeAMatrixOfSinglePrecisionForTheTurnThatItStandsFor) {
  Similarity transformation;
  Words const rows{"0.70710678", "-0.70710678", "0", "0.0005", "0.70710678", "0.70710678",
                   "0",          "0",           "0", "0",      "1",          "0"};
  EXPECT_EQ(readTransform(TransformKind::Matrix, rows, transformation), "");
  EXPECT_EQ(transformation.m_scale, 1);
  EXPECT_NEAR(transformation.m_rotation(1, 0), std::sqrt(0.5), 1e-15);
  EXPECT_EQ(transformation.m_translation, Vector(0.0005, 0, 0));
}

TEST(TransformWords, RefuseAMatrixThatIsNoTurnTimesAScale) {
  Words const mirror{"1", "0", "0", "0", "0", "-1", "0", "0", "0", "0", "1", "5"};
  EXPECT_NE(refuse(TransformKind::Matrix, mirror).find("mirrors"), std::string::npos);
  Words const shear{"1", "-0.0001", "0", "0", "0", "1", "0", "0", "0", "0", "1", "5"};
  EXPECT_NE(refuse(TransformKind::Matrix, shear).find("shears"), std::string::npos);
}

TEST(TransformWords, RefuseAMatrixWithItsTranslationInTheFourthRow) {
  Words const rows{"1", "0", "0", "0", "0", "1", "0", "0", "0", "0", "1", "0", "5", "6", "7", "1"};
  EXPECT_EQ(refuse(TransformKind::Matrix, rows),
            "the fourth row of a matrix is 0 0 0 1; the translation is its fourth column");
}

TEST(TransformWords, SayWhatIsWrongWithThem) {
  EXPECT_EQ(refuse(TransformKind::Translate, {"1", "2"}), "a translation takes three numbers");
  EXPECT_EQ(refuse(TransformKind::Scale, {"1", "2"}), "a scale takes one number for all axes");
  EXPECT_EQ(refuse(TransformKind::Matrix, {"1"}), "a matrix takes 12 numbers, three rows of four, or 16");
  for (std::string const word :
       {"", "x", "1,5", "+1", " 1", "1 ", "nan", "inf", "-inf", "infinity", "1e39", "1e999"}) {
    EXPECT_EQ(refuse(TransformKind::Translate, {"0", word, "0"}),
              "'" + word + "' is no number from -3.4e38 to 3.4e38; write it like 3 or -2.5");
    EXPECT_EQ(refuse(TransformKind::Scale, {word}),
              "'" + word + "' is no number from 1e-12 to 1e+12; write it like 2 or 0.5");
    EXPECT_EQ(refuse(TransformKind::Rotate, {"z", word}),
              "'" + word + "' is no angle from -360000 to 360000; write it like 90 or -22.5");
    Words matrix(12, "1");
    matrix[3] = word;
    EXPECT_EQ(refuse(TransformKind::Matrix, matrix),
              "'" + word + "' is no number from -3.4e38 to 3.4e38; write it like 3 or -2.5");
  }
  for (Words const& words :
       {Words{"z"}, Words{"w", "90"}, Words{"xy", "90"}, Words{"", "90"}, Words{"z", "90", "1"}}) {
    EXPECT_EQ(refuse(TransformKind::Rotate, words),
              "a rotation takes an axis, x, y or z, and an angle in degrees");
  }
}

}  // namespace
