#include <gtest/gtest.h>

#include <limits>

#include "annotationLegacy/qvAnnotationRaster.h"
#include "qvToolkit/images/rasterFolder.h"
#include "tests/support/exportSupport.h"

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationInterface;
using qvLegacy::qvAnnotationRaster;
using qvLegacy::qvAnnotationText;
using qvTest::makeLegacyText;
using qvTest::makeLegacyView;
using qvTest::migrate;
using qvTest::Migrated;
using qvTest::select;
using View = qv::qvPointer<qvLegacy::qvAnnotationView>;
using Text = qv::qvPointer<qvAnnotationText>;

View makeViewOf(qvAnnotationInterface* annotation) {
  View view = makeLegacyView();
  view->m_annotations.push_back(annotation);
  return view;
}

/// The only finding of the code.
Finding getOnly(Migrated const& view, FindingCode code) {
  Findings const found = select(view.m_findings, code);
  EXPECT_EQ(found.size(), 1U);
  return found.empty() ? Finding() : found.front();
}

void addChild(qvAnnotationInterface& parent, qvAnnotationInterface* child, std::uint32_t anchor) {
  qvAnnotationInterface::SubAnnot node;
  node.m_annot = child;
  node.m_anchor = anchor;
  parent.editSubAnnots().push_back(node);
}

TEST(MigrationSession, RestoresTheProcessLog) {
  qv::qvLog* const before = qv::qvLog::msInstance;
  View const view = makeLegacyView();
  view->m_metadata["k"] = 1;
  EXPECT_EQ(migrate(view).m_log, std::vector<std::string>{"Found metadata in annotation view"});
  EXPECT_EQ(qv::qvLog::msInstance, before);
}

TEST(MigrationSession, MigratesARepeatedViewObjectOnce) {
  View const view = makeViewOf(makeLegacyText("a").get());
  Document document = qvTest::makeDocument(view);
  document.m_views.resize(1000, document.m_views.front());
  std::size_t told = 0;
  MigrationSession session(
      {}, [&told](Finding const& finding) { told += finding.m_address != "view/0/annot/0"; });
  std::vector<MigratedView> const views = session.migrate(document);
  EXPECT_EQ(told, 0U);
  ASSERT_EQ(views.size(), 1000U);
  EXPECT_NE(views[0].m_view, nullptr);
  EXPECT_EQ(views[999].m_view, nullptr);
  EXPECT_EQ(views[999].m_sameAs, 0U);
}

TEST(MigrationSession, TellsOfAViewBeforeItHandsItOver) {
  Text const text = makeLegacyText("a");
  text->m_name = "bad \x01";
  Document document = qvTest::makeDocument(makeViewOf(text.get()));
  document.m_views.push_back(qvTest::makeDocument(nullptr).m_views.front());
  std::vector<std::string> events;
  MigrationSession session({}, [&](Finding const& finding) { events.push_back(finding.m_address); });
  session.migrate(document, [&](MigratedView const& view) {
    events.push_back("view " + std::to_string(view.m_index));
    return true;
  });
  std::erase(events, "view/0/annot/0");
  EXPECT_EQ(events, (std::vector<std::string>{"view 0", "view/1", "view 1"}));
}

TEST(MigrationSession, HoldsOneViewAtATime) {
  Document document = qvTest::makeDocument(makeViewOf(makeLegacyText("a").get()));
  document.m_views.push_back(qvTest::makeDocument(makeViewOf(makeLegacyText("b").get())).m_views.front());
  std::weak_ptr<qv::svg::Node> last;
  MigrationSession({}).migrate(document, [&](MigratedView const& view) {
    EXPECT_TRUE(last.expired());
    last = view.m_view->m_annotations.front()->m_svgRoot;
    return true;
  });
  EXPECT_TRUE(last.expired());
}

TEST(MigrationSession, EndsWhenNoMoreIsWanted) {
  Document document = qvTest::makeDocument(makeViewOf(makeLegacyText("a").get()));
  document.m_views.resize(5, document.m_views.front());
  std::size_t taken = 0;
  MigrationSession({}).migrate(document, [&](MigratedView const&) { return ++taken < 3; });
  EXPECT_EQ(taken, 3U);
}

