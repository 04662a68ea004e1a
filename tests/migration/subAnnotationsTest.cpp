#include <gtest/gtest.h>

#include <array>

#include "tests/migration/migrationFixture.h"

namespace {

using namespace migrationTest;

class SubAnnotations : public Migration {};

/// "p" of content 10 x 4, so with a frame of 14 x 8, at (100, 50, 7).
qv::qvPointer<Text> makeParent() {
  auto parent = makeText("10x4", "p");
  parent->m_position = {100, 50, 7};
  return parent;
}

TEST_F(SubAnnotations, EachAnchorPlacesTheSubAnnotationBySizesOfBothFrames) {
  // Frames of 14 x 8 and 8 x 6.
  constexpr std::array<Point, 12> offsets{{{-3, 7},
                                           {0, 7},
                                           {3, 7},
                                           {-3, -7},
                                           {0, -7},
                                           {3, -7},
                                           {-11, 1},
                                           {-11, 0},
                                           {-11, -1},
                                           {11, 1},
                                           {11, 0},
                                           {11, -1}}};
  for (std::uint32_t anchor = 1; anchor <= 12; ++anchor) {
    SCOPED_TRACE(anchor);
    Point const& offset = offsets[anchor - 1];
    auto const parent = makeParent();
    auto const child = makeText("4x2", "c");
    child->m_leaders = {leader({0, 0, 0})};
    addSub(*parent, child, anchor);
    Cad const cad = migrateOne(parent);
    ASSERT_NE(cad, nullptr);
    ASSERT_EQ(cad->m_svgRoot->editChildren().size(), 3U);
    expectMatrix(*childAt(*cad->m_svgRoot, 2).m_transform, {1, 0, offset.X(), 0, 1, offset.Y(), 0, 0, 1});
    ASSERT_EQ(cad->m_leaderAnchors.size(), 1U);
    EXPECT_EQ(cad->m_leaderAnchors[0].m_origin, Point3(100 + offset.X(), 50 - offset.Y(), 7));
    EXPECT_EQ(cad->m_leaderAnchors[0].m_offset, offset);
    EXPECT_EQ(cad->m_lineSegments[0].m_to, cad->m_leaderAnchors[0].m_origin);
  }
}

TEST_F(SubAnnotations, AFreeOneGoesToItsPositionTurnedDown) {
  auto const parent = makeParent();
  auto const child = makeText("4x2", "c");
  child->m_position = {3, 4, 9};
  child->m_leaders = {leader({0, 0, 0})};
  addSub(*parent, child, 0);
  Cad const cad = migrateOne(parent);
  ASSERT_NE(cad, nullptr);
  expectMatrix(*childAt(*cad->m_svgRoot, 2).m_transform, {1, 0, 3, 0, 1, -4, 0, 0, 1});
  EXPECT_EQ(cad->m_leaderAnchors.at(0).m_origin, Point3(103, 54, 7));
  EXPECT_EQ(cad->m_leaderAnchors.at(0).m_offset, Point(3, -4));
}

TEST_F(SubAnnotations, AFreeOneAtTheParentsPositionGetsNoTransform) {
  auto const parent = makeParent();
  addSub(*parent, makeText("4x2", "c"), 0);
  Cad const cad = migrateOne(parent);
  ASSERT_NE(cad, nullptr);
  EXPECT_FALSE(childAt(*cad->m_svgRoot, 2).m_transform.has_value());
}

TEST_F(SubAnnotations, FollowTheContentInTheirOrder) {
  auto const parent = makeParent();
  addSub(*parent, makeText("4x2", "c"), 1);
  addSub(*parent, makeText("2x2", "d"), 4);
  Cad const cad = migrateOne(parent);
  ASSERT_NE(cad, nullptr);
  ASSERT_EQ(cad->m_svgRoot->editChildren().size(), 4U);
  EXPECT_EQ(childAs<qv::svg::Rect>(childAs<qv::svg::Node>(*cad->m_svgRoot, 2), 0).m_size, Point(8, 6));
  EXPECT_EQ(childAs<qv::svg::Rect>(childAs<qv::svg::Node>(*cad->m_svgRoot, 3), 0).m_size, Point(6, 6));
}

TEST_F(SubAnnotations, OnlyTheirSvgRootsLiveOnInTheParentsTree) {
  auto const view = makeView({makeParent()});
  addSub(*view->m_annotations[0], makeText("4x2", "c"), 1);
  std::size_t const before = qv::qvObject::GetLiveObjects();
  CadView const result = migrate(view);
  ASSERT_NE(result, nullptr);
  EXPECT_EQ(qv::qvObject::GetLiveObjects(), before + 2);
  EXPECT_EQ(result->m_annotations[0]->m_svgRoot->editChildren()[2].use_count(), 1);
}

TEST_F(SubAnnotations, ASquareParentPlacesThemByItsGrownFrame) {
  auto const parent = makeParent();
  parent->m_style = Annotation::Square;
  addSub(*parent, makeText("4x2", "c"), 2);
  Cad const cad = migrateOne(parent);
  ASSERT_NE(cad, nullptr);
  expectMatrix(*childAt(*cad->m_svgRoot, 2).m_transform, {1, 0, 0, 0, 1, 10, 0, 0, 1});
}

TEST_F(SubAnnotations, ANullOneIsSkippedInSilence) {
  auto const parent = makeParent();
  addSub(*parent, nullptr, 99);
  addSub(*parent, makeText("4x2", "c"), 1);
  Cad const cad = migrateOne(parent);
  ASSERT_NE(cad, nullptr);
  EXPECT_EQ(cad->m_svgRoot->editChildren().size(), 3U);
  EXPECT_EQ(m_log.texts(), Log{});
}

TEST_F(SubAnnotations, AnAnchorThatDoesNotExistFailsTheParentWithoutARecordOfItsOwn) {
  auto const parent = makeParent();
  addSub(*parent, makeText("4x2", "c"), 13);
  EXPECT_EQ(migrateOne(parent), nullptr);
  EXPECT_EQ(m_log.texts(), Log{"Fail to migrate annotation 'p' of view 'v'"});
}

TEST_F(SubAnnotations, AFailureIsLoggedOncePerLevelAndOnceByTheView) {
  auto const root = makeText("10x4", "root");
  auto const middle = makeText("10x4", "middle");
  addSub(*middle, makeText("none", "leaf"));
  addSub(*root, middle);
  EXPECT_EQ(migrateOne(root), nullptr);
  EXPECT_EQ(m_log.texts(), (Log{"Empty frame", "Fail to migrate sub annotation of 'middle'",
                                "Fail to migrate sub annotation of 'root'",
                                "Fail to migrate annotation 'root' of view 'v'"}));
}

TEST_F(SubAnnotations, TheirMetadataIsScreenedToo) {
  auto const parent = makeParent();
  auto const child = makeText("4x2", "c");
  child->m_metadata["k"] = 1;
  addSub(*parent, child);
  EXPECT_EQ(migrateOne(parent), nullptr);
  EXPECT_EQ(m_log.texts(),
            (Log{"Found unexpected metadata k in annotation", "Fail to migrate sub annotation of 'p'",
                 "Fail to migrate annotation 'p' of view 'v'"}));
}

TEST_F(SubAnnotations, AfterOneWithALeaderAnotherFailsTheParent) {
  auto const parent = makeParent();
  auto const first = makeText("4x2", "c");
  first->m_leaders = {leader({0, 0, 0})};
  addSub(*parent, first);
  addSub(*parent, makeText("4x2", "d"));
  EXPECT_EQ(migrateOne(parent), nullptr);
  EXPECT_EQ(m_log.texts(),
            (Log{"Unexpected leader segments or shapes", "Fail to migrate annotation 'p' of view 'v'"}));
}

TEST_F(SubAnnotations, AfterOneWithAMeasureLeaderAnotherFailsTheParent) {
  auto const parent = makeParent();
  auto const first = makeText("4x2", "c");
  first->m_measures = {measureLeader({0, 0, 0}, {10, 0, 0}, {0, 5, 0})};
  addSub(*parent, first);
  addSub(*parent, makeText("4x2", "d"));
  EXPECT_EQ(migrateOne(parent), nullptr);
  EXPECT_EQ(m_log.texts().at(0), "Unexpected leader segments or shapes");
}

TEST_F(SubAnnotations, TheLastOneMayHaveLeadersAndANullOneAfterItIsNotLookedAt) {
  auto const parent = makeParent();
  addSub(*parent, makeText("4x2", "c"));
  auto const last = makeText("4x2", "d");
  last->m_leaders = {leader({0, 0, 0}, 3)};
  addSub(*parent, last);
  addSub(*parent, nullptr);
  Cad const cad = migrateOne(parent);
  ASSERT_NE(cad, nullptr);
  EXPECT_EQ(cad->m_lineSegments.size(), 1U);
  EXPECT_EQ(cad->m_shapes.size(), 1U);
}

TEST_F(SubAnnotations, TheirLeadersComeBeforeTheParents) {
  auto const parent = makeParent();
  parent->m_leaders = {leader({1, 1, 1})};
  auto const child = makeText("4x2", "c");
  child->m_leaders = {leader({2, 2, 2})};
  addSub(*parent, child, 2);
  Cad const cad = migrateOne(parent);
  ASSERT_NE(cad, nullptr);
  ASSERT_EQ(cad->m_lineSegments.size(), 2U);
  EXPECT_EQ(cad->m_lineSegments[0].m_from, Point3(2, 2, 2));
  EXPECT_EQ(cad->m_lineSegments[1].m_from, Point3(1, 1, 1));
}

TEST_F(SubAnnotations, TheirMeasureLeadersGetTheSameOriginAndOffsetAsTheirLeaders) {
  auto const parent = makeParent();
  auto const child = makeText("4x2", "c");
  child->m_leaders = {leader({0, 0, 0})};
  child->m_measures = {measureLeader({0, 0, 0}, {10, 0, 0}, {0, 5, 0})};
  addSub(*parent, child, 7);
  Cad const cad = migrateOne(parent);
  ASSERT_NE(cad, nullptr);
  ASSERT_EQ(cad->m_leaderAnchors.size(), 2U);
  for (auto const& anchor : cad->m_leaderAnchors) {
    EXPECT_EQ(anchor.m_origin, Point3(89, 49, 7));
    EXPECT_EQ(anchor.m_offset, Point(-11, 1));
  }
}

TEST_F(SubAnnotations, ADegenerateMeasureLeaderOfOneIsLoggedAndPassedOver) {
  auto const parent = makeParent();
  auto const child = makeText("4x2", "c");
  child->m_measures = {degenerateMeasureLeader()};
  addSub(*parent, child);
  EXPECT_NE(migrateOne(parent), nullptr);
  EXPECT_EQ(m_log.texts(),
            (Log{"Fail to compute perpendicular line", "Fail to migrate sub annot measure leaders"}));
}

TEST_F(SubAnnotations, LeadersOfGrandchildrenGoWithTheChildsAnnotation) {
  auto const parent = makeParent();
  auto const child = makeText("4x2", "c");
  auto const grandchild = makeText("2x2", "g");
  grandchild->m_leaders = {leader({0, 0, 0}, 3)};
  addSub(*child, grandchild);
  addSub(*parent, child);
  Cad const cad = migrateOne(parent);
  ASSERT_NE(cad, nullptr);
  EXPECT_TRUE(cad->m_lineSegments.empty());
  EXPECT_TRUE(cad->m_shapes.empty());
  EXPECT_TRUE(cad->m_leaderAnchors.empty());
}

TEST_F(SubAnnotations, DoNotWidenTheParentsFrame) {
  auto const parent = makeParent();
  addSub(*parent, makeText("40x20", "c"), 1);
  qvLegacy::qvAnnotationMigration migration(0, nullptr, nullptr, 1);
  Cad cad;
  qv::svg::BoundingBox box;
  ASSERT_TRUE(migration.createAnnotationFrame(parent, cad, box));
  EXPECT_EQ(box.getSize(), Point(14, 8));
  EXPECT_EQ(frameOf(*cad).m_size, Point(14, 8));
}

}  // namespace
