#include <gtest/gtest.h>

#include <limits>
#include <set>

#include "qvSvg/image.h"
#include "qvSvg/path.h"
#include "tests/support/exportSupport.h"
#include "text/utf8.h"

namespace qvToolkit {

namespace {

using qvTest::addItem;
using qvTest::getAnnotation;
using qvTest::makeView;
using qvTest::XmlElement;

constexpr float NaN = std::numeric_limits<float>::quiet_NaN();
constexpr float Infinity = std::numeric_limits<float>::infinity();

/// Everything that a page may consist of.
std::map<std::string, std::set<std::string>> const AllowedAttributes = {
    {"svg", {"xmlns", "width", "height", "viewBox"}},
    {"title", {}},
    {"desc", {}},
    {"defs", {}},
    {"g",
     {"class", "transform", "fill", "stroke", "stroke-width", "data-name", "data-address", "data-leaders-of",
      "text-rendering", "stroke-linejoin"}},
    {"rect",
     {"class", "transform", "fill", "stroke", "stroke-width", "vector-effect", "x", "y", "width", "height"}},
    {"path", {"class", "transform", "fill", "stroke", "stroke-width", "vector-effect", "d", "id"}},
    {"text", {"class", "transform", "fill", "fill-opacity", "stroke", "font-size", "xml:space"}},
    {"tspan", {"x", "font-family", "font-weight", "font-style", "stroke", "stroke-width", "stroke-linejoin"}},
    {"symbol", {"id", "viewBox", "preserveAspectRatio"}},
    {"image", {"transform", "x", "y", "width", "height", "preserveAspectRatio", "href"}},
    {"use", {"transform", "x", "y", "width", "height", "href"}},
};

void expectHarmless(XmlElement const& page) {
  for (XmlElement const* element : page.getAll()) {
    auto const allowed = AllowedAttributes.find(element->m_name);
    ASSERT_NE(allowed, AllowedAttributes.end()) << element->m_name;
    for (auto const& [name, value] : element->m_attributes) {
      EXPECT_TRUE(allowed->second.contains(name)) << element->m_name << " " << name;
      bool const isLocal = value.starts_with("data:image/") || value.starts_with("#image");
      EXPECT_TRUE(name != "href" || isLocal) << value;
    }
  }
}

/// A view that shows `payload` wherever a document's text can go.
MigratedView makeViewWith(std::string const& payload) {
  MigratedView view = makeView();
  view.m_name = payload;
  qv::qvCadAnnotation& annotation = getAnnotation(view);
  view.m_marks[annotation.m_svgRoot.get()].m_name = payload;
  auto& text = qvTest::addText(*annotation.m_svgRoot, payload);
  text.m_spans.front().m_family = payload;
  text.m_class = payload;
  qvTest::addImage(view, payload).m_borderColor = payload;
  auto& path = addItem(*annotation.m_svgRoot, std::make_shared<qv::svg::Path>());
  path.m_borderColor = payload;
  path.m_backgroundColor = payload;
  return view;
}

TEST(SvgPageSafety, LetsNoTextBecomeMarkup) {
  for (std::string const payload :
       {"<script>alert(1)</script>", "\"/><svg onload=\"x()\">", "' onclick='x()", "]]><!--",
        "</title><script>", "&lt;&amp;&#0;", "javascript:alert(1)", "url(http://example.org/x)",
        "../../etc/passwd", "a\tb\nc\rd", "#12345", "#GGGGGG", "x;}</style><script>"}) {
    XmlElement const page = qvTest::parsePage(makeViewWith(payload));
    expectHarmless(page);
    EXPECT_EQ(page.m_children.at(0).m_text, payload);
    EXPECT_EQ(page.getAll("tspan").at(0)->m_text, payload);
    EXPECT_TRUE(page.getAll("image").empty());
  }
}

TEST(SvgPageSafety, ReplacesEveryCharacterThatXmlForbids) {
  for (char32_t c = 0; c < 0xA0; ++c) {
    std::string payload = "a";
    appendUtf8(payload, c);
    XmlElement const page = qvTest::parsePage(makeViewWith(payload + "b"));
    bool const isControl = (c < 0x20 && c != '\t' && c != '\n' && c != '\r') || c >= 0x7F;
    EXPECT_EQ(page.getAll("tspan").at(0)->m_text, isControl ? "a\uFFFDb" : payload + "b")
        << static_cast<int>(c);
  }
}

TEST(SvgPageSafety, ReplacesInvalidUtf8) {
  for (std::string const payload : {"\xC0\xBCscript>", "\xED\xA0\x80", "\xFF", "\xE2\x82", "\xEF\xBF\xBE"}) {
    XmlElement const page = qvTest::parsePage(makeViewWith(payload));
    EXPECT_TRUE(page.getAll("tspan").at(0)->m_text.starts_with("\uFFFD"));
    expectHarmless(page);
  }
}

TEST(SvgPageSafety, ShowsNoDataThatAreNoImage) {
  for (std::string const data : {"<svg xmlns='http://www.w3.org/2000/svg'><script/></svg>",
                                 "http://example.org/pixel.png", "GIF8", ""}) {
    MigratedView view = makeView();
    qvTest::addImage(view, data);
    XmlElement const page = qvTest::parsePage(view);
    EXPECT_TRUE(page.getAll("image").empty());
    expectHarmless(page);
  }
}

TEST(SvgPageSafety, UsesOnlyListedMarkupForARealView) {
  auto const legacy = qvTest::makeLegacyView();
  auto const text = qvTest::makeLegacyText("\u2300 10\nx");
  for (std::uint8_t head = 0; head < 8; ++head) {
    text->m_leaders.emplace_back(Wm4::Vector3<float>(20, head, 0)).m_head = head;
  }
  legacy->m_annotations.push_back(text.get());
  MigratedView const view = qvTest::migrate(legacy);
  ASSERT_NE(view.m_view, nullptr);
  expectHarmless(qvTest::parsePage(view));
}

/// One finding for the annotation, the rest of the page there, and no bad number in it.
void expectLeftOut(MigratedView const& view) {
  Findings findings;
  std::string const page = qvTest::writePage(view, &findings);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].m_code, FindingCode::NumberNotFinite);
  EXPECT_EQ(findings[0].m_severity, Severity::Error);
  EXPECT_EQ(findings[0].m_address, "view/0/annot/0");
  EXPECT_EQ(page.find("nan"), std::string::npos);
  EXPECT_EQ(page.find("inf"), std::string::npos);
  XmlElement const root = qvTest::parseXml(page);
  EXPECT_EQ(root.getAttribute("viewBox"), "-5 -5 12 12");
  EXPECT_EQ(root.getAll("rect").size(), 2U);
}