TEST(MigrationSession, MarksEachAnnotationWithItsAddress) {
  Text const parent = makeLegacyText("a");
  Text const child = makeLegacyText("b");
  child->SetName("child");
  addChild(*parent, nullptr, 1);
  addChild(*parent, child.get(), 1);
  View const view = makeLegacyView();
  view->m_annotations = {nullptr, parent.get()};
  Migrated const migrated = migrate(view);
  ASSERT_EQ(migrated.m_marks.size(), 2U);
  auto const& root = migrated.m_view->m_annotations.at(0)->m_svgRoot;
  EXPECT_EQ(migrated.m_marks.at(root.get()).m_address, "view/0/annot/1");
  auto const* sub = dynamic_cast<qv::svg::Node const*>(root->getChildren().back().get());
  EXPECT_EQ(migrated.m_marks.at(sub).m_address, "view/0/annot/1/sub/1");
  EXPECT_EQ(migrated.m_marks.at(sub).m_name, "child");
}

/// A text with `depth` levels of sub-annotations.
Text makeDeepText(std::size_t depth) {
  Text text = makeLegacyText("a");
  for (std::size_t level = 0; level < depth; ++level) {
    Text const parent = makeLegacyText("a");
    addChild(*parent, text.get(), qvAnnotationInterface::RightCenter);
    text = parent;
  }
  return text;
}

TEST(MigrationSession, MigratesUpTo200LevelsOfSubAnnotations) {
  EXPECT_NE(migrate(makeViewOf(makeDeepText(200).get())).m_view, nullptr);
  Migrated const view = migrate(makeViewOf(makeDeepText(201).get()));
  EXPECT_EQ(view.m_view, nullptr);
  Finding const finding = getOnly(view, FindingCode::LimitDepth);
  EXPECT_EQ(finding.m_text,
            "view 'front' is not migrated: its sub-annotations are nested more than 200 levels deep");
  EXPECT_EQ(finding.m_address, "view/0/annot/0");
  EXPECT_EQ(finding.m_options, std::vector{OptionKey::MaxDepth});
  EXPECT_TRUE(isLimit(finding.m_code));
}

TEST(MigrationFindings, NameTheOptionsThatAMigrationLacks) {
  Text const text = makeLegacyText("a");
  text->m_metadata["NOA"] = 1;
  text->m_metadata["other"] = 1;
  View const view = makeViewOf(text.get());
  Finding const finding = getOnly(migrate(view), FindingCode::ViewNotMigrated);
  EXPECT_EQ(finding.m_severity, Severity::Error);
  EXPECT_EQ(finding.m_address, "view/0");
  EXPECT_EQ(finding.m_options, (std::vector{OptionKey::DropKnownMetadata, OptionKey::DropUnknownMetadata}));
  EXPECT_EQ(finding.m_text,
            "view 'front' is not migrated: Found CT metadata NOAin annotation, at annotation 'note' "
            "(view/0/annot/0); it can be dropped");
}

TEST(MigrationFindings, RepeatTheMigrationsRecordsExactly) {
  Text const text = makeLegacyText("a");
  text->m_metadata["x"] = 1;
  Findings const found = select(migrate(makeViewOf(text.get())).m_findings, FindingCode::MigrationMessage);
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0].m_text, "Found unexpected metadata x in annotation");
  EXPECT_EQ(found[1].m_text, "Fail to migrate annotation 'note' of view 'front'");
  EXPECT_EQ(found[1].m_address, "view/0");
  EXPECT_EQ(found[1].m_severity, Severity::Error);
}

TEST(MigrationFindings, TellOfAViewThatTheReaderRefused) {
  Document document = qvTest::makeDocument(nullptr);
  document.m_views[0].m_messages = {"missing 'annotations' field"};
  Migrated const view = migrate(document);
  EXPECT_EQ(getOnly(view, FindingCode::ViewNotMigrated).m_text,
            "view 'gone' is not migrated: the reader refused it: missing 'annotations' field");
}

