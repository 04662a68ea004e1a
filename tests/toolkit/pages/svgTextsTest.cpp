#include <gtest/gtest.h>

#include "qvSvg/glyphSource.h"
#include "tests/support/exportSupport.h"

namespace {

using namespace qvToolkit;
using qvTest::getAnnotation;
using qvTest::XmlElement;

/// Its glyph n is a triangle n units wide.
struct Triangles : qv::svg::GlyphSource {
  std::string const& getFontFile() const noexcept override { return m_file; }
  unsigned getFaceIndex() const noexcept override { return 0; }
  std::string getFontVersion() const override { return {}; }
  std::string_view getFontData() const noexcept override { return {}; }
  unsigned getUnitsPerEm() const noexcept override { return 1000; }
  qv::svg::Outline getOutline(std::uint32_t glyph) const override {
    using Kind = qv::svg::OutlineCommand::Kind;
    float const width = static_cast<float>(glyph) / 1000.0F;
    return {{Kind::Move, {{{0, 0}}}},
            {Kind::Line, {{{width, 0}}}},
            {Kind::Quadratic, {{{width, 0.25F}, {0, 0.5F}}}},
            {Kind::Cubic, {{{0, 0.4F}, {0, 0.2F}, {0, 0.1F}}}},
            {Kind::Close, {}}};
  }
  std::string m_file = "triangles.ttf";
};

class SvgTexts : public testing::Test {
 protected:
  SvgTexts() {
    m_text.m_size = 4.0F;
    m_text.m_spans[0].m_glyphSource = m_font;
    m_text.m_spans[0].m_glyphs = {{7, 0.0F, 0.0F}, {9, 1.5F, 0.0F}, {7, 2.0F, -0.25F}};
  }

  qv::svg::TextSpan& addSpan(std::string const& text, float x) {
    qv::svg::TextSpan span = m_text.m_spans[0];
    span.m_text = text;
    span.m_x = x;
    return m_text.m_spans.emplace_back(span);
  }

  XmlElement write(TextMode mode) const {
    qvTest::StringSink sink;
    static_cast<void>(writeSvgPage(m_view, sink, mode));
    return qvTest::parseXml(sink.m_text);
  }

  MigratedView m_view = qvTest::makeView();
  std::shared_ptr<Triangles> m_font = std::make_shared<Triangles>();
  qv::svg::Text& m_text = qvTest::addText(*getAnnotation(m_view).m_svgRoot, "AVA");
};

TEST_F(SvgTexts, ForceTheDirectionOfEachSpanOfALineThatHasTwo) {
  m_text.m_spans.reserve(3);
  addSpan("\u05D0 ", 10).m_rightToLeft = true;
  addSpan("\u05D0", 20).m_rightToLeft = true;
  XmlElement const page = write(TextMode::Live);
  EXPECT_EQ(page.getAll("tspan").at(0)->m_text, "\u202DAVA\u202C");
  EXPECT_EQ(page.getAll("tspan").at(1)->m_text, "\u202E\u05D0 \u200F\u202C");
  EXPECT_EQ(page.getAll("tspan").at(2)->m_text, "\u202E\u05D0\u202C");
}

TEST_F(SvgTexts, DrawBoldThatIsMadeUpByAStrokeInTheColourOfTheFill) {
  m_text.m_spans[0].m_bold = true;
  m_text.m_spans[0].m_synthesis.m_bold = true;
  auto& group = static_cast<qv::svg::Node&>(*getAnnotation(m_view).m_svgRoot->getChildren()[0]);
  group.m_backgroundColor = "#123456";
  m_text.m_borderColor = "none";
  for (TextMode const mode : {TextMode::Live, TextMode::Outline}) {
    XmlElement const page = write(mode);
    XmlElement const& drawn = mode == TextMode::Live ? *page.getAll("tspan").at(0)
                                                     : *page.getAll("g").at(page.getAll("g").size() - 1);
    EXPECT_EQ(drawn.getAttribute("stroke"), "#123456");
    EXPECT_EQ(drawn.getAttribute("stroke-linejoin"), "round");
    EXPECT_TRUE(drawn.getAttribute("stroke-width").starts_with(mode == TextMode::Live ? "4.16666" : "41.67"));
    EXPECT_EQ(drawn.getAttribute("font-weight"), "");
  }
  EXPECT_EQ(write(TextMode::Both).getAll("tspan").at(0)->getAttribute("stroke"), "");
}

TEST_F(SvgTexts, SlantItalicThatIsMadeUpInALineOfItsOwn) {
  m_text.m_spans.reserve(3);
  qv::svg::TextSpan& span = addSpan("slanted", 10);
  span.m_italic = span.m_synthesis.m_oblique = true;
  addSpan("upright", 20);
  XmlElement const page = write(TextMode::Live);
  auto const lines = page.getAll("text");
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[0]->getAttribute("transform"), "matrix(0.04 0 0 -0.04 0 0)");
  EXPECT_EQ(lines[1]->getAttribute("transform"), "matrix(0.04 0 -0.008 -0.04 0 0)");
  EXPECT_EQ(lines[1]->m_children.at(0).getAttribute("font-style"), "");
  EXPECT_EQ(lines[2]->m_children.at(0).m_text, "upright");
}

