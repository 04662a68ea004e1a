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
using qvTest::select;
using View = qv::qvPointer<qvLegacy::qvAnnotationView>;
using Text = qv::qvPointer<qvAnnotationText>;

Text makeText(std::string const& name) {
  Text text = makeLegacyText("a");
  text->SetName(name);
  return text;
}

void addChild(qvAnnotationInterface& parent, qvAnnotationInterface* child, std::uint32_t anchor = 1) {
  qvAnnotationInterface::SubAnnot node;
  node.m_annot = child;
  node.m_anchor = anchor;
  parent.editSubAnnots().push_back(node);
}

/// Two measure leaders, the second of which has no direction. On a sub-annotation that is tolerated.
void addFailingMeasures(qvAnnotationInterface& annotation) {
  annotation.m_measures.resize(2);
  annotation.m_measures[0].m_pointB = {10, 0, 0};
  annotation.m_measures[1].m_offset = {0, 0, 5};
}

/// A tree that migrates, but leaves records: an unknown head and measure leaders without direction.
Text makeNoisyTree(std::string const& name) {
  Text const parent = makeText(name);
  Text const child = makeText(name);
  parent->m_leaders.emplace_back(Wm4::Vector3<float>(9, 9, 0)).m_head = 200;
  addFailingMeasures(*child);
  addChild(*parent, child.get());
  return parent;
}

/// A view that holds the annotations behind a noisy one of the same name as theirs and an empty entry.
View makeViewOf(std::vector<Text> const& annotations) {
  View view = makeLegacyView();
  view->m_annotations = {makeNoisyTree("n").get(), nullptr};
  for (Text const& each : annotations) view->m_annotations.push_back(each.get());
  return view;
}

/// Why the view is not migrated.
std::string getReason(View const& view, MigrationOptions const& options = {}) {
  qvTest::Migrated const migrated = qvTest::migrate(view, options);
  EXPECT_EQ(migrated.m_view, nullptr);
  Findings const found = select(migrated.m_findings, FindingCode::ViewNotMigrated);
  if (found.size() != 1U) return {};
  EXPECT_EQ(found[0].m_address, "view/0");
  std::string const beginning = "view 'front' is not migrated: ";
  EXPECT_TRUE(found[0].m_text.starts_with(beginning));
  return found[0].m_text.substr(beginning.size());
}

TEST(MigrationRefusal, NamesTheRecordThatFailedTheViewAndNotOneThatWasTolerated) {
  Text const bad = makeText("n");
  bad->m_metadata["k"] = 1;
  EXPECT_EQ(
      getReason(makeViewOf({makeText("n"), bad})),
      "Found unexpected metadata k in annotation, at annotation 'n' (view/0/annot/3); it can be dropped");
}

TEST(MigrationRefusal, LeavesTheRecordsAsTheyAre) {
  Text const bad = makeText("n");
  bad->m_metadata["k"] = 1;
  EXPECT_EQ(qvTest::migrate(makeViewOf({bad})).m_log,
            (std::vector<std::string>{"Fail to compute perpendicular line",
                                      "Fail to migrate sub annot measure leaders", "Unhandled leader head",
                                      "Found unexpected metadata k in annotation",
                                      "Fail to migrate annotation 'n' of view 'front'"}));
}

TEST(MigrationRefusal, NamesTheMetadataOfTheView) {
  View const view = makeViewOf({});
  view->m_metadata["k"] = 1;
  EXPECT_EQ(getReason(view), "Found metadata in annotation view; it can be dropped");
}

TEST(MigrationRefusal, NamesASubAnnotationAtAnyDepthAmongMetadataThatAreDropped) {
  Text const grandparent = makeText("");
  Text const parent = makeText("n");
  Text const bad = makeText("");
  Text const dropped = makeText("n");
  dropped->m_metadata["NOA"] = 1;
  bad->m_metadata["k"] = 1;
  addChild(*parent, dropped.get());
  addChild(*parent, nullptr);
  addChild(*parent, bad.get());
  addChild(*grandparent, parent.get());
  MigrationOptions options;
  options.m_dropped = qvLegacy::qvAnnotationMigration::DropKnownMetadata;
  EXPECT_EQ(getReason(makeViewOf({dropped, grandparent}), options),
            "Found unexpected metadata k in annotation, at annotation without name "
            "(view/0/annot/3/sub/0/sub/2); it can be dropped");
}

TEST(MigrationRefusal, NamesAnUnknownAnchor) {
  for (std::uint32_t const anchor : {13U, 255U}) {
    Text const parent = makeText("p");
    addChild(*parent, makeText("good").get(), 12);
    addChild(*parent, makeText("bad").get(), anchor);
    EXPECT_EQ(getReason(makeViewOf({parent})),
              "anchor " + std::to_string(anchor) +
                  " is unknown, expected 0 to 12, at annotation 'bad' (view/0/annot/2/sub/1)");
  }
}

