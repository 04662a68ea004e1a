#include <gtest/gtest.h>

#include "tests/migration/migrationFixture.h"

namespace {

using namespace migrationTest;

class MigratedMeasureLeaders : public Migration {
 protected:
  bool create(std::vector<Annotation::MeasureLeader> const& measures, float headSize = 1) {
    qvLegacy::qvAnnotationMigration migration(0, nullptr, nullptr, headSize);
    return migration.createMeasureLeaders(measures, *m_cad, {5, 5, 0}, {1, 2});
  }

  void SetUp() override {
    Migration::SetUp();
    m_cad = Cad(new qv::qvCadAnnotation);
  }
  void TearDown() override {
    m_cad = Cad();
    Migration::TearDown();
  }

  Cad m_cad;
};

TEST_F(MigratedMeasureLeaders, AnEmptyListChangesNothing) {
  EXPECT_TRUE(create({}));
  EXPECT_TRUE(m_cad->m_lineSegments.empty());
  EXPECT_TRUE(m_cad->m_leaderAnchors.empty());
}

TEST_F(MigratedMeasureLeaders, EachHasDimensionLineArrowsAndExtensionLinesInThisOrder) {
  ASSERT_TRUE(create({measureLeader({0, 0, 0}, {10, 0, 0}, {0, 5, 0})}));
  auto const& segments = m_cad->m_lineSegments;
  ASSERT_EQ(segments.size(), 8U);
  EXPECT_EQ(segments[0].m_from, Point3(5, 5, 0));
  EXPECT_EQ(segments[0].m_to, Point3(10, 5, 0));
  EXPECT_EQ(segments[1].m_to, Point3(0, 5, 0));
  expectPoint(segments[2].m_from, {-1, 5.2679F, 0});
  expectPoint(segments[3].m_from, {-1, 4.7321F, 0});
  EXPECT_EQ(segments[3].m_to, Point3(0, 5, 0));
  expectPoint(segments[4].m_from, {11, 5.2679F, 0});
  expectPoint(segments[5].m_from, {11, 4.7321F, 0});
  EXPECT_EQ(segments[5].m_to, Point3(10, 5, 0));
  EXPECT_EQ(segments[6].m_from, Point3(0, 0, 0));
  EXPECT_EQ(segments[6].m_to, Point3(0, 5, 0));
  EXPECT_EQ(segments[7].m_from, Point3(10, 0, 0));
  EXPECT_EQ(segments[7].m_to, Point3(10, 5, 0));
}

TEST_F(MigratedMeasureLeaders, EachHasOneAnchorAndNoShape) {
  ASSERT_TRUE(create(
      {measureLeader({0, 0, 0}, {10, 0, 0}, {0, 5, 0}), measureLeader({0, 0, 0}, {10, 0, 0}, {0, -5, 0})}));
  ASSERT_EQ(m_cad->m_leaderAnchors.size(), 2U);
  EXPECT_EQ(m_cad->m_leaderAnchors[1].m_origin, Point3(5, 5, 0));
  EXPECT_EQ(m_cad->m_leaderAnchors[1].m_offset, Point(1, 2));
  EXPECT_TRUE(m_cad->m_shapes.empty());
}

TEST_F(MigratedMeasureLeaders, BarbsHaveTheHeadSize) {
  ASSERT_TRUE(create({measureLeader({0, 0, 0}, {10, 0, 0}, {0, 5, 0})}, 3));
  expectPoint(m_cad->m_lineSegments.at(2).m_from, {-3, 5.8037F, 0});
}

TEST_F(MigratedMeasureLeaders, WithoutAnArrowDirectionHaveArrowsAllTheSame) {
  ASSERT_TRUE(create({measureLeader({0, 0, 0}, {10, 0, 0}, {0, 5, 0}, 0)}));
  ASSERT_EQ(m_cad->m_lineSegments.size(), 8U);
  EXPECT_EQ(m_cad->m_lineSegments[2].m_from.X(), 1.0F);
  EXPECT_EQ(m_cad->m_lineSegments[4].m_from.X(), 9.0F);
}

TEST_F(MigratedMeasureLeaders, ADegenerateOneEndsTheListAndWhatCameBeforeStays) {
  EXPECT_FALSE(create({measureLeader({0, 0, 0}, {10, 0, 0}, {0, 5, 0}), degenerateMeasureLeader(),
                       measureLeader({0, 0, 0}, {10, 0, 0}, {0, 5, 0})}));
  EXPECT_EQ(m_log.texts(), Log{"Fail to compute perpendicular line"});
  EXPECT_EQ(m_log.records.at(0).entry.m_type, 5);
  EXPECT_EQ(m_cad->m_lineSegments.size(), 8U);
  EXPECT_EQ(m_cad->m_leaderAnchors.size(), 1U);
}

}  // namespace
