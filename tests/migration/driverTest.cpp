#include <gtest/gtest.h>

#include "tests/migration/migrationFixture.h"

namespace {

using namespace migrationTest;
using qvLegacy::qvAnnotationMigration;

class MigrationDriver : public Migration {};

TEST_F(MigrationDriver, KeepsTheFourArgumentsOfItsConstructor) {
  qvAnnotationMigration const migration(6, &RasterSource::answer, &m_source, 2.5F);
  EXPECT_EQ(migration.m_options, 6);
  EXPECT_EQ(migration.m_rasterCallback, &RasterSource::answer);
  EXPECT_EQ(migration.m_userData, &m_source);
  EXPECT_EQ(migration.m_headSize, 2.5F);
  EXPECT_NE(migration.m_textConverter, nullptr);
}

TEST_F(MigrationDriver, AViewWithoutAnnotationsGivesAnEmptyViewWithNameAndPlane) {
  qv::qvPointer<View> const view = makeView();
  view->m_planeOrigin = {1, 2, 3};
  view->m_planeNormal = {4, 5, 6};
  view->m_planeXAxis = {7, 8, 9};
  CadView const result = migrate(view);
  ASSERT_NE(result, nullptr);
  EXPECT_EQ(result->GetName(), "v");
  EXPECT_EQ(result->m_planeOrigin, Point3(1, 2, 3));
  EXPECT_EQ(result->m_planeNormal, Point3(4, 5, 6));
  EXPECT_EQ(result->m_planeXAxis, Point3(7, 8, 9));
  EXPECT_TRUE(result->m_annotations.empty());
  EXPECT_EQ(result->GetReferences(), 1);
  EXPECT_EQ(m_log.texts(), Log{});
}

TEST_F(MigrationDriver, ANullViewIsRefusedInSilence) {
  EXPECT_EQ(migrate(nullptr), nullptr);
  EXPECT_EQ(m_log.texts(), Log{});
}

TEST_F(MigrationDriver, AResultThatIsSetAlreadyIsRefusedInSilenceAndLeftAsItIs) {
  qvAnnotationMigration migration(0, nullptr, nullptr, 1);
  CadView result(new qv::qvCadAnnotationView);
  qv::qvCadAnnotationView* const before = result.get();
  EXPECT_FALSE(migration.migrateAnnotationView(makeView(), result));
  EXPECT_EQ(result.get(), before);
  EXPECT_EQ(before->GetReferences(), 1);
  EXPECT_EQ(m_log.texts(), Log{});
}

TEST_F(MigrationDriver, AnnotationsKeepTheirOrderAndNullEntriesAreSkippedInSilence) {
  CadView const result = migrate(makeView({makeText("1x1", "first"), nullptr, makeText("1x1", "second")}));
  ASSERT_NE(result, nullptr);
  ASSERT_EQ(result->m_annotations.size(), 2U);
  EXPECT_EQ(result->m_annotations[0]->GetName(), "first");
  EXPECT_EQ(result->m_annotations[1]->GetName(), "second");
  EXPECT_EQ(result->m_annotations[0]->GetReferences(), 1);
  EXPECT_EQ(m_log.texts(), Log{});
}

TEST_F(MigrationDriver, ViewMetadataFailsTheViewUnlessItMayBeDropped) {
  qv::qvPointer<View> const view = makeView();
  view->m_metadata["k"] = 1;
  for (int const options : {0, 2, 4, 6}) EXPECT_EQ(migrate(view, options), nullptr) << options;
  EXPECT_EQ(m_log.texts(), Log(4, "Found metadata in annotation view"));
  for (int const options : {1, 7}) EXPECT_NE(migrate(view, options), nullptr) << options;
}

TEST_F(MigrationDriver, DroppingViewMetadataIsNotDroppingThatOfAnnotations) {
  auto const text = makeText("1x1");
  text->m_metadata["k"] = 1;
  EXPECT_EQ(migrateOne(text, 1), nullptr);
}

TEST_F(MigrationDriver, RecordsAreErrorsWithoutCategoryWithTheFlagSet) {
  qv::qvPointer<View> const view = makeView();
  view->m_metadata["k"] = 1;
  EXPECT_EQ(migrate(view), nullptr);
  ASSERT_EQ(m_log.records.size(), 1U);
  EXPECT_EQ(m_log.records[0].entry.m_type, 5);
  EXPECT_EQ(m_log.records[0].entry.m_category, "");
  EXPECT_TRUE(m_log.records[0].flush);
}

TEST_F(MigrationDriver, TheFirstAnnotationThatFailsFailsTheViewAndEverythingIsReleased) {
  m_source.rasters["good"] = "data";
  auto const view =
      makeView({makeRaster("good", 1, 1, "a"), makeRaster("n", 1, 1, "b"), makeRaster("good", 1, 1, "c")});
  std::size_t const before = qv::qvObject::GetLiveObjects();
  EXPECT_EQ(migrate(view), nullptr);
  EXPECT_EQ(qv::qvObject::GetLiveObjects(), before);
  EXPECT_EQ(m_source.asked, (std::vector<std::string>{"good", "n"}));
  EXPECT_EQ(m_log.texts(),
            (Log{"Fail to retrieve raster 'n'", "Fail to migrate annotation 'b' of view 'v'"}));
}

TEST_F(MigrationDriver, OneObjectMigratesManyViewsAlsoAfterAFailure) {
  qvAnnotationMigration migration(0, nullptr, nullptr, 1);
  auto const good = makeView({makeText("1x1")});
  auto const bad = makeView({makeText("none")});
  CadView first;
  CadView second;
  CadView third;
  EXPECT_TRUE(migration.migrateAnnotationView(good, first));
  EXPECT_FALSE(migration.migrateAnnotationView(bad, second));
  EXPECT_TRUE(migration.migrateAnnotationView(good, third));
  EXPECT_NE(first, third);
  EXPECT_EQ(second, nullptr);
}

TEST_F(MigrationDriver, ADegenerateMeasureLeaderFailsTheView) {
  auto const text = makeText("1x1");
  text->m_measures = {degenerateMeasureLeader()};
  EXPECT_EQ(migrateOne(text), nullptr);
  EXPECT_EQ(m_log.texts(), (Log{"Fail to compute perpendicular line",
                                "Fail to migrate measure leaders of annotation 'a' of view 'v'"}));
}

TEST_F(MigrationDriver, LeadersOfAnAnnotationBeginAtItsPositionWithoutOffset) {
  auto const text = makeText("10x4");
  text->m_position = {5, 5, 3};
  text->m_leaders = {leader({1, 2, 3})};
  text->m_measures = {measureLeader({0, 0, 0}, {10, 0, 0}, {0, 5, 0})};
  Cad const cad = migrateOne(text);
  ASSERT_NE(cad, nullptr);
  ASSERT_EQ(cad->m_lineSegments.size(), 9U);
  EXPECT_EQ(cad->m_lineSegments[0].m_from, Point3(1, 2, 3));
  EXPECT_EQ(cad->m_lineSegments[0].m_to, Point3(5, 5, 3));
  EXPECT_EQ(cad->m_lineSegments[1].m_from, Point3(5, 5, 3));
  ASSERT_EQ(cad->m_leaderAnchors.size(), 2U);
  for (auto const& anchor : cad->m_leaderAnchors) {
    EXPECT_EQ(anchor.m_origin, Point3(5, 5, 3));
    EXPECT_EQ(anchor.m_offset, Point(0, 0));
  }
}

TEST_F(MigrationDriver, TheSourceIsLeftAsItWas) {
  auto const text = makeText("10x4");
  text->m_leaders = {leader({1, 2, 3}, 3)};
  auto const view = makeView({text});
  EXPECT_NE(migrate(view), nullptr);
  EXPECT_EQ(view->m_annotations.size(), 1U);
  EXPECT_EQ(text->GetReferences(), 2);
  EXPECT_EQ(view->GetReferences(), 1);
}

}  // namespace