TEST(MigrationFindings, TellOfDroppedMetadata) {
  Text const text = makeLegacyText("a");
  text->m_metadata["NOA"] = 1;
  View const view = makeViewOf(text.get());
  view->m_metadata["v"] = 1;
  MigrationOptions options;
  options.m_dropped = 7;
  Findings const found = select(migrate(view, options).m_findings, FindingCode::MetadataDropped);
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0].m_address, "view/0");
  EXPECT_EQ(found[0].m_text, "metadata is not carried over: 'v'");
  EXPECT_EQ(found[1].m_address, "view/0/annot/0");
  EXPECT_EQ(found[1].m_severity, Severity::Warning);
}

TEST(MigrationFindings, CountBlankLinesThatAreLeftOut) {
  Finding const finding =
      getOnly(migrate(makeViewOf(makeLegacyText("A\n\n   \nB").get())), FindingCode::BlankLineSkipped);
  EXPECT_EQ(finding.m_severity, Severity::Info);
  EXPECT_EQ(finding.m_text, "2 blank lines are left out");
}

TEST(MigrationFindings, KeepQuietAboutATextThatIsOneBlankLine) {
  Migrated const view = migrate(makeViewOf(makeLegacyText("   ").get()));
  EXPECT_TRUE(select(view.m_findings, FindingCode::BlankLineSkipped).empty());
}

TEST(MigrationFindings, NameShapesThatAreDrawnAsRectangles) {
  for (int shape = 0; shape < 15; ++shape) {
    Text const text = makeLegacyText("a");
    text->m_style = static_cast<std::uint8_t>(0xE0 | shape);
    Migrated const view = migrate(makeViewOf(text.get()));
    bool const hasOwnGeometry = shape <= 2 || (shape >= 5 && shape <= 8);
    EXPECT_EQ(select(view.m_findings, FindingCode::ShapeAsRectangle).size(), hasOwnGeometry ? 0U : 1U)
        << shape;
    for (Finding const& finding : select(view.m_findings, FindingCode::ShapeAsRectangle)) {
      EXPECT_EQ(finding.m_severity, Severity::Warning);
    }
  }
}

TEST(MigrationFindings, NameUnknownHeadsOnce) {
  Text const text = makeLegacyText("a");
  for (int i = 0; i < 3; ++i) text->m_leaders.emplace_back(Wm4::Vector3<float>(9, 9, 0)).m_head = 200;
  Migrated const view = migrate(makeViewOf(text.get()));
  EXPECT_EQ(getOnly(view, FindingCode::LeaderHeadUnknown).m_text, "leader head 200 is unknown and not drawn");
  EXPECT_EQ(view.m_log.size(), 3U);
  EXPECT_EQ(getOnly(view, FindingCode::MigrationMessage).m_severity, Severity::Warning);
}

TEST(MigrationFindings, NameDirectedHeadsWithoutDirection) {
  for (std::uint8_t head = 0; head <= 6; ++head) {
    Text const text = makeLegacyText("a");
    text->m_position = {3, 4, 5};
    text->m_leaders.emplace_back(Wm4::Vector3<float>(3, 4, 99)).m_head = head;
    bool const isDirected = head == 1 || head == 3 || head == 6;
    Migrated const view = migrate(makeViewOf(text.get()));
    EXPECT_EQ(select(view.m_findings, FindingCode::LeaderHeadCollapsed).size(), isDirected ? 1U : 0U)
        << static_cast<int>(head);
  }
}

TEST(MigrationFindings, CountALeaderOfEndlessLengthAsOneWithoutDirection) {
  Text const text = makeLegacyText("a");
  text->m_leaders.emplace_back(Wm4::Vector3<float>(1e30F, 4, 0)).m_head = qvAnnotationInterface::ArrowHead;
  Migrated const view = migrate(makeViewOf(text.get()));
  EXPECT_EQ(getOnly(view, FindingCode::LeaderHeadCollapsed).m_address, "view/0/annot/0");
}

TEST(MigrationFindings, MeasureTheHeadsOfASubAnnotationFromWhereItsLeadersBegin) {
  for (float const x : {110.0F, 111.0F}) {
    Text const parent = makeLegacyText("a");
    Text const child = makeLegacyText("b");
    parent->m_position = {100, 50, 0};
    child->m_position = {10, 5, 0};
    child->m_leaders.emplace_back(Wm4::Vector3<float>(x, 55, 0)).m_head = qvAnnotationInterface::ArrowHead;
    addChild(*parent, child.get(), qvAnnotationInterface::Free);
    Findings const found =
        select(migrate(makeViewOf(parent.get())).m_findings, FindingCode::LeaderHeadCollapsed);
    ASSERT_EQ(found.size(), x == 110.0F ? 1U : 0U);
    for (Finding const& finding : found) EXPECT_EQ(finding.m_address, "view/0/annot/0/sub/0");
  }
}

