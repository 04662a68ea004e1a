#include <gtest/gtest.h>

#include <cmath>

#include "layOut.h"

namespace qv::text {

namespace {

TextProperties makeBold(std::string const& font) {
  TextProperties properties = makeProperties(10.0F, font);
  properties.m_bold = true;
  return properties;
}

std::vector<std::string> listTexts(std::vector<svg::TextSpan> const& spans) {
  std::vector<std::string> texts;
  for (svg::TextSpan const& span : spans) texts.push_back(span.m_text);
  return texts;
}

TEST(SpanBreaks, StandWithinALigatureThatWouldChangeTheWidth) {
  std::vector<svg::TextSpan> const spans = layOutSpans("office", makeProperties(10.0F, "DejaVu Sans"));
  EXPECT_EQ(listTexts(spans), (std::vector<std::string>{"of", "f", "ice"}));
  std::size_t glyphs = 0;
  for (svg::TextSpan const& span : spans) glyphs += span.m_glyphs.size();
  EXPECT_EQ(glyphs, 6U);
  EXPECT_EQ(listTexts(layOutSpans("fit", makeBold("DejaVu Sans"))), (std::vector<std::string>{"f", "it"}));
}

TEST(SpanBreaks, LeaveALigatureThatIsAsWideAsItsLetters) {
  std::vector<svg::TextSpan> const spans = layOutSpans("fit", makeProperties(10.0F, "DejaVu Sans"));
  ASSERT_EQ(listTexts(spans), (std::vector<std::string>{"fit"}));
  EXPECT_EQ(spans[0].m_glyphs.size(), 2U);
}

TEST(SpanBreaks, PlaceEachSpanAtTheEndOfTheOneBefore) {
  std::vector<svg::TextSpan> const spans = layOutSpans("a ff b ffl", makeProperties(10.0F, "DejaVu Sans"));
  ASSERT_EQ(listTexts(spans), (std::vector<std::string>{"a f", "f b f", "f", "l"}));
  for (std::size_t i = 1; i < spans.size(); ++i) EXPECT_NEAR(spans[i].m_x, getEnd(spans[i - 1]), 1e-4F) << i;
  for (svg::TextSpan const& span : spans) EXPECT_NEAR(span.m_glyphs.front().m_x, 0.0F, 1e-4F) << span.m_text;
}

TEST(SpanBreaks, StandBehindACharacterOfSeveralAdvances) {
  std::vector<svg::TextSpan> const spans =
      layOutSpans("\u0E01\u0E33\u0E25\u0E31\u0E07", makeProperties(10.0F, "Noto Sans Thai"));
  EXPECT_EQ(listTexts(spans), (std::vector<std::string>{"\u0E01\u0E33", "\u0E25\u0E31\u0E07"}));
}

}  // namespace

}  // namespace qv::text
