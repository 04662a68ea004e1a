// Lines, boxes and the items that a text area yields.

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>

#include "layOut.h"

namespace qv::text {
namespace {

// Liberation Sans, in em: from its horizontal header.
constexpr float ASCENDER = 0.905F;
constexpr float DESCENDER = 0.212F;
constexpr float LINE_GAP = 0.033F;

TEST(TextLayout, PutsTheItemsIntoAGroupOfTheGivenClass) {
  TextSegmentToSvgConverter converter;
  TextArea area;
  area.m_lines.push_back({normal("A")});
  svg::Node node;
  node.editChildren().push_back(std::make_shared<svg::Node>());
  ASSERT_TRUE(converter.convertTextAreaToSvg(area, node, nullptr, "dummyTxtBB"));
  ASSERT_EQ(node.getChildren().size(), 2U);
  ASSERT_EQ(node.getChildren()[1]->getKind(), svg::ItemKind::Node);
  auto const& group = static_cast<svg::Node const&>(*node.getChildren()[1]);
  EXPECT_EQ(group.m_class, "dummyTxtBB");
  ASSERT_EQ(group.getChildren().size(), 1U);
  EXPECT_EQ(group.getChildren()[0]->getKind(), svg::ItemKind::Text);
}

TEST(TextLayout, LeavesTheFillToTheNodeAndDrawsNoOutline) {
  svg::Text const item = layOutRun(normal("A"));
  EXPECT_EQ(item.m_borderColor, "none");
  EXPECT_FALSE(item.m_backgroundColor.has_value());
  EXPECT_FALSE(item.m_transform.has_value());
}

TEST(TextLayout, BeginsAtTheOriginWithTheAskedSize) {
  svg::Text const item = layOutRun(normal("A"));
  EXPECT_EQ(item.m_baseline, 0.0F);
  EXPECT_EQ(item.m_size, 10.0F);
  EXPECT_EQ(item.m_spans[0].m_x, 0.0F);
  EXPECT_EQ(item.m_spans[0].m_text, "A");
}

TEST(TextLayout, AdvancesByTheWidthsOfTheFont) {
  // 0.667 em is the width of the capital A in all fonts of this measure.
  EXPECT_NEAR(measure(normal("A")), 6.67F, 0.01F);
  EXPECT_NEAR(measure(normal("AA")), 2.0F * measure(normal("A")), 1e-4F);
  EXPECT_NEAR(measure(normal("A", makeProperties(20.0F))), 2.0F * measure(normal("A")), 1e-4F);
}

TEST(TextLayout, Kerns) {
  EXPECT_LT(measure(normal("AV")), measure(normal("A")) + measure(normal("V")) - 0.5F);
}

TEST(TextLayout, BoxHoldsAscenderAndDescender) {
  svg::BoundingBox const box = layOutRun(normal("x")).m_box;
  EXPECT_NEAR(box.getMinPoint().Y(), -10.0F * DESCENDER, 0.01F);
  EXPECT_NEAR(box.getMaxPoint().Y(), 10.0F * ASCENDER, 0.01F);
  EXPECT_EQ(box.getMinPoint().X(), 0.0F);
  EXPECT_EQ(box.getMaxPoint().X(), measure(normal("x")));
}

TEST(TextLayout, BoxHoldsInkBeyondTheAdvanceBox) {
  // The replacement sign of another font is higher than the line; an italic j leans out on the left, an f on
  // the right.
  EXPECT_GT(layOutRun(normal("\uFFFD")).m_box.getMaxPoint().Y(), 10.0F * ASCENDER + 0.05F);
  TextProperties properties = makeProperties(10.0F, "Liberation Serif");
  properties.m_italic = true;
  EXPECT_LT(layOutRun(normal("j", properties)).m_box.getMinPoint().X(), -1.0F);
  svg::Text const leaning = layOutRun(normal("f", properties));
  EXPECT_GT(leaning.m_box.getMaxPoint().X(), leaning.m_spans[0].m_advance + 1.0F);
}

TEST(TextLayout, OneBlankHasTheHeightOfALine) {
  svg::Text const item = layOutRun(normal(" "));
  ASSERT_TRUE(item.m_box.isValid());
  EXPECT_NEAR(item.m_box.getHeight(), 10.0F * (ASCENDER + DESCENDER), 0.01F);
  EXPECT_NEAR(item.m_box.getWidth(), 2.78F, 0.01F);
  EXPECT_EQ(item.m_spans.at(0).m_text, " ");
}

TEST(TextLayout, BlanksCountAtBothEnds) {
  EXPECT_NEAR(measure(normal("  H  ")), 4.0F * measure(normal(" ")) + measure(normal("H")), 1e-4F);
}

TEST(TextLayout, TextWithoutCharactersYieldsNothing) {
  EXPECT_TRUE(layOut({}).empty());
  EXPECT_TRUE(layOut({{}}).empty());
  EXPECT_TRUE(layOut({{normal(""), superscript("")}}).empty());
  EXPECT_EQ(layOut({{normal(""), normal("A"), normal("")}}).size(), 1U);
}

TEST(TextLayout, RunsWithoutPropertiesTakeThoseOfTheArea) {
  TextSegment plain;
  plain.setText("A", 1);
  svg::Text const item = layOutRun(plain);
  EXPECT_EQ(item.m_size, 10.0F);
  EXPECT_EQ(item.m_spans[0].m_askedFamily, "Arial");
}

TEST(TextLayout, ReportsTheSizeOfTheWholeText) {
  TextSegmentToSvgConverter converter;
  TextArea area;
  svg::Node node;
  Wm4::Vector2<float> size(1.0F, 1.0F);
  ASSERT_TRUE(converter.convertTextAreaToSvg(area, node, &size, nullptr));
  EXPECT_EQ(size, (Wm4::Vector2<float>::ZERO));
  area.m_lines = {{normal("A")}, {normal("AAA")}};
  ASSERT_TRUE(converter.convertTextAreaToSvg(area, node, &size, nullptr));
  EXPECT_EQ(size.X(), measure(normal("AAA")));
  EXPECT_NEAR(size.Y(), 10.0F * (2.0F * (ASCENDER + DESCENDER) + LINE_GAP), 0.02F);
}

TEST(TextLayout, SetsFurtherLinesBelowByTheLineSpacingOfTheFont) {
  auto const items = layOut({{normal("A")}, {normal("B")}, {normal("C")}});
  ASSERT_EQ(items.size(), 3U);
  float const spacing = 10.0F * (ASCENDER + DESCENDER + LINE_GAP);
  EXPECT_EQ(items[0]->m_baseline, 0.0F);
  EXPECT_NEAR(items[1]->m_baseline, -spacing, 0.02F);
  EXPECT_NEAR(items[2]->m_baseline, -2.0F * spacing, 0.04F);
  EXPECT_LT(items[1]->m_box.getMaxPoint().Y(), items[0]->m_box.getMinPoint().Y());
  EXPECT_EQ(items[1]->m_spans[0].m_x, 0.0F);
}

TEST(TextLayout, LeavesMoreRoomForALargerLine) {
  auto const items = layOut({{normal("A")}, {normal("B", makeProperties(30.0F))}});
  EXPECT_NEAR(items[1]->m_baseline, -10.0F * DESCENDER - 30.0F * (LINE_GAP + ASCENDER), 0.05F);
}

TEST(TextLayout, LinesDoNotTouchEvenWithInkBeyondTheirHeight) {
  auto const items = layOut({{normal("g")}, {normal("\uFFFD")}});
  EXPECT_LT(items[1]->m_box.getMaxPoint().Y(), items[0]->m_box.getMinPoint().Y());
}

TEST(TextLayout, EmptyLineTakesTheRoomOfALine) {
  auto const items = layOut({{normal("A")}, {}, {normal("B")}});
  ASSERT_EQ(items.size(), 2U);
  EXPECT_NEAR(items[1]->m_baseline, -20.0F * (ASCENDER + DESCENDER + LINE_GAP), 0.05F);
}

TEST(TextLayout, TabsLeadToTheNextStopOfEightBlanks) {
  float const stop = 8.0F * measure(normal(" "));
  svg::Text const item = layOutRun(normal("a\tb\t\tc"));
  ASSERT_EQ(item.m_spans.size(), 6U);
  EXPECT_EQ(item.m_spans[1].m_text, " ");
  EXPECT_NEAR(item.m_spans[2].m_x, stop, 1e-4F);
  EXPECT_NEAR(item.m_spans[5].m_x, 3.0F * stop, 1e-4F);
}

TEST(TextLayout, TabStopsCountFromTheStartOfTheLine) {
  auto const items = layOut({{normal("aaa"), normal("\tb")}});
  ASSERT_EQ(items.size(), 1U);
  EXPECT_NEAR(items[0]->m_spans.back().m_x, 8.0F * measure(normal(" ")), 1e-4F);
}

TEST(TextLayout, RightToLeftWordsOfOneLineShareASpan) {
  svg::Text const item = layOutRun(normal("\u05E9\u05DC\u05D5\u05DD \u05E2\u05D5"));
  ASSERT_EQ(item.m_spans.size(), 1U);
  EXPECT_GT(item.m_spans[0].m_advance, 0.0F);
}

TEST(TextLayout, SizeZeroYieldsAPoint) {
  svg::Text const item = layOutRun(normal("A\tB", makeProperties(0.0F)));
  ASSERT_TRUE(item.m_box.isValid());
  EXPECT_EQ(item.m_box.getSize(), (Wm4::Vector2<float>::ZERO));
}

TEST(TextLayout, SizeThatIsNotFiniteYieldsAnInvalidBox) {
  for (float const size : {std::numeric_limits<float>::infinity(), std::numeric_limits<float>::quiet_NaN()}) {
    EXPECT_FALSE(layOutRun(normal("A\tB", makeProperties(size))).m_box.isValid());
  }
}

TEST(TextLayout, LaysOutTheLongestRun) {
  svg::Text const item = layOutRun(normal(std::string(65535, 'x')));
  ASSERT_EQ(item.m_spans.size(), 1U);
  EXPECT_NEAR(item.m_spans[0].m_advance, 65535.0F * 5.0F, 1.0F);
}

TEST(TextLayout, IsTheSameEachTime) {
  svg::Text const first = layOutRun(normal("\u2300 12 \u2316 \u0928 A"));
  svg::Text const second = layOutRun(normal("\u2300 12 \u2316 \u0928 A"));
  ASSERT_EQ(first.m_spans.size(), second.m_spans.size());
  for (std::size_t i = 0; i < first.m_spans.size(); ++i) {
    EXPECT_EQ(first.m_spans[i].m_family, second.m_spans[i].m_family);
    EXPECT_EQ(first.m_spans[i].m_x, second.m_spans[i].m_x);
  }
}

}  // namespace
}  // namespace qv::text