TEST(MigrationFindings, TellOfLeadersOfGrandchildren) {
  Text const parent = makeLegacyText("a");
  Text const child = makeLegacyText("b");
  Text const grandchild = makeLegacyText("c");
  grandchild->m_leaders.emplace_back(Wm4::Vector3<float>(1, 2, 3));
  grandchild->m_measures.emplace_back();
  addChild(*child, grandchild.get(), 1);
  addChild(*parent, child.get(), 1);
  Finding const finding = getOnly(migrate(makeViewOf(parent.get())), FindingCode::LeaderLost);
  EXPECT_EQ(finding.m_address, "view/0/annot/0/sub/0/sub/0");
  EXPECT_EQ(finding.m_severity, Severity::Error);
  EXPECT_TRUE(finding.m_text.ends_with("1 leader and 1 measure leader")) << finding.m_text;
}

TEST(MigrationFindings, TellOfMeasureLeadersOfASubAnnotationThatFail) {
  Text const parent = makeLegacyText("a");
  Text const child = makeLegacyText("b");
  child->m_measures.resize(3);
  child->m_measures[0].m_pointB = {10, 0, 0};
  child->m_measures[1].m_offset = {0, 0, 5};
  addChild(*parent, child.get(), 1);
  Migrated const view = migrate(makeViewOf(parent.get()));
  EXPECT_NE(view.m_view, nullptr);
  Finding const finding = getOnly(view, FindingCode::LeaderLost);
  EXPECT_EQ(finding.m_address, "view/0/annot/0/sub/0");
  EXPECT_EQ(finding.m_text, "measure leader 1 has no direction; it and those behind it, 2 in all, are lost");
  EXPECT_EQ(finding.m_severity, Severity::Error);
  for (Finding const& record : select(view.m_findings, FindingCode::MigrationMessage)) {
    EXPECT_EQ(record.m_severity, Severity::Error) << record.m_text;
  }
}

TEST(MigrationFindings, NameArrowDirectionsThatDoNotExist) {
  Text const text = makeLegacyText("a");
  text->m_measures.resize(2);
  for (auto& measure : text->m_measures) measure.m_pointB = {10, 0, 0};
  text->m_measures[0].m_arrowDir = qvAnnotationInterface::OutIn;
  text->m_measures[1].m_arrowDir = 4;
  Finding const finding = getOnly(migrate(makeViewOf(text.get())), FindingCode::ValueUnknown);
  EXPECT_EQ(finding.m_text, "arrow direction 4 is unknown, expected 0 to 3; the arrows are drawn as for 3");
  EXPECT_EQ(finding.m_severity, Severity::Warning);
  EXPECT_EQ(finding.m_address, "view/0/annot/0");
}

TEST(MigrationFindings, NameFontsThatStandInOnce) {
  Text const text = makeLegacyText("a b\nc");
  Migrated const view = migrate(makeViewOf(text.get()));
  EXPECT_LE(select(view.m_findings, FindingCode::FontMetricCompatible).size(), 1U);
  text->m_defaultTextProperties.m_fontName = "No Such Font At All";
  Finding const finding = getOnly(migrate(makeViewOf(text.get())), FindingCode::FontSubstituted);
  EXPECT_EQ(finding.m_severity, Severity::Warning);
  EXPECT_TRUE(finding.m_text.starts_with("text in font 'No Such Font At All' is drawn with '"))
      << finding.m_text;
  EXPECT_TRUE(finding.m_text.ends_with("), which is not as wide")) << finding.m_text;
}

TEST(MigrationFindings, NameTheCharacterThatNoFontHas) {
  Migrated const view = migrate(makeViewOf(makeLegacyText("a\U000F1234\U000F1234").get()));
  Finding const finding = getOnly(view, FindingCode::GlyphMissing);
  EXPECT_EQ(finding.m_severity, Severity::Error);
  EXPECT_NE(finding.m_text.find("U+F1234"), std::string::npos);
}

