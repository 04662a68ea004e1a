#include "qvToolkit/reports/migratedJson.h"

#include <gtest/gtest.h>

#include <limits>

#include "qvSvg/image.h"
#include "qvSvg/pathBuilder.h"
#include "qvToolkit/reports/fontCollector.h"
#include "reports/cadJson.h"
#include "tests/support/exportSupport.h"
#include "text/contentHash.h"

namespace qvToolkit {

namespace {

using qvTest::addItem;
using qvTest::getAnnotation;

std::string formatView(MigratedView const& view) {
  JsonWriter json;
  json.beginObject();
  CadJson(json, view).writeViewMembers();
  json.endObject();
  return json.takeText();
}

void expectHolds(std::string const& text, std::string const& part) {
  EXPECT_NE(text.find(part), std::string::npos) << part << "\n" << text;
}

TEST(MigratedJson, HoldsThePlaneOfTheView) {
  MigratedView view = qvTest::makeView();
  view.m_view->m_planeOrigin = {1, 2.5F, -3};
  expectHolds(formatView(view),
              R"("plane":{"origin":[1,2.5,-3],"originBits":null,"normal":[0,0,1],"normalBits":null,)"
              R"("xAxis":[1,0,0],"xAxisBits":null},"annotations":[)");
}

TEST(MigratedJson, HoldsEveryFieldOfAnAnnotation) {
  MigratedView view = qvTest::makeView();
  qv::qvCadAnnotation& annotation = getAnnotation(view);
  annotation.m_position = {1, 2, 3};
  annotation.m_rotationAngle = 0.5F;
  annotation.m_scale = 2;
  annotation.m_color = {1, 2, 255};
  annotation.m_flags = 0xB1;
  annotation.m_lineSegments.push_back({{1, 2, 3}, {4, 5, 6}});
  annotation.m_leaderAnchors.push_back({{7, 8, 9}, {1, -1}});
  annotation.m_shapes.push_back({std::make_shared<qv::svg::Node>(), {5, 5, 5}});
  expectHolds(
      formatView(view),
      R"({"address":"view/0/annot/0","name":"note","nameHex":null,"position":[1,2,3],"rotationAngle":0.5,)"
      R"("scale":2,"color":"#0102FF","flags":177,)"
      R"("flagNames":["scaleWithModel","ignoreDepthTest","frameUnlocked"],)"
      R"("lineSegments":[{"from":[1,2,3],"to":[4,5,6]}],)"
      R"("leaderAnchors":[{"origin":[7,8,9],"offset":[1,-1]}],)"
      R"("shapes":[{"point":[5,5,5],"svg":{"kind":"group",)");
}

TEST(MigratedJson, HoldsTheCommonFieldsOfAnItem) {
  MigratedView view = qvTest::makeView();
  auto& rect =
      addItem(*getAnnotation(view).m_svgRoot,
              std::make_shared<qv::svg::Rect>(Wm4::Vector2<float>(-7, -4), Wm4::Vector2<float>(14, 8)));
  rect.m_borderColor = "none";
  rect.m_class = "border";
  rect.m_width = 1;
  rect.m_transform = Wm4::Matrix3<float>(1, 0, 2, 0, -1, 3, 0, 0, 1);
  expectHolds(formatView(view),
              R"({"kind":"rect","class":"border","border":"none","background":null,"width":1,)"
              R"("transform":[1,0,2,0,-1,3,0,0,1],"origin":[-7,-4],"size":[14,8]})");
}

TEST(MigratedJson, TellsOfEachGroupWhetherAnAnnotationBeginsThere) {
  MigratedView view = qvTest::makeView();
  view.m_marks[getAnnotation(view).m_svgRoot.get()].m_name = "n\xFF";
  addItem(*getAnnotation(view).m_svgRoot, std::make_shared<qv::svg::Node>());
  std::string const text = formatView(view);
  expectHolds(text,
              "\"kind\":\"group\",\"address\":\"view/0/annot/0\",\"name\":\"n\uFFFD\",\"nameHex\":\"6eff\",");
  expectHolds(text, R"("kind":"group","address":null,"name":null,"nameHex":null,"class":null,)");
}

TEST(MigratedJson, HoldsTheContoursOfAPath) {
  MigratedView view = qvTest::makeView();
  qv::svg::PathBuilder builder;
  builder.appendLine({-1, 0}, {1, 0});
  builder.startContour(false);
  builder.appendEllipse({0, 0}, {2, 1}, 0, 3);
  builder.endContour();
  addItem<qv::svg::Path>(*getAnnotation(view).m_svgRoot, builder.createPathItem(true));
  expectHolds(formatView(view),
              R"("contours":[{"start":[-1,0],"closed":false,"segments":[{"kind":"line","to":[1,0]}]},)"
              R"({"start":[2,0],"closed":true,"segments":[{"kind":"ellipse","center":[0,0],)"
              R"("radii":[2,1],"startAngle":0,"endAngle":3}]}])");
}

TEST(MigratedJson, HoldsSizeAndHashOfAnImageInsteadOfItsBytes) {
  MigratedView view = qvTest::makeView();
  qvTest::addImage(view, qvTest::makePng()).m_size = {2, 1};
  expectHolds(formatView(view), R"("position":[0,0],"size":[2,1],"mediaType":"image/png","byteCount":70,)");
  view.m_images.begin()->second = std::make_shared<Image const>("a");
  expectHolds(formatView(view), R"("mediaType":null,"byteCount":1,"fnv1a64":"af63dc4c8601ec8c"})");
}

TEST(MigratedJson, HoldsTheSpansOfAText) {
  MigratedView view = qvTest::makeView();
  auto& text = qvTest::addText(*getAnnotation(view).m_svgRoot, "a\"\x01");
  text.m_spans[0].m_match = qv::svg::FontMatch::Missing;
  text.m_spans[0].m_original = "x";
  text.m_spans[0].m_rightToLeft = true;
  text.m_spans[0].m_synthesis.m_oblique = true;
  expectHolds(
      formatView(view),
      R"("baseline":0,"size":3.5,"box":[0,-1,10,3],"spans":[{"text":"a\"\u0001","x":0,)"
      R"("advance":10,"family":"Liberation Sans","askedFamily":"","askedFamilyHex":null,"match":"missing",)"
      R"("original":"x","originalHex":null,"bold":false,"italic":false,"boldMadeUp":false,"italicMadeUp":true,)"
      R"("rightToLeft":true}])");
}

TEST(MigratedJson, NamesTheFontsOfTheDocumentAndTheOptionsThatChoseThem) {
  auto const legacy = qvTest::makeLegacyView();
  legacy->m_annotations = {qvTest::makeLegacyText("a\U0010FFFD").get()};
  Document const document = qvTest::makeDocument(legacy);
  MigrationOptions options;
  std::string const folder = "folder-of-fonts";
  options.m_fonts.m_directories = {folder};
  options.m_fonts.m_replacements = {{"Old", "New"}};
  MigrationSession session(options);
  std::vector<MigratedView> const views = session.migrate(document);
  std::string const text = formatMigratedDocument(document, session, views, {""}, {});
  for (char const* const part : {"\"family\":\"Old\"", "\"replacement\":\"New\"", "\"systemFonts\":true",
                                 "\"fonts\":[{", "\"askedFamily\":\"Arial\"", "\"codePoint\":\"U+10FFFD\""}) {
    expectHolds(text, part);
  }
  // Where fonts are on one machine says nothing on another one.
  EXPECT_EQ(text.find(folder), std::string::npos) << text;
  EXPECT_EQ(text.find(".ttf"), std::string::npos) << text;
}

TEST(MigratedJson, WritesANumberThatIsNotFiniteAsNullAndKeepsTheSignOfZero) {
  MigratedView view = qvTest::makeView();
  getAnnotation(view).m_position = {std::numeric_limits<float>::quiet_NaN(), -0.0F, 1e20F};
  expectHolds(formatView(view), R"("position":[null,-0.0,1e+20])");
}

TEST(MigratedJson, SaysWhyAViewIsNotMigrated) {
  auto const legacy = qvTest::makeLegacyView();
  legacy->m_metadata["k"] = 1;
  Document const document = qvTest::makeDocument(legacy);
  Findings findings;
  MigrationSession session({}, [&findings](Finding finding) { findings.push_back(std::move(finding)); });
  std::vector<MigratedView> const views = session.migrate(document);
  std::string const text = formatMigratedDocument(document, session, views, {""}, findings,
                                                  [](OptionKey) -> std::string_view { return "--drop"; });
  expectHolds(text, "\"format\":\"qvannot.migrated\"");
  expectHolds(text, "\"version\":\"6.27\"");
  expectHolds(text, "\"migrated\":false");
  expectHolds(text, "\"page\":null");
  expectHolds(text, "\"Found metadata in annotation view\"");
  expectHolds(text, "\"option\":\"--drop\"");
  expectHolds(text, "\"plane\":null,\"annotations\":null");
  expectHolds(text, "\"sameAs\":null");
}

TEST(MigratedJson, RefersToTheFirstPlaceOfARepeatedView) {
  auto const legacy = qvTest::makeLegacyView();
  Document document = qvTest::makeDocument(legacy);
  document.m_views.push_back(document.m_views.front());
  MigrationSession session({});
  std::vector<MigratedView> const views = session.migrate(document);
  std::string const text = formatMigratedDocument(document, session, views, {"p.view-0000.svg", ""}, {});
  expectHolds(text, "\"sameAs\":\"view/0\"");
  expectHolds(text, "\"page\":\"p.view-0000.svg\"");
}

TEST(MigratedJson, IsTheSameWhenEachViewIsFreedBeforeTheNextOne) {
  Document document = qvTest::makeDocument(qvTest::makeLegacyView());
  document.m_views.push_back(qvTest::makeDocument(qvTest::makeLegacyView()).m_views.front());
  for (LoadedView const& loaded : document.m_views)
    loaded.m_view->m_annotations = {qvTest::makeLegacyText("A").get()};
  MigrationSession session({});
  std::vector<MigratedView> views = session.migrate(document);
  std::string const whole = formatMigratedDocument(document, session, views, {"a", "b"}, {});
  FontHashes hashes;
  FontCollector fonts(hashes);
  TextSink sink;
  MigratedJson json(sink);
  json.begin(document, session.getOptions());
  for (std::size_t i = 0; i < views.size(); ++i) {
    json.addView(document.m_views[i], views[i], i == 0 ? "a" : "b");
    fonts.add(views[i]);
    views[i] = MigratedView();
  }
  EXPECT_TRUE(json.finish(fonts.makeReport(), {}));
  EXPECT_EQ(sink.m_text, whole);
}

TEST(ContentHash, IsFnv1a) {
  EXPECT_EQ(hashContent(""), "cbf29ce484222325");
  EXPECT_EQ(hashContent("foobar"), "85944171f73967e8");
}

}  // namespace

}  // namespace qvToolkit
