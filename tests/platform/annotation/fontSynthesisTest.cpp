// Bold and oblique faces that a family does not have.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "layOut.h"

namespace qv::text {
namespace {

// It has a regular face only.
constexpr char const* FAMILY = "Noto Sans Math";

constexpr float SIZE = 10.0F;
constexpr float HALF_STROKE = SIZE / 48.0F;

TextProperties makeStyle(bool bold, bool italic, std::string const& family = FAMILY) {
  TextProperties properties = makeProperties(SIZE, family);
  properties.m_bold = bold;
  properties.m_italic = italic;
  return properties;
}

svg::Text draw(std::string const& text, TextProperties const& properties) {
  return layOutRun(normal(text, properties));
}

TEST(FontSynthesis, IsNotNeededForFacesThatTheFamilyHas) {
  for (bool const bold : {false, true}) {
    for (bool const italic : {false, true}) {
      svg::TextSpan const span = draw("A", makeStyle(bold, italic, "Liberation Sans")).m_spans[0];
      EXPECT_EQ(span.m_synthesis, svg::FontSynthesis());
      EXPECT_EQ(span.m_bold, bold);
      EXPECT_EQ(span.m_italic, italic);
    }
  }
}

TEST(FontSynthesis, IsNamedWhereTheFamilyHasNoSuchFace) {
  for (bool const bold : {false, true}) {
    for (bool const italic : {false, true}) {
      svg::TextSpan const span = draw("A", makeStyle(bold, italic)).m_spans[0];
      EXPECT_EQ(span.m_family, FAMILY);
      EXPECT_EQ(span.m_synthesis.m_bold, bold);
      EXPECT_EQ(span.m_synthesis.m_oblique, italic);
    }
  }
}

TEST(FontSynthesis, ConcernsTheFontOfASignAlone) {
  svg::Text const item = draw("A\u27C2", makeStyle(true, true, "Liberation Sans"));
  ASSERT_EQ(item.m_spans.size(), 2U);
  EXPECT_EQ(item.m_spans[0].m_synthesis, svg::FontSynthesis());
  EXPECT_TRUE(item.m_spans[1].m_synthesis.m_bold);
  EXPECT_TRUE(item.m_spans[1].m_synthesis.m_oblique);
}

TEST(FontSynthesis, LeavesTheAdvanceAlone) {
  EXPECT_EQ(draw("HI", makeStyle(true, true)).m_spans[0].m_advance,
            draw("HI", makeStyle(false, false)).m_spans[0].m_advance);
}

TEST(FontSynthesis, LeavesTheStrokeOfBoldTextToWhoDrawsIt) {
  EXPECT_EQ(draw("A", makeStyle(true, false)).m_spans[0].m_glyphSource,
            draw("A", makeStyle(false, false)).m_spans[0].m_glyphSource);
}

TEST(FontSynthesis, SlantedOutlinesLeanToTheRight) {
  svg::TextSpan const upright = draw("H", makeStyle(false, false)).m_spans[0];
  svg::TextSpan const slanted = draw("H", makeStyle(false, true)).m_spans[0];
  svg::Outline const straight = upright.m_glyphSource->getOutline(upright.m_glyphs[0].m_index);
  svg::Outline const leaning = slanted.m_glyphSource->getOutline(slanted.m_glyphs[0].m_index);
  ASSERT_EQ(straight.size(), leaning.size());
  for (std::size_t i = 0; i < straight.size(); ++i) {
    Wm4::Vector2<float> const& point = straight[i].m_points[0];
    EXPECT_NEAR(leaning[i].m_points[0].X(), point.X() + 0.2F * point.Y(), 1e-6F);
    EXPECT_EQ(leaning[i].m_points[0].Y(), point.Y());
  }
}

/// The ink's right end: the points of the outline, many on each curve.
float findRightEnd(svg::TextSpan const& span) {
  float right = 0.0F;
  Wm4::Vector2<float> pen;
  for (svg::OutlineCommand const& command : span.m_glyphSource->getOutline(span.m_glyphs[0].m_index)) {
    auto const& p = command.m_points;
    for (int i = 0; i <= 1000 && command.m_kind == svg::OutlineCommand::Kind::Quadratic; ++i) {
      float const t = static_cast<float>(i) / 1000.0F;
      float const u = 1.0F - t;
      right = std::max(right, u * u * pen.X() + 2.0F * u * t * p[0].X() + t * t * p[1].X());
    }
    std::size_t const count = svg::OutlineCommand::countPoints(command.m_kind);
    if (count == 0) continue;
    pen = p[count - 1];
    right = std::max(right, pen.X());
  }
  return right * SIZE;
}

TEST(FontSynthesis, SlantedInkFollowsTheCurve) {
  svg::Text const item = draw("\u2202", makeStyle(false, true));
  float const right = findRightEnd(item.m_spans[0]);
  ASSERT_GT(right, item.m_spans[0].m_advance) << "leans out of its advance box";
  EXPECT_NEAR(item.m_box.getMaxPoint().X(), right, 1e-3F);
  svg::Text const bold = draw("\u2202", makeStyle(true, true));
  EXPECT_NEAR(bold.m_box.getMaxPoint().X(), right + HALF_STROKE, 1e-3F);
}

}  // namespace
}  // namespace qv::text