TEST(MigrationFindings, TellOfRepairedTexts) {
  Text const text = makeLegacyText("a\x01");
  text->SetName("n\xff");
  text->m_defaultTextProperties.m_fontName = "f\n\x07";
  Findings const found = select(migrate(makeViewOf(text.get())).m_findings, FindingCode::TextRepaired);
  ASSERT_EQ(found.size(), 3U);
  EXPECT_TRUE(found[0].m_text.starts_with("the name holds"));
  EXPECT_TRUE(found[1].m_text.starts_with("the font name holds"));
  EXPECT_TRUE(found[2].m_text.starts_with("the text holds"));
}

qv::qvPointer<qvAnnotationRaster> makeRaster(std::string const& name) {
  qv::qvPointer<qvAnnotationRaster> raster = new qvAnnotationRaster;
  raster->m_rasterName = name;
  return raster;
}

TEST(MigrationFindings, TellOfAnImageThatIsNotAvailable) {
  Migrated const view = migrate(makeViewOf(makeRaster("logo").get()));
  EXPECT_EQ(view.m_view, nullptr);
  Finding const finding = getOnly(view, FindingCode::RasterUnavailable);
  EXPECT_EQ(finding.m_options, std::vector{OptionKey::Rasters});
  EXPECT_EQ(finding.m_address, "view/0/annot/0");
  EXPECT_EQ(finding.m_text,
            "image 'logo' is not available: no folder of images was given; name the folder that holds it");
}

TEST(MigrationSession, HoldsAnImageOnceHoweverOftenItIsShown) {
  MigrationOptions options;
  options.m_rasters = [](std::string const& name) -> Raster {
    return {std::make_shared<Image const>("image of " + name), {}};
  };
  View const view = makeLegacyView();
  for (int i = 0; i < 100; ++i) view->m_annotations.push_back(makeRaster(i % 2 == 0 ? "a" : "b").get());
  Migrated const migrated = migrate(view, options);
  ASSERT_EQ(migrated.m_images.size(), 2U);
  qv::svg::Image item;
  item.m_data = "b";
  EXPECT_EQ(findImage(migrated, item).getBytes(), "image of b");
  item.m_data = "c";
  EXPECT_EQ(findImage(migrated, item).getBytes(), "");
}

TEST(MigrationSession, PassesOnWhatTheSourceOfImagesThrows) {
  MigrationOptions options;
  options.m_rasters = [](std::string const&) -> Raster { throw std::bad_alloc(); };
  EXPECT_THROW(migrate(makeViewOf(makeRaster("a").get()), options), std::bad_alloc);
}

TEST(MigrationFindings, TellOfAnImageOfAnUnknownFormat) {
  qvTest::TemporaryFolder const folder;
  folder.writeFile("logo.png", "<svg/>");
  folder.writeFile("good.png", qvTest::makePng());
  RasterFolder const rasters(folder.getPath());
  MigrationOptions options;
  options.m_rasters = [&rasters](std::string const& name) { return rasters.find(name); };
  View const view = makeLegacyView();
  view->m_annotations = {makeRaster("good").get(), makeRaster("logo").get()};
  Migrated const migrated = migrate(view, options);
  EXPECT_NE(migrated.m_view, nullptr);
  EXPECT_EQ(getOnly(migrated, FindingCode::RasterUnreadable).m_address, "view/0/annot/1");
  EXPECT_EQ(getOnly(migrated, FindingCode::RasterUnreadable).m_severity, Severity::Error);
}

/// The findings about the size of an image that is there.
Findings findSizeProblems(Wm4::Vector2<float> const& size) {
  qvTest::TemporaryFolder const folder;
  folder.writeFile("logo.png", qvTest::makePng());
  RasterFolder const rasters(folder.getPath());
  MigrationOptions options;
  options.m_rasters = [&rasters](std::string const& name) { return rasters.find(name); };
  auto const raster = makeRaster("logo");
  raster->m_size = size;
  Migrated const view = migrate(makeViewOf(raster.get()), options);
  EXPECT_NE(view.m_view, nullptr);
  return select(view.m_findings, FindingCode::RasterSize);
}