/// A view with a bad first annotation and a good second one.
MigratedView makeHalfGoodView() {
  MigratedView view = makeView();
  addItem(*qvTest::addAnnotation(view, "good").m_svgRoot,
          std::make_shared<qv::svg::Rect>(Wm4::Vector2<float>(0, 0), Wm4::Vector2<float>(2, 2)));
  return view;
}

TEST(SvgPageSafety, LeavesAnItemWithABadNumberOut) {
  for (float const bad : {NaN, Infinity, -Infinity, 3.4e38F, 1.5e9F}) {
    MigratedView view = makeHalfGoodView();
    addItem(*getAnnotation(view).m_svgRoot,
            std::make_shared<qv::svg::Rect>(Wm4::Vector2<float>(bad, 0), Wm4::Vector2<float>(1, 1)));
    expectLeftOut(view);
  }
}

/// What the only finding of the page says is left out.
std::string describeLeftOut(MigratedView const& view) {
  Findings findings;
  static_cast<void>(qvTest::writePage(view, &findings));
  std::string const rest = " left out of the page, since a number is not finite or beyond 1000000000";
  std::string const text = findings.size() == 1 ? findings[0].m_text : std::string();
  return text.ends_with(rest) ? text.substr(0, text.size() - rest.size()) : std::string();
}

TEST(SvgPageSafety, LeavesAnAnnotationAtABadPlaceOut) {
  MigratedView view = makeHalfGoodView();
  getAnnotation(view).m_position = {0, NaN, 0};
  qvTest::addText(*getAnnotation(view).m_svgRoot, "lost");
  expectLeftOut(view);
  EXPECT_EQ(describeLeftOut(view), "the annotation, with all that belongs to it, is");
}

TEST(SvgPageSafety, CountsTheItemsOfAnAnnotationThatAreLeftOut) {
  MigratedView view = makeHalfGoodView();
  auto& segments = getAnnotation(view).m_lineSegments;
  segments.push_back({{0, Infinity, 0}, {0, 0, 0}});
  EXPECT_EQ(describeLeftOut(view), "an item is");
  segments.push_back({{NaN, 0, 0}, {0, 0, 0}});
  EXPECT_EQ(describeLeftOut(view), "2 items are");
}

TEST(SvgPageSafety, LeavesLeadersWithABadPointOut) {
  MigratedView view = makeHalfGoodView();
  auto& segments = getAnnotation(view).m_lineSegments;
  segments.push_back({{0, Infinity, 0}, {0, 0, 0}});
  segments.push_back({{0, 0, 0}, {2, -2, NaN}});
  getAnnotation(view).m_shapes.push_back({std::make_shared<qv::svg::Node>(), {NaN, 0, 0}});
  expectLeftOut(view);
  EXPECT_NE(qvTest::writePage(view).find("d=\"M0 0L8 8\""), std::string::npos);
}

TEST(SvgPageSafety, LeavesAGroupWithABadTransformOut) {
  MigratedView view = makeHalfGoodView();
  auto& group = addItem(*getAnnotation(view).m_svgRoot, std::make_shared<qv::svg::Node>());
  group.m_transform = Wm4::Matrix3<float>(1, 0, Infinity, 0, 1, 0, 0, 0, 1);
  qvTest::addText(group, "lost");
  expectLeftOut(view);
}

TEST(SvgPageSafety, LeavesItemsOutThatOnlyTheirGroupsCarryTooFar) {
  MigratedView view = makeHalfGoodView();
  auto& group = addItem(*getAnnotation(view).m_svgRoot, std::make_shared<qv::svg::Node>());
  group.m_transform = Wm4::Matrix3<float>(1e6F, 0, 0, 0, 1e6F, 0, 0, 0, 1);
  addItem(group, std::make_shared<qv::svg::Rect>(Wm4::Vector2<float>(1e5F, 0), Wm4::Vector2<float>(1, 1)));
  expectLeftOut(view);
}

TEST(SvgPageSafety, LeavesATextOfBadSizeOut) {
  MigratedView view = makeHalfGoodView();
  qvTest::addText(*getAnnotation(view).m_svgRoot, "lost").m_size = NaN;
  expectLeftOut(view);
}

}  // namespace

}  // namespace qvToolkit