TEST_F(SvgTexts, DefineEachGlyphOfAFontOnceInFontUnits) {
  XmlElement const page = write(TextMode::Outline);
  ASSERT_EQ(page.getAll("defs").size(), 1U);
  auto const& glyphs = page.getAll("defs")[0]->m_children;
  ASSERT_EQ(glyphs.size(), 2U);
  EXPECT_EQ(glyphs[0].getAttribute("id"), "f0g7");
  EXPECT_EQ(glyphs[0].getAttribute("d"), "M0 0L7 0Q7 250 0 500C0 400 0 200 0 100Z");
  EXPECT_EQ(glyphs[1].getAttribute("id"), "f0g9");
  auto const uses = page.getAll("use");
  ASSERT_EQ(uses.size(), 3U);
  EXPECT_EQ(uses[0]->m_attributes, (std::map<std::string, std::string>{{"href", "#f0g7"}}));
  EXPECT_EQ(uses[1]->m_attributes, (std::map<std::string, std::string>{{"href", "#f0g9"}, {"x", "375"}}));
  EXPECT_EQ(uses[2]->m_attributes,
            (std::map<std::string, std::string>{{"href", "#f0g7"}, {"x", "500"}, {"y", "-62.5"}}));
  EXPECT_TRUE(page.getAll("text").empty());
}

TEST_F(SvgTexts, ReachSmallOutlinesInTwoStepsThatRenderersCanFollow) {
  m_text.m_size = 0.3175F;
  m_text.m_baseline = 2.0F;
  m_text.m_spans[0].m_x = 0.635F;
  XmlElement const page = write(TextMode::Outline);
  auto const groups = page.getAll("g");
  EXPECT_EQ(groups.at(groups.size() - 2)->getAttribute("transform"), "matrix(0.003175 0 0 0.003175 0 2)");
  EXPECT_EQ(groups.back()->getAttribute("transform"), "matrix(0.1 0 0 0.1 200 0)");
}

TEST_F(SvgTexts, TellFontsApart) {
  m_text.m_spans.reserve(2);
  addSpan("x", 10).m_glyphSource = std::make_shared<Triangles>();
  XmlElement const page = write(TextMode::Outline);
  EXPECT_EQ(page.getAll("defs").at(0)->m_children.size(), 4U);
  EXPECT_EQ(page.getAll("use").back()->getAttribute("href"), "#f1g7");
  EXPECT_EQ(page.getAll("use").size(), 6U);
}

TEST_F(SvgTexts, PutUnseenTextOverOutlinesWhenBothAreAskedFor) {
  XmlElement const page = write(TextMode::Both);
  EXPECT_EQ(page.getAll("use").size(), 3U);
  ASSERT_EQ(page.getAll("text").size(), 1U);
  EXPECT_EQ(page.getAll("text")[0]->getAttribute("fill-opacity"), "0.004");
  EXPECT_EQ(page.getAll("tspan").at(0)->m_text, "AVA");
  auto const all = page.getAll();
  EXPECT_EQ(all[all.size() - 2]->m_name, "text");
  EXPECT_EQ(write(TextMode::Live).getAll("text").at(0)->getAttribute("fill-opacity"), "");
}

TEST_F(SvgTexts, StayLiveWhereThereAreNoOutlines) {
  m_text.m_spans[0].m_glyphSource = nullptr;
  m_text.m_spans[0].m_glyphs.clear();
  XmlElement const page = write(TextMode::Outline);
  EXPECT_TRUE(page.getAll("defs").empty());
  ASSERT_EQ(page.getAll("text").size(), 1U);
  EXPECT_EQ(page.getAll("text")[0]->getAttribute("fill-opacity"), "");
}

TEST_F(SvgTexts, DrawNothingOfSizeZero) {
  m_text.m_size = 0.0F;
  XmlElement const page = write(TextMode::Both);
  EXPECT_TRUE(page.getAll("use").empty());
  EXPECT_TRUE(page.getAll("text").empty());
}

}  // namespace