TEST(MigrationRefusal, NamesAnUnknownFrameShape) {
  Text const text = makeText("t");
  text->m_style = 0xFF;
  EXPECT_EQ(getReason(makeViewOf({makeText("t"), text})),
            "frame shape 15 is unknown, expected 0 to 14, at annotation 't' (view/0/annot/3)");
}

TEST(MigrationRefusal, NamesTheDeepestFailureWhereItsParentHasAnotherOne) {
  Text const parent = makeText("p");
  Text const child = makeText("c");
  Text const grandchild = makeText("g");
  grandchild->m_style = 15;
  addChild(*child, grandchild.get());
  addChild(*parent, child.get(), 13);
  EXPECT_EQ(getReason(makeViewOf({parent})),
            "frame shape 15 is unknown, expected 0 to 14, at annotation 'g' (view/0/annot/2/sub/0/sub/0)");
}

TEST(MigrationRefusal, NamesAKindThatIsNeitherTextNorRaster) {
  Text const text = makeText("t");
  text->m_type = 7;
  EXPECT_EQ(getReason(makeViewOf({text})),
            "its kind is neither text nor raster, at annotation 't' (view/0/annot/2)");
}

TEST(MigrationRefusal, NamesMeasureLeadersWithoutDirection) {
  Text const text = makeText("t");
  addFailingMeasures(*text);
  EXPECT_EQ(getReason(makeViewOf({makeText("t"), text})),
            "Fail to compute perpendicular line: measure leader 1 has no direction, at annotation 't' "
            "(view/0/annot/3)");
}

TEST(MigrationRefusal, NamesTheParentWhoseSubAnnotationsBesidesTheLastHaveLeaders) {
  Text const good = makeText("n");
  addChild(*good, makeText("a").get());
  addChild(*good, makeNoisyTree("b").get());
  Text const failed = makeText("n");
  Text const withoutDirection = makeText("a");
  withoutDirection->m_measures.resize(1);
  withoutDirection->m_measures.front().m_offset = {0, 0, 5};
  addChild(*failed, withoutDirection.get());
  addChild(*failed, makeText("b").get());
  Text const bad = makeText("n");
  addChild(*bad, makeNoisyTree("a").get());
  addChild(*bad, makeText("b").get());
  EXPECT_EQ(getReason(makeViewOf({good, failed, bad})),
            "Unexpected leader segments or shapes: only the last of its sub-annotations may have leaders, at "
            "annotation 'n' (view/0/annot/4)");
}

TEST(MigrationRefusal, NamesTheImageThatIsNotThereAndTheOptionsForTheRest) {
  qvTest::TemporaryFolder const folder;
  folder.writeFile("good.png", qvTest::makePng());
  RasterFolder const rasters(folder.getPath());
  MigrationOptions options;
  options.m_rasters = [&rasters](std::string const& name) { return rasters.find(name); };
  View const view = makeViewOf({});
  for (char const* const name : {"good", "gone"}) {
    qv::qvPointer<qvAnnotationRaster> const raster = new qvAnnotationRaster;
    raster->m_rasterName = name;
    view->m_annotations.push_back(raster.get());
  }
  Text const later = makeText("t");
  later->m_metadata["NOA"] = 1;
  view->m_annotations.push_back(later.get());
  EXPECT_EQ(getReason(view, options),
            "Fail to retrieve raster 'gone', at annotation without name (view/0/annot/3); its metadata need "
            "to be dropped, too");
}

TEST(MigrationRefusal, NamesAnImageWhoseSizeIsNotFinite) {
  qvTest::TemporaryFolder const folder;
  folder.writeFile("good.png", qvTest::makePng());
  RasterFolder const rasters(folder.getPath());
  MigrationOptions options;
  options.m_rasters = [&rasters](std::string const& name) { return rasters.find(name); };
  for (float const bad : {std::numeric_limits<float>::quiet_NaN(), 3e38F}) {
    View const view = makeViewOf({});
    for (float const width : {1.0F, bad}) {
      qv::qvPointer<qvAnnotationRaster> const raster = new qvAnnotationRaster;
      raster->m_rasterName = "good";
      raster->m_size = {width, 1};
      view->m_annotations.push_back(raster.get());
    }
    EXPECT_EQ(
        getReason(view, options),
        "Empty frame: the size of its image is not finite, at annotation without name (view/0/annot/3)");
  }
}

TEST(MigrationRefusal, WeighsTheRecordsOfWhatWasToleratedByThemselves) {
  Text const bad = makeText("n");
  bad->m_style = 15;
  for (Finding const& finding :
       select(qvTest::migrate(makeViewOf({bad})).m_findings, FindingCode::MigrationMessage)) {
    bool const isHead = finding.m_text == "Unhandled leader head";
    EXPECT_EQ(finding.m_severity, isHead ? Severity::Warning : Severity::Error) << finding.m_text;
  }
}

}  // namespace

}  // namespace qvToolkit
