// Runs of one line: shared baseline, sub- and superscripts.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "layOut.h"
#include "tests/hostile/linearTime.h"

namespace qv::text {
namespace {

constexpr float SCRIPT_SCALE = 0.63F;

TEST(TextLine, RunsOfOneSizeShareAnItem) {
  auto const items = layOut({{normal("A"), normal("B", makeProperties(10.0F, "Courier New")), normal("C")}});
  ASSERT_EQ(items.size(), 1U);
  auto const& spans = items[0]->m_spans;
  ASSERT_EQ(spans.size(), 3U);
  EXPECT_EQ(spans[1].m_family, "Liberation Mono");
  EXPECT_EQ(spans[1].m_x, getEnd(spans[0]));
  EXPECT_EQ(spans[2].m_x, getEnd(spans[1]));
}

TEST(TextLine, MixedHeightsShareTheBaseline) {
  auto const items = layOut({{normal("A"), normal("B", makeProperties(20.0F)), normal("C")}});
  ASSERT_EQ(items.size(), 3U);
  for (auto const& item : items) EXPECT_EQ(item->m_baseline, 0.0F);
  EXPECT_EQ(items[1]->m_size, 20.0F);
  EXPECT_EQ(items[1]->m_spans[0].m_x, getEnd(items[0]->m_spans[0]));
  EXPECT_EQ(items[2]->m_spans[0].m_x, getEnd(items[1]->m_spans[0]));
}

TEST(TextLine, SuperscriptIsSmallerAndHigher) {
  auto const items = layOut({{normal("m"), superscript("2")}});
  ASSERT_EQ(items.size(), 2U);
  EXPECT_EQ(items[1]->m_size, 10.0F * SCRIPT_SCALE);
  EXPECT_GT(items[1]->m_baseline, 3.0F);
  EXPECT_LT(items[1]->m_baseline, 5.0F);
  EXPECT_EQ(items[1]->m_spans[0].m_x, getEnd(items[0]->m_spans[0]));
  EXPECT_NEAR(items[1]->m_spans[0].m_advance, SCRIPT_SCALE * measure(normal("2")), 1e-4F);
}

TEST(TextLine, SubscriptIsSmallerAndLower) {
  auto const items = layOut({{normal("R"), subscript("a")}});
  ASSERT_EQ(items.size(), 2U);
  EXPECT_EQ(items[1]->m_size, 10.0F * SCRIPT_SCALE);
  EXPECT_LT(items[1]->m_baseline, -1.0F);
  EXPECT_GT(items[1]->m_baseline, -3.0F);
}

TEST(TextLine, ShiftFollowsTheNormalRunThatTheScriptBelongsTo) {
  TextProperties const large = makeProperties(20.0F);
  float const shift = layOut({{normal("m"), superscript("2")}})[1]->m_baseline;
  EXPECT_EQ(layOut({{normal("m", large), superscript("2")}})[1]->m_baseline, 2.0F * shift);
  EXPECT_EQ(layOut({{superscript("2"), normal("m", large)}})[0]->m_baseline, 2.0F * shift);
  EXPECT_EQ(layOut({{superscript("2", large)}})[0]->m_baseline, 2.0F * shift);
  EXPECT_EQ(layOut({{normal("m"), superscript("2"), normal("m", large)}})[1]->m_baseline, shift);
}

TEST(TextLine, SubscriptAfterSuperscriptStandsBelowIt) {
  auto const items = layOut({{normal("12"), superscript("+0.1"), subscript("-0.05"), normal(" mm")}});
  ASSERT_EQ(items.size(), 4U);
  float const column = getEnd(items[0]->m_spans[0]);
  EXPECT_EQ(items[1]->m_spans[0].m_x, column);
  EXPECT_EQ(items[2]->m_spans[0].m_x, column);
  EXPECT_EQ(items[3]->m_spans[0].m_x, getEnd(items[2]->m_spans[0]));
}

TEST(TextLine, LineGoesOnBehindTheLongerOfStackedScripts) {
  auto const items = layOut({{normal("12"), superscript("+0.0005"), subscript("0"), normal("x")}});
  ASSERT_EQ(items.size(), 4U);
  EXPECT_EQ(items[3]->m_spans[0].m_x, getEnd(items[1]->m_spans[0]));
  EXPECT_GT(items[3]->m_spans[0].m_x, getEnd(items[2]->m_spans[0]));
}

TEST(TextLine, StackedFiguresDoNotTouch) {
  auto const items = layOut({{normal("12"), superscript("8"), subscript("8")}});
  // Figures are at most 0.72 em high.
  EXPECT_GT(items[1]->m_baseline, items[2]->m_baseline + 0.72F * items[2]->m_size);
}

/// The lowest and the highest point of a text of one glyph with straight edges.
std::pair<float, float> findInk(svg::Text const& text) {
  svg::TextSpan const& span = text.m_spans.at(0);
  std::pair<float, float> ink(INFINITY, -INFINITY);
  for (svg::OutlineCommand const& command : span.m_glyphSource->getOutline(span.m_glyphs.at(0).m_index)) {
    if (command.m_kind == svg::OutlineCommand::Kind::Close) continue;
    float const y = text.m_baseline + command.m_points[0].Y() * text.m_size;
    ink = {std::min(ink.first, y), std::max(ink.second, y)};
  }
  return ink;
}

TEST(TextLine, TallSignsMoveStackedRowsApartUntilTheyDoNotTouch) {
  constexpr char const* PARALLEL = "\u2225";
  auto const figures = layOut({{normal("12"), superscript("8"), subscript("8")}});
  auto const signs = layOut({{normal("12"), superscript(PARALLEL), subscript(PARALLEL)}});
  EXPECT_NEAR(findInk(*signs[1]).first - findInk(*signs[2]).second, 0.04F * signs[0]->m_size, 1e-4F);
  EXPECT_FLOAT_EQ(signs[1]->m_baseline + signs[2]->m_baseline,
                  figures[1]->m_baseline + figures[2]->m_baseline);
}

TEST(TextLine, SeveralRunsStandInEachRowOfAStack) {
  TextProperties const other = makeProperties(10.0F, "Courier New");
  auto const items = layOut({{normal("1"), superscript("a"), superscript("b", other), subscript("c"),
                              subscript("d", other), superscript("e")}});
  ASSERT_EQ(items.size(), 4U);
  float const column = getEnd(items[0]->m_spans[0]);
  ASSERT_EQ(items[1]->m_spans.size(), 2U);
  ASSERT_EQ(items[2]->m_spans.size(), 2U);
  EXPECT_EQ(items[2]->m_spans[0].m_x, column);
  EXPECT_EQ(items[2]->m_spans[1].m_x, getEnd(items[2]->m_spans[0]));
  float const end = std::max(getEnd(items[1]->m_spans[1]), getEnd(items[2]->m_spans[1]));
  EXPECT_FLOAT_EQ(items[3]->m_spans[0].m_x, end);
}

TEST(TextLine, SuperscriptAfterSubscriptStandsBehindIt) {
  auto const items = layOut({{normal("S"), subscript("4"), superscript("2")}});
  EXPECT_EQ(items[2]->m_spans[0].m_x, getEnd(items[1]->m_spans[0]));
}

TEST(TextLine, ScriptsSeparatedByNormalTextAreNotStacked) {
  auto const items = layOut({{superscript("2"), normal("x"), subscript("1")}});
  EXPECT_EQ(items[2]->m_spans[0].m_x, getEnd(items[1]->m_spans[0]));
}

void expectLinearTime(std::vector<Segments> const& once, std::vector<Segments> const& eightTimes) {
  qvHostile::expectLinearTime([&] { EXPECT_FALSE(layOut(once).empty()); },
                              [&] { EXPECT_FALSE(layOut(eightTimes).empty()); });
}

TEST(TextLine, OfManySubscriptsTakesLinearTime) {
  Segments const once(4000, subscript("a"));
  expectLinearTime({once}, {Segments(8 * once.size(), subscript("a"))});
}

TEST(TextLine, OfManyChangesOfDirectionTakesLinearTime) {
  auto const makeText = [](int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += "a\u05d0";
    return text;
  };
  expectLinearTime({{normal(makeText(2500))}}, {{normal(makeText(20000))}});
}

}  // namespace
}  // namespace qv::text
