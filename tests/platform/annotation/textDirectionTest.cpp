// Right-to-left text and lines of both directions.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "layOut.h"

namespace qv::text {
namespace {

// Hebrew letters, which have one form each.
constexpr char const* SHALOM = "\u05E9\u05DC\u05D5\u05DD";
constexpr char const* ALEF = "\u05D0";

std::vector<std::string> textsOf(std::vector<svg::TextSpan> const& spans) {
  std::vector<std::string> texts;
  for (svg::TextSpan const& span : spans) texts.push_back(span.m_text);
  return texts;
}

using Texts = std::vector<std::string>;

TEST(TextDirection, RightToLeftTextKeepsItsLogicalOrderAndShowsItsFirstLetterOnTheRight) {
  std::vector<svg::TextSpan> const spans = layOutSpans(SHALOM);
  ASSERT_EQ(spans.size(), 1U);
  EXPECT_TRUE(spans[0].m_rightToLeft);
  EXPECT_EQ(spans[0].m_text, SHALOM);
  EXPECT_EQ(spans[0].m_x, 0.0F);
  ASSERT_EQ(spans[0].m_glyphs.size(), 4U);
  EXPECT_EQ(spans[0].m_glyphs[3].m_index, layOutSpans("\u05E9")[0].m_glyphs[0].m_index);
  for (std::size_t i = 1; i < 4; ++i) EXPECT_GT(spans[0].m_glyphs[i].m_x, spans[0].m_glyphs[i - 1].m_x);
}

TEST(TextDirection, LeftToRightTextIsNotMarked) {
  for (svg::TextSpan const& span : layOutSpans("\u2300 12 A")) EXPECT_FALSE(span.m_rightToLeft);
}

TEST(TextDirection, RightToLeftWordsInsideALeftToRightLineStayInTheirPlace) {
  std::vector<svg::TextSpan> const spans = layOutSpans(std::string("abc ") + SHALOM + " def");
  EXPECT_EQ(textsOf(spans), (Texts{"abc ", SHALOM, " def"}));
  EXPECT_TRUE(spans[1].m_rightToLeft);
  EXPECT_FALSE(spans[2].m_rightToLeft);
  EXPECT_FLOAT_EQ(spans[1].m_x, getEnd(spans[0]));
  EXPECT_FLOAT_EQ(spans[2].m_x, getEnd(spans[1]));
}

TEST(TextDirection, TheFirstStrongCharacterGivesTheLineItsDirection) {
  std::vector<svg::TextSpan> const spans = layOutSpans(std::string(SHALOM) + " abc");
  EXPECT_EQ(textsOf(spans), (Texts{"abc", std::string(SHALOM) + " "}));
  EXPECT_EQ(spans[0].m_x, 0.0F);
  EXPECT_FALSE(spans[0].m_rightToLeft);
}

TEST(TextDirection, NumbersRunFromLeftToRight) {
  EXPECT_EQ(textsOf(layOutSpans(std::string(ALEF) + "12.5" + ALEF)), (Texts{ALEF, "12.5", ALEF}));
}

TEST(TextDirection, RunsOfARightToLeftLineFollowOneAnotherToTheLeft) {
  auto const items = layOut({{normal(SHALOM), normal(ALEF, makeProperties(10.0F, "DejaVu Sans"))}});
  ASSERT_EQ(items.size(), 1U);
  EXPECT_EQ(textsOf(items[0]->m_spans), (Texts{ALEF, SHALOM}));
  EXPECT_EQ(items[0]->m_spans[0].m_family, "DejaVu Sans");
}

TEST(TextDirection, BracketsAreMirrored) {
  svg::TextSpan const span = layOutSpans(std::string("(") + ALEF + ")").at(0);
  std::uint32_t const opening = layOutSpans("(")[0].m_glyphs[0].m_index;
  ASSERT_EQ(span.m_glyphs.size(), 3U);
  EXPECT_EQ(span.m_text, std::string("(") + ALEF + ")");
  EXPECT_EQ(span.m_glyphs[0].m_index, opening);
}

TEST(TextDirection, TrailingBlanksStandAtTheEndOfTheLine) {
  svg::TextSpan const rightToLeft = layOutSpans(std::string(ALEF) + "  ").at(0);
  EXPECT_NEAR(rightToLeft.m_glyphs.at(0).m_x, 2.0F * measure(normal(" ")), 1e-4F);
  std::vector<svg::TextSpan> const mixed = layOutSpans(std::string("a") + ALEF + "  ");
  EXPECT_EQ(textsOf(mixed), (Texts{"a", ALEF, "  "}));
}

TEST(TextDirection, TabsOfARightToLeftLineCountFromItsRightEnd) {
  std::vector<svg::TextSpan> const spans = layOutSpans(std::string(ALEF) + "\t" + SHALOM);
  ASSERT_EQ(textsOf(spans), (Texts{SHALOM, " ", ALEF}));
  EXPECT_NEAR(spans[1].m_advance + spans[2].m_advance, 8.0F * measure(normal(" ")), 1e-4F);
  EXPECT_FLOAT_EQ(spans[1].m_x, getEnd(spans[0]));
}

TEST(TextDirection, TabsSeparateWhatIsReordered) {
  std::vector<svg::TextSpan> const spans = layOutSpans(std::string("a\t") + ALEF + "\t" + SHALOM + "b");
  EXPECT_EQ(textsOf(spans), (Texts{"a", " ", ALEF, " ", SHALOM, "b"}));
}

TEST(TextDirection, StackedScriptsOfARightToLeftLineBeginOnTheRight) {
  auto const items = layOut({{normal(SHALOM), superscript(ALEF), subscript(SHALOM), normal(ALEF)}});
  ASSERT_EQ(items.size(), 4U);
  svg::TextSpan const& above = items[1]->m_spans[0];
  svg::TextSpan const& below = items[2]->m_spans[0];
  EXPECT_EQ(items[0]->m_spans[0].m_text, ALEF);
  EXPECT_EQ(above.m_text, ALEF);
  EXPECT_EQ(below.m_text, SHALOM);
  EXPECT_FLOAT_EQ(getEnd(above), getEnd(below));
  EXPECT_FLOAT_EQ(items[3]->m_spans[0].m_x, getEnd(below));
}

TEST(TextDirection, DeviationsBehindANumberInARightToLeftLineFollowTheNumber) {
  auto const items = layOut({{normal(std::string(ALEF) + " 50"), superscript("+0.1"), subscript("-0.2")}});
  ASSERT_EQ(items.size(), 4U);
  EXPECT_EQ(items[0]->m_spans[0].m_text, "50");
  EXPECT_EQ(items[1]->m_spans[0].m_text, "+0.1");
  EXPECT_FLOAT_EQ(items[1]->m_spans[0].m_x, getEnd(items[0]->m_spans[0]));
  EXPECT_FLOAT_EQ(items[2]->m_spans[0].m_x, getEnd(items[0]->m_spans[0]));
}

TEST(TextDirection, StackedDeviationsOfARightToLeftLineKeepTheirSignsBeforeTheirFigures) {
  for (std::string const& base : {std::string(SHALOM), std::string(ALEF) + " 50 "}) {
    auto const items = layOut({{normal(base), superscript("+0.1"), subscript("-0.25")}});
    std::vector<svg::TextSpan> const& above = items.at(0)->m_spans;
    std::vector<svg::TextSpan> const& below = items.at(1)->m_spans;
    EXPECT_EQ(textsOf(above), (Texts{"+0.1"})) << base;
    EXPECT_EQ(textsOf(below), (Texts{"-0.25"})) << base;
    EXPECT_FALSE(above[0].m_rightToLeft || below[0].m_rightToLeft) << base;
    EXPECT_FLOAT_EQ(getEnd(above[0]), getEnd(below[0])) << base;
  }
}

TEST(TextDirection, ArabicLettersJoin) {
  svg::TextSpan const word = layOutSpans("\u0639\u0639\u0639").at(0);
  std::uint32_t const isolated = layOutSpans("\u0639")[0].m_glyphs[0].m_index;
  ASSERT_EQ(word.m_glyphs.size(), 3U);
  for (svg::Glyph const& glyph : word.m_glyphs) EXPECT_NE(glyph.m_index, isolated);
  EXPECT_NE(word.m_glyphs[0].m_index, word.m_glyphs[2].m_index);
}

TEST(TextDirection, WordsOfARightToLeftTextInAnotherFontAreOneSpan) {
  std::vector<svg::TextSpan> const spans = layOutSpans("\u0639\u0644\u0649 \u0645\u0627");
  ASSERT_EQ(spans.size(), 1U);
  EXPECT_EQ(spans[0].m_family, "DejaVu Sans");
}

TEST(TextDirection, SpansInSeveralFontsRunFromRightToLeft) {
  // The Arabic letter is in another font than the Hebrew ones.
  EXPECT_EQ(textsOf(layOutSpans(std::string(SHALOM) + "\u0639")), (Texts{"\u0639", SHALOM}));
}

/// The glyphs of all spans, from left to right.
std::vector<std::uint32_t> glyphsOf(std::vector<svg::TextSpan> const& spans) {
  std::vector<std::uint32_t> glyphs;
  for (svg::TextSpan const& span : spans) {
    for (svg::Glyph const& glyph : span.m_glyphs) glyphs.push_back(glyph.m_index);
  }
  return glyphs;
}

TEST(TextDirection, MarksOfDirectionShowNothing) {
  std::vector<svg::TextSpan> const spans = layOutSpans("a\u200E\u202Ab\u202C");
  EXPECT_EQ(glyphsOf(spans), glyphsOf(layOutSpans("ab")));
  EXPECT_FLOAT_EQ(getEnd(spans.back()), measure(normal("ab")));
}

TEST(TextDirection, AnOverrideReversesLatinLetters) {
  EXPECT_EQ(glyphsOf(layOutSpans("\u202Eab\u202C")), glyphsOf(layOutSpans("ba")));
}

}  // namespace
}  // namespace qv::text