TEST(MigrationFindings, TellOfAnImageThatIsNotToBeSeen) {
  for (Wm4::Vector2<float> const size :
       {Wm4::Vector2<float>(0, 0), Wm4::Vector2<float>(0, 5), Wm4::Vector2<float>(5, 0),
        Wm4::Vector2<float>(-1, 0), Wm4::Vector2<float>(1e-10F, 1)}) {
    Findings const found = findSizeProblems(size);
    ASSERT_EQ(found.size(), 1U) << size.X();
    EXPECT_EQ(found[0].m_severity, Severity::Error);
    EXPECT_EQ(found[0].m_address, "view/0/annot/0");
  }
  EXPECT_TRUE(findSizeProblems({1, 1}).empty());
  EXPECT_TRUE(findSizeProblems({0.01F, 100}).empty());
}

TEST(MigrationFindings, TellOfAnImageOfASizeBelowZero) {
  Findings const found = findSizeProblems({-2, 4});
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].m_severity, Severity::Warning);
  EXPECT_EQ(found[0].m_text,
            "the image has a size of -6.35 x 12.7 mm; it is shown as 6.35 x 12.7, and not mirrored");
}

TEST(MigrationFindings, TellOfAPlaneThatIsNotFinite) {
  constexpr float Infinity = std::numeric_limits<float>::infinity();
  constexpr float NaN = std::numeric_limits<float>::quiet_NaN();
  using Vector = Wm4::Vector3<float>;
  for (Vector qvLegacy::qvAnnotationView::*const part :
       {&qvLegacy::qvAnnotationView::m_planeOrigin, &qvLegacy::qvAnnotationView::m_planeNormal,
        &qvLegacy::qvAnnotationView::m_planeXAxis}) {
    for (Vector const& bad : {Vector(Infinity, 0, 0), Vector(0, NaN, 0), Vector(0, 0, -Infinity)}) {
      View const view = makeViewOf(makeLegacyText("a").get());
      (*view).*part = bad;
      Migrated const migrated = migrate(view);
      EXPECT_NE(migrated.m_view, nullptr);
      Finding const finding = getOnly(migrated, FindingCode::NumberNotFinite);
      EXPECT_EQ(finding.m_severity, Severity::Error);
      EXPECT_EQ(finding.m_address, "view/0");
      EXPECT_TRUE(select(migrated.m_findings, FindingCode::PlaneDegenerate).empty());
    }
  }
}

TEST(MigrationFindings, TellOfAPlaneWhoseAxesSpanNone) {
  View const view = makeViewOf(makeLegacyText("a").get());
  for (Wm4::Vector3<float> const& axis : {Wm4::Vector3<float>(0, 0, 0), Wm4::Vector3<float>(0, 0, 7)}) {
    view->m_planeXAxis = axis;
    EXPECT_EQ(getOnly(migrate(view), FindingCode::PlaneDegenerate).m_severity, Severity::Warning);
  }
  view->m_planeXAxis = {1e-3F, 0, 1};
  EXPECT_TRUE(select(migrate(view).m_findings, FindingCode::PlaneDegenerate).empty());
}

TEST(MigrationFindings, TellOfADepthThatIsNotFinite) {
  constexpr float Infinity = std::numeric_limits<float>::infinity();
  Text const text = makeLegacyText("a");
  text->m_position = {1, 2, Infinity};
  text->m_leaders.emplace_back(Wm4::Vector3<float>(9, 9, 0));
  Findings const found = select(migrate(makeViewOf(text.get())).m_findings, FindingCode::NumberNotFinite);
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0].m_text,
            "the depth of its position is lost: it is not finite; the migrated model holds null");
  EXPECT_EQ(found[1].m_text,
            "the depth of 1 leader line is lost: it is not finite; the migrated model holds null");
  EXPECT_EQ(found[1].m_severity, Severity::Error);
}

TEST(MigrationFindings, AreNoneForAPlainView) {
  Text const text = makeLegacyText("plain");
  text->m_defaultTextProperties.m_fontName = "Liberation Sans";
  text->m_leaders.emplace_back(Wm4::Vector3<float>(9, 9, 0)).m_head = qvAnnotationInterface::ArrowHead;
  EXPECT_TRUE(migrate(makeViewOf(text.get())).m_findings.empty());
}

}  // namespace

}  // namespace qvToolkit
