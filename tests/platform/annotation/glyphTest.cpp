// Glyphs, their outlines, and the box that they fill.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "layOut.h"

namespace qv::text {
namespace {

using svg::OutlineCommand;

/// The box of the outline's points, control points among them, where the glyph stands in its span.
void addOutline(svg::TextSpan const& span, svg::Glyph const& glyph, float size, svg::BoundingBox& box) {
  for (OutlineCommand const& command : span.m_glyphSource->getOutline(glyph.m_index)) {
    for (std::size_t i = 0; i < OutlineCommand::countPoints(command.m_kind); ++i) {
      box.addPoint({span.m_x + glyph.m_x + command.m_points[i].X() * size,
                    glyph.m_y + command.m_points[i].Y() * size});
    }
  }
}

svg::BoundingBox getOutlineBox(svg::Text const& item) {
  svg::BoundingBox box;
  for (svg::TextSpan const& span : item.m_spans) {
    for (svg::Glyph const& glyph : span.m_glyphs) addOutline(span, glyph, item.m_size, box);
  }
  return box;
}

TEST(Glyphs, StandOneBehindTheOther) {
  svg::TextSpan const span = layOutSpans("HHx").at(0);
  ASSERT_EQ(span.m_glyphs.size(), 3U);
  EXPECT_EQ(span.m_glyphs[0].m_x, 0.0F);
  EXPECT_EQ(span.m_glyphs[0].m_index, span.m_glyphs[1].m_index);
  EXPECT_FLOAT_EQ(span.m_glyphs[1].m_x, measure(normal("H")));
  EXPECT_FLOAT_EQ(span.m_glyphs[2].m_x, 2.0F * measure(normal("H")));
  EXPECT_EQ(span.m_glyphs[2].m_y, 0.0F);
}

TEST(Glyphs, OfBlanksAreLeftOut) {
  svg::TextSpan const span = layOutSpans(" a b\u00A0").at(0);
  ASSERT_EQ(span.m_glyphs.size(), 2U);
  EXPECT_FLOAT_EQ(span.m_glyphs[0].m_x, measure(normal(" ")));
  EXPECT_TRUE(layOutSpans("\t").at(0).m_glyphs.empty());
}

TEST(Glyphs, OfLigaturesStandForSeveralCharacters) {
  svg::TextSpan const span = layOutSpans("fi", makeProperties(10.0F, "DejaVu Sans")).at(0);
  EXPECT_EQ(span.m_text, "fi");
  EXPECT_EQ(span.m_glyphs.size(), 1U);
}

TEST(Glyphs, OfCombiningMarksStandOverTheirBase) {
  // No font has the pair as one character.
  svg::TextSpan const span = layOutSpans("x\u0302", makeProperties(10.0F, "DejaVu Sans")).at(0);
  ASSERT_EQ(span.m_glyphs.size(), 2U);
  EXPECT_FLOAT_EQ(span.m_advance, layOutSpans("x", makeProperties(10.0F, "DejaVu Sans"))[0].m_advance);
  svg::BoundingBox mark;
  addOutline(span, span.m_glyphs[1], 10.0F, mark);
  EXPECT_NEAR(mark.getCenterPoint().X(), span.m_advance / 2.0F, 1.0F);
  EXPECT_GT(mark.getMinPoint().Y(), 5.4F) << "above the letter";
}

TEST(Glyphs, OfCharactersBeyondTheBasicPlaneAreFound) {
  std::vector<svg::TextSpan> const spans = layOutSpans("\U0001D49C\U0001D400");
  ASSERT_EQ(spans.size(), 1U);
  EXPECT_EQ(spans[0].m_family, "Noto Sans Math");
  EXPECT_EQ(spans[0].m_glyphs.size(), 2U);
  EXPECT_EQ(spans[0].m_text, "\U0001D49C\U0001D400");
}

TEST(Glyphs, FillTheBoxTogetherWithTheAdvanceBox) {
  TextProperties italic = makeProperties(10.0F, "Liberation Serif");
  italic.m_italic = true;
  for (TextSegment const& segment : {normal("Agj"), normal("\uFFFD"), normal("jf", italic),
                                     normal("\u2316\u2300"), normal("\u0639\u0649")}) {
    svg::Text const item = layOutRun(segment);
    svg::BoundingBox const ink = getOutlineBox(item);
    svg::BoundingBox advance = layOutRun(normal(" ", *segment.m_properties)).m_box;
    float const left = std::min(0.0F, ink.getMinPoint().X());
    float const right = std::max(getEnd(item.m_spans.back()), ink.getMaxPoint().X());
    EXPECT_NEAR(item.m_box.getMinPoint().X(), left, 0.01F) << segment.getText();
    EXPECT_NEAR(item.m_box.getMaxPoint().X(), right, 0.01F) << segment.getText();
    advance.addPoint({0.0F, ink.getMinPoint().Y()});
    advance.addPoint({0.0F, ink.getMaxPoint().Y()});
    EXPECT_NEAR(item.m_box.getMinPoint().Y(), advance.getMinPoint().Y(), 0.01F) << segment.getText();
    EXPECT_NEAR(item.m_box.getMaxPoint().Y(), advance.getMaxPoint().Y(), 0.01F) << segment.getText();
  }
}

TEST(Glyphs, GrowWithTheSize) {
  svg::TextSpan const small = layOutSpans("AB").at(0);
  svg::TextSpan const large = layOutSpans("AB", makeProperties(25.0F)).at(0);
  EXPECT_FLOAT_EQ(large.m_glyphs[1].m_x, 2.5F * small.m_glyphs[1].m_x);
}

TEST(GlyphSource, NamesItsFace) {
  svg::TextSpan const span = layOutSpans("A").at(0);
  EXPECT_TRUE(span.m_glyphSource->getFontFile().ends_with("/LiberationSans-Regular.ttf"));
  EXPECT_EQ(span.m_glyphSource->getFaceIndex(), 0U);
  EXPECT_EQ(span.m_glyphSource->getUnitsPerEm(), 2048U);
}

TEST(GlyphSource, TellsWhichFontItDrawsFrom) {
  svg::TextSpan const span = layOutSpans("A").at(0);
  EXPECT_EQ(span.m_glyphSource->getFontVersion().substr(0, 10), "Version 2.");
  std::ifstream file(span.m_glyphSource->getFontFile(), std::ios::binary);
  std::string const bytes{std::istreambuf_iterator<char>(file), {}};
  ASSERT_FALSE(bytes.empty());
  EXPECT_TRUE(span.m_glyphSource->getFontData() == bytes);
}

TEST(GlyphSource, IsOneObjectForAFace) {
  EXPECT_EQ(layOutSpans("A")[0].m_glyphSource,
            layOutSpans("B", makeProperties(3.0F, "Helvetica"))[0].m_glyphSource);
  EXPECT_NE(layOutSpans("A")[0].m_glyphSource, layOutSpans("\u2300")[0].m_glyphSource);
}

TEST(GlyphSource, DrawsClosedContoursWithAnEmOfOne) {
  svg::TextSpan const span = layOutSpans("H").at(0);
  svg::Outline const outline = span.m_glyphSource->getOutline(span.m_glyphs[0].m_index);
  ASSERT_GE(outline.size(), 13U);
  EXPECT_EQ(outline.front().m_kind, OutlineCommand::Kind::Move);
  EXPECT_EQ(outline.back().m_kind, OutlineCommand::Kind::Close);
  float highest = 0.0F;
  for (OutlineCommand const& command : outline) highest = std::max(highest, command.m_points[0].Y());
  EXPECT_NEAR(highest, 0.688F, 0.002F) << "the height of capitals, upwards";
}

TEST(GlyphSource, DrawsQuadraticCurves) {
  svg::TextSpan const span = layOutSpans("O").at(0);
  std::set<OutlineCommand::Kind> kinds;
  for (OutlineCommand const& command : span.m_glyphSource->getOutline(span.m_glyphs[0].m_index)) {
    kinds.insert(command.m_kind);
  }
  EXPECT_TRUE(kinds.contains(OutlineCommand::Kind::Quadratic));
  EXPECT_FALSE(kinds.contains(OutlineCommand::Kind::Cubic));
}

TEST(GlyphSource, HasNothingToDrawForBlanksAndUnknownGlyphs) {
  svg::TextSpan const span = layOutSpans("A").at(0);
  EXPECT_TRUE(span.m_glyphSource->getOutline(3).empty()) << "the blank";
  EXPECT_TRUE(span.m_glyphSource->getOutline(0xFFFFFFFF).empty());
}

TEST(OutlineCommand, CountsItsPoints) {
  using Kind = OutlineCommand::Kind;
  EXPECT_EQ(OutlineCommand::countPoints(Kind::Move), 1U);
  EXPECT_EQ(OutlineCommand::countPoints(Kind::Line), 1U);
  EXPECT_EQ(OutlineCommand::countPoints(Kind::Quadratic), 2U);
  EXPECT_EQ(OutlineCommand::countPoints(Kind::Cubic), 3U);
  EXPECT_EQ(OutlineCommand::countPoints(Kind::Close), 0U);
}

}  // namespace
}  // namespace qv::text
