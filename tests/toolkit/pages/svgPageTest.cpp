#include "qvToolkit/pages/svgPage.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "qvSvg/image.h"
#include "qvSvg/pathBuilder.h"
#include "qvSvg/rect.h"
#include "tests/support/exportSupport.h"

namespace qvToolkit {

namespace {

using qvTest::addItem;
using qvTest::getAnnotation;
using qvTest::makeView;
using qvTest::parsePage;
using qvTest::XmlElement;

std::shared_ptr<qv::svg::Rect> makeRect(float x, float y, float width, float height) {
  return std::make_shared<qv::svg::Rect>(Wm4::Vector2<float>(x, y), Wm4::Vector2<float>(width, height));
}

/// The only element that has the attribute.
XmlElement const& getByAttribute(XmlElement const& root, std::string const& name, std::string const& value) {
  for (XmlElement const* element : root.getAll()) {
    if (element->getAttribute(name) == value) return *element;
  }
  throw std::runtime_error("no element with " + name + "=" + value);
}

XmlElement const& getContentRect(XmlElement const& page) {
  return *page.getAll("rect").back();
}

TEST(SvgPage, IsAsLargeAsItsContentAndAMargin) {
  MigratedView view = makeView();
  addItem(*getAnnotation(view).m_svgRoot, makeRect(-7, -4, 14, 8));
  getAnnotation(view).m_position = {100, 50, 9};
  XmlElement const page = parsePage(view);
  EXPECT_EQ(page.getAttribute("viewBox"), "88 -59 24 18");
  EXPECT_EQ(page.getAttribute("width"), "24mm");
  EXPECT_EQ(page.getAttribute("height"), "18mm");
}

TEST(SvgPage, OfAnEmptyViewIsAnEmptySheet) {
  MigratedView view = makeView();
  view.m_view->m_annotations.clear();
  XmlElement const page = parsePage(view);
  EXPECT_EQ(page.getAttribute("viewBox"), "-5 -5 10 10");
  EXPECT_EQ(page.getAll("rect").size(), 1U);
}

TEST(SvgPage, OfAHugeViewIsShownSmaller) {
  MigratedView view = makeView();
  addItem(*getAnnotation(view).m_svgRoot, makeRect(0, 0, 99990, 9990));
  XmlElement const page = parsePage(view);
  EXPECT_EQ(page.getAttribute("viewBox"), "-5 -5 100000 10000");
  EXPECT_EQ(page.getAttribute("width"), "2000mm");
  EXPECT_EQ(page.getAttribute("height"), "200mm");
}

TEST(SvgPage, HasAWhiteGroundBehindEverything) {
  XmlElement const page = parsePage(makeView());
  XmlElement const& ground = page.m_children.at(2);
  EXPECT_EQ(ground.m_name, "rect");
  EXPECT_EQ(ground.getAttribute("fill"), "#FFFFFF");
}

TEST(SvgPage, PlacesAnnotationsWithYDown) {
  MigratedView view = makeView();
  getAnnotation(view).m_position = {3, 4, 5};
  addItem(*getAnnotation(view).m_svgRoot, makeRect(0, 0, 1, 1));
  EXPECT_NE(qvTest::writePage(view).find("transform=\"translate(3 -4)\""), std::string::npos);
}

TEST(SvgPage, TurnsAnnotationsCounterClockwise) {
  MigratedView view = makeView();
  getAnnotation(view).m_rotationAngle = std::numbers::pi_v<float> / 2;
  getAnnotation(view).m_scale = 2;
  addItem(*getAnnotation(view).m_svgRoot, makeRect(0, 0, 10, 1));
  // The x axis of the content points up, to negative y.
  EXPECT_EQ(parsePage(view).getAttribute("viewBox"), "-5 -25 12 30");
}

TEST(SvgPage, CarriesNameAndAddressOfEachAnnotation) {
  MigratedView view = makeView();
  auto const sub = std::make_shared<qv::svg::Node>();
  addItem(*getAnnotation(view).m_svgRoot, sub);
  view.m_marks[sub.get()] = {"child", "view/0/annot/0/sub/0"};
  view.m_name = "front";
  XmlElement const page = parsePage(view);
  EXPECT_EQ(page.m_children.at(0).m_text, "front");
  EXPECT_EQ(page.m_children.at(1).m_text, "view/0");
  XmlElement const& parent = getByAttribute(page, "data-address", "view/0/annot/0");
  EXPECT_EQ(parent.getAttribute("data-name"), "note");
  EXPECT_EQ(parent.m_children.at(0).m_name, "title");
  EXPECT_EQ(parent.m_children.at(0).m_text, "note");
  EXPECT_EQ(getByAttribute(parent, "data-address", "view/0/annot/0/sub/0").getAttribute("data-name"),
            "child");
}

TEST(SvgPage, TakesColorsFromTheAnnotationWhereNothingSetsThem) {
  MigratedView view = makeView();
  getAnnotation(view).m_color = {1, 0xAB, 0xFF};
  addItem(*getAnnotation(view).m_svgRoot, makeRect(0, 0, 1, 1));
  XmlElement const page = parsePage(view);
  XmlElement const& group = getByAttribute(page, "fill", "#01ABFF");
  EXPECT_EQ(group.getAttribute("stroke"), "#01ABFF");
  EXPECT_EQ(group.getAttribute("stroke-width"), "0");
  EXPECT_EQ(getContentRect(page).getAttribute("fill"), "");
}

TEST(SvgPage, WritesColorsThatItemsSet) {
  MigratedView view = makeView();
  auto& rect = addItem(*getAnnotation(view).m_svgRoot, makeRect(0, 0, 1, 1));
  rect.m_borderColor = "none";
  rect.m_backgroundColor = "#12aB00";
  rect.m_class = "border";
  XmlElement const page = parsePage(view);
  EXPECT_EQ(getContentRect(page).getAttribute("stroke"), "none");
  EXPECT_EQ(getContentRect(page).getAttribute("fill"), "#12aB00");
  EXPECT_EQ(getContentRect(page).getAttribute("class"), "border");
}

TEST(SvgPage, DrawsWidthOneAsAHairlineForEveryRenderer) {
  MigratedView view = makeView();
  addItem(*getAnnotation(view).m_svgRoot, makeRect(-7, -4, 14, 8)).m_width = 1;
  XmlElement const page = parsePage(view);
  XmlElement const& rect = getContentRect(page);
  EXPECT_EQ(rect.getAttribute("stroke-width"), "1");
  EXPECT_EQ(rect.getAttribute("vector-effect"), "non-scaling-stroke");
  // A quarter of a millimetre where strokes scale: coordinates are four times as large.
  EXPECT_EQ(rect.getAttribute("transform"), "scale(0.25)");
  EXPECT_EQ(rect.getAttribute("x"), "-28");
  EXPECT_EQ(rect.getAttribute("height"), "32");
}

TEST(SvgPage, ScalesAHairlineInsideItsOwnTransform) {
  MigratedView view = makeView();
  auto& rect = addItem(*getAnnotation(view).m_svgRoot, makeRect(0, 0, 1, 1));
  rect.m_width = 1;
  rect.m_transform = Wm4::Matrix3<float>(1, 0, 5, 0, -1, 6, 0, 0, 1);
  XmlElement const page = parsePage(view);
  EXPECT_EQ(getContentRect(page).getAttribute("transform"), "matrix(1 0 0 -1 5 6) scale(0.25)");
}

TEST(SvgPage, DrawsNoStrokeOfWidthZero) {
  MigratedView view = makeView();
  addItem(*getAnnotation(view).m_svgRoot, makeRect(0, 0, 1, 1));
  XmlElement const page = parsePage(view);
  EXPECT_EQ(getContentRect(page).getAttribute("stroke-width"), "");
}

TEST(SvgPage, ProjectsLeadersAndDrawsThemBehindAllContents) {
  MigratedView view = makeView();
  qv::qvCadAnnotation& other = qvTest::addAnnotation(view, "second");
  addItem(*getAnnotation(view).m_svgRoot, makeRect(-1, -1, 2, 2));
  other.m_lineSegments.push_back({{0, 0, 100}, {30, 20, -50}});
  std::string const page = qvTest::writePage(view);
  std::size_t const leaders = page.find("d=\"M0 0L120 -80\"");
  ASSERT_NE(leaders, std::string::npos);
  EXPECT_LT(leaders, page.find("data-address=\"view/0/annot/0\""));
  EXPECT_NE(page.find("data-leaders-of=\"view/0/annot/1\""), std::string::npos);
  EXPECT_EQ(parsePage(view).getAttribute("viewBox"), "-6 -25 41 31");
}

TEST(SvgPage, PutsHeadsAtTheirPoints) {
  MigratedView view = makeView();
  qv::svg::PathBuilder builder;
  builder.startContour(false);
  builder.appendSegmentListMove({{-2, 0.6F}, {0, 0}, {-2, -0.6F}});
  builder.endContour();
  auto const node = std::make_shared<qv::svg::Node>();
  node->m_transform = Wm4::Matrix3<float>(1, 0, 0, 0, -1, 0, 0, 0, 1);
  addItem<qv::svg::Path>(*node, builder.createPathItem(true)).m_borderColor = "none";
  getAnnotation(view).m_shapes.push_back({node, {40, 6, 3}});
  std::string const page = qvTest::writePage(view);
  EXPECT_NE(page.find("translate(40 -6)"), std::string::npos);
  EXPECT_NE(page.find("d=\"M-2 0.6L0 0L-2 -0.6Z\""), std::string::npos);
}

TEST(SvgPage, DrawsAWholeEllipseInTwoArcs) {
  MigratedView view = makeView();
  qv::svg::PathBuilder builder;
  builder.startContour(false);
  builder.appendEllipse({0, 0}, {2, 1}, 0, 2 * std::numbers::pi_v<float>);
  builder.endContour();
  addItem<qv::svg::Path>(*getAnnotation(view).m_svgRoot, builder.createPathItem(true));
  std::string const page = qvTest::writePage(view);
  EXPECT_NE(page.find("M2 0L2 0A2 1 0 0 1 -2 0A2 1 0 0 1 2 0Z"), std::string::npos);
}

TEST(SvgPage, SetsTextUprightOnItsBaseline) {
  MigratedView view = makeView();
  qvTest::addText(*getAnnotation(view).m_svgRoot, "A  b ").m_baseline = -4;
  XmlElement const page = parsePage(view);
  XmlElement const& text = *page.getAll("text").at(0);
  EXPECT_EQ(text.getAttribute("transform"), "matrix(0.035 0 0 -0.035 0 -4)");
  EXPECT_EQ(text.getAttribute("font-size"), "100");
  EXPECT_EQ(text.getAttribute("xml:space"), "preserve");
  EXPECT_EQ(text.m_text, "");
  ASSERT_EQ(text.m_children.size(), 1U);
  EXPECT_EQ(text.m_children[0].m_text, "A  b ");
  EXPECT_EQ(text.m_children[0].getAttribute("x"), "0");
  EXPECT_EQ(text.m_children[0].getAttribute("font-family"), "'Liberation Sans', sans-serif");
}

TEST(SvgPage, GivesEachFontOfALineASpan) {
  MigratedView view = makeView();
  auto& text = qvTest::addText(*getAnnotation(view).m_svgRoot, "10");
  qv::svg::TextSpan span = text.m_spans.front();
  span.m_family = "DejaVu Sans";
  span.m_x = 7.25F;
  span.m_bold = span.m_italic = true;
  text.m_spans.push_back(span);
  XmlElement const page = parsePage(view);
  XmlElement const& second = *page.getAll("tspan").at(1);
  EXPECT_EQ(second.getAttribute("x"), "207.14");  // per cent of the size
  EXPECT_EQ(second.getAttribute("font-weight"), "bold");
  EXPECT_EQ(second.getAttribute("font-style"), "italic");
  EXPECT_EQ(page.getAll("tspan").at(0)->getAttribute("font-weight"), "");
}

TEST(SvgPage, EmbedsAnImageInPlace) {
  MigratedView view = makeView();
  qvTest::addImage(view, qvTest::makePng()).m_size = {12.7F, 6.35F};
  XmlElement const page = parsePage(view);
  ASSERT_EQ(page.getAll("image").size(), 1U);
  XmlElement const& element = *page.getAll("image").at(0);
  EXPECT_EQ(element.getAttribute("width"), "12.7");
  EXPECT_EQ(element.getAttribute("preserveAspectRatio"), "none");
  EXPECT_TRUE(element.getAttribute("href").starts_with("data:image/png;base64,iVBORw0KGgo"));
  EXPECT_TRUE(page.getAll("defs").empty());
}

TEST(SvgPage, HoldsAnImageOnceHoweverOftenItIsShown) {
  MigratedView view = makeView();
  for (int i = 0; i < 2; ++i) qvTest::addImage(view, qvTest::makePng()).m_size = {4, 4};
  auto& repeated = addItem(*getAnnotation(view).m_svgRoot, std::make_shared<qv::svg::Image>());
  repeated.m_data = view.m_images.begin()->first;
  repeated.m_size = {4, 4};
  XmlElement const page = parsePage(view);
  EXPECT_EQ(page.getAll("image").size(), 1U);
  ASSERT_EQ(page.getAll("use").size(), 3U);
  EXPECT_EQ("#" + page.getAll("symbol").at(0)->getAttribute("id"),
            page.getAll("use").at(2)->getAttribute("href"));
}

TEST(SvgPage, TurnsABoxOfNegativeSizeAround) {
  MigratedView view = makeView();
  addItem(*getAnnotation(view).m_svgRoot, makeRect(0, 0, -3, 2));
  XmlElement const page = parsePage(view);
  EXPECT_EQ(getContentRect(page).getAttribute("x"), "-3");
  EXPECT_EQ(getContentRect(page).getAttribute("width"), "3");
}

TEST(SvgPage, ComesInPiecesAndStopsAtAFailingSink) {
  MigratedView view = makeView();
  for (int i = 0; i < 60000; ++i) addItem(*getAnnotation(view).m_svgRoot, makeRect(0, 0, 1, 1));
  qvTest::StringSink whole;
  writeSvgPage(view, whole);
  EXPECT_GT(whole.m_calls, 2U);
  EXPECT_LT(whole.m_longest, std::size_t{1} << 21);
  EXPECT_EQ(qvTest::parseXml(whole.m_text).getAll("rect").size(), 60001U);
  qvTest::StringSink failing(1);
  writeSvgPage(view, failing);
  EXPECT_LE(failing.m_calls, 3U);
}

TEST(SvgPage, IsTheSameEachTime) {
  auto const legacy = qvTest::makeLegacyView();
  legacy->m_annotations.push_back(qvTest::makeLegacyText("\u230035 +0.1").get());
  EXPECT_EQ(qvTest::writePage(qvTest::migrate(legacy)), qvTest::writePage(qvTest::migrate(legacy)));
}

}  // namespace

}  // namespace qvToolkit
