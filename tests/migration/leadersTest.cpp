#include <gtest/gtest.h>

#include <limits>

#include "tests/migration/migrationFixture.h"

namespace {

using namespace migrationTest;

class MigratedLeaders : public Migration {
 protected:
  /// The annotation with the leaders that begin at (0, 0, 7) with the offset (1, 2).
  Cad create(std::vector<Annotation::Leader> const& leaders, float headSize = 2) {
    qvLegacy::qvAnnotationMigration migration(0, nullptr, nullptr, headSize);
    Cad cad(new qv::qvCadAnnotation);
    EXPECT_TRUE(migration.createLeaders(leaders, *cad, {0, 0, 7}, {1, 2}));
    return cad;
  }
  /// The one item of the head of a leader that points along the x axis.
  static qv::svg::Path& headItem(qv::qvCadAnnotation& cad) {
    EXPECT_EQ(cad.m_shapes.at(0).m_node->editChildren().size(), 1U);
    return childAs<qv::svg::Path>(*cad.m_shapes.at(0).m_node, 0);
  }
};

TEST_F(MigratedLeaders, AnEmptyListChangesNothing) {
  Cad const cad = create({});
  EXPECT_TRUE(cad->m_lineSegments.empty());
  EXPECT_TRUE(cad->m_leaderAnchors.empty());
  EXPECT_TRUE(cad->m_shapes.empty());
}

TEST_F(MigratedLeaders, ALeaderWithoutHeadIsASegmentAndAnAnchor) {
  Cad const cad = create({leader({3, 4, 9}, 0)});
  ASSERT_EQ(cad->m_lineSegments.size(), 1U);
  EXPECT_EQ(cad->m_lineSegments[0].m_from, Point3(3, 4, 9));
  EXPECT_EQ(cad->m_lineSegments[0].m_to, Point3(0, 0, 7));
  ASSERT_EQ(cad->m_leaderAnchors.size(), 1U);
  EXPECT_EQ(cad->m_leaderAnchors[0].m_origin, Point3(0, 0, 7));
  EXPECT_EQ(cad->m_leaderAnchors[0].m_offset, Point(1, 2));
  EXPECT_TRUE(cad->m_shapes.empty());
}

TEST_F(MigratedLeaders, AHeadIsMirroredAndStandsAtTheEndPoint) {
  for (std::uint8_t head = 1; head <= 6; ++head) {
    SCOPED_TRACE(int{head});
    Cad const cad = create({leader({3, 4, 9}, head)});
    ASSERT_EQ(cad->m_shapes.size(), 1U);
    EXPECT_EQ(cad->m_shapes[0].m_point, Point3(3, 4, 9));
    EXPECT_EQ(cad->m_shapes[0].m_node->m_transform, Matrix(1, 0, 0, 0, -1, 0, 0, 0, 1));
    EXPECT_FALSE(cad->m_shapes[0].m_node->m_borderColor.has_value());
    EXPECT_FALSE(cad->m_shapes[0].m_node->m_backgroundColor.has_value());
  }
}

TEST_F(MigratedLeaders, ContourHeadsAreFilledWithoutABorder) {
  for (std::uint8_t const head : {std::uint8_t{1}, std::uint8_t{2}, std::uint8_t{3}, std::uint8_t{6}}) {
    SCOPED_TRACE(int{head});
    Cad const cad = create({leader({5, 0, 7}, head)});
    EXPECT_EQ(headItem(*cad).m_borderColor, "none");
    EXPECT_FALSE(headItem(*cad).m_backgroundColor.has_value());
    EXPECT_EQ(headItem(*cad).m_width, 0.0F);
    ASSERT_EQ(headItem(*cad).m_contours.size(), 1U);
    EXPECT_TRUE(headItem(*cad).m_contours[0].m_closed);
  }
}

TEST_F(MigratedLeaders, LineHeadsAreStrokedAndNotFilled) {
  for (std::uint8_t const head : {std::uint8_t{4}, std::uint8_t{5}}) {
    SCOPED_TRACE(int{head});
    Cad const cad = create({leader({5, 0, 7}, head)});
    EXPECT_EQ(headItem(*cad).m_backgroundColor, "none");
    EXPECT_EQ(headItem(*cad).m_width, 1.0F);
    EXPECT_FALSE(headItem(*cad).m_borderColor.has_value());
    ASSERT_EQ(headItem(*cad).m_contours.size(), 2U);
    EXPECT_FALSE(headItem(*cad).m_contours[0].m_closed);
  }
}

TEST_F(MigratedLeaders, PolygonHeadsHaveTheirCorners) {
  expectPoints(pointsOf(headItem(*create({leader({5, 0, 7}, 1)})).m_contours[0]),
               {{-1, -1}, {-1, 1}, {1, 1}, {1, -1}});
  expectPoints(pointsOf(headItem(*create({leader({5, 0, 7}, 3)})).m_contours[0]),
               {{-2, 0.6F}, {0, 0}, {-2, -0.6F}});
  expectPoints(pointsOf(headItem(*create({leader({5, 0, 7}, 6)})).m_contours[0]), {{0, -1}, {-2, 0}, {0, 1}});
}

TEST_F(MigratedLeaders, HeadsFollowTheDirectionFromTheOriginToTheEnd) {
  expectPoints(pointsOf(headItem(*create({leader({3, 4, 9}, 3)})).m_contours[0]),
               {{-1.68F, -1.24F}, {0, 0}, {-0.72F, -1.96F}});
}

TEST_F(MigratedLeaders, ACircleIsAWholeTurnOfHalfTheHeadSize) {
  Cad const cad = create({leader({5, 0, 7}, 2)});
  ASSERT_EQ(headItem(*cad).m_contours.at(0).m_segments.size(), 1U);
  qv::svg::PathSegment const& ellipse = headItem(*cad).m_contours[0].m_segments[0];
  EXPECT_EQ(ellipse.m_kind, qv::svg::PathSegment::Kind::Ellipse);
  EXPECT_EQ(ellipse.m_point, Point(0, 0));
  EXPECT_EQ(ellipse.m_radii, Point(1, 1));
  EXPECT_EQ(ellipse.m_startAngle, 0.0F);
  EXPECT_EQ(ellipse.m_endAngle, Wm4::Math<float>::WM4_PI + Wm4::Math<float>::WM4_PI);
}

TEST_F(MigratedLeaders, APlusHasArmsOfOneWhateverTheHeadSize) {
  for (float const size : {2.0F, 50.0F}) {
    Cad const cad = create({leader({3, 4, 9}, 4)}, size);
    ASSERT_EQ(headItem(*cad).m_contours.size(), 2U);
    expectPoints(pointsOf(headItem(*cad).m_contours[0]), {{-1, 0}, {1, 0}});
    expectPoints(pointsOf(headItem(*cad).m_contours[1]), {{0, -1}, {0, 1}});
  }
}

TEST_F(MigratedLeaders, ACrossHasDiagonalsOfTheHeadSize) {
  Cad const cad = create({leader({3, 4, 9}, 5)});
  ASSERT_EQ(headItem(*cad).m_contours.size(), 2U);
  expectPoints(pointsOf(headItem(*cad).m_contours[0]), {{-0.7071F, -0.7071F}, {0.7071F, 0.7071F}});
  expectPoints(pointsOf(headItem(*cad).m_contours[1]), {{0.7071F, -0.7071F}, {-0.7071F, 0.7071F}});
}

TEST_F(MigratedLeaders, ALeaderToItsOwnOriginHasACollapsedHead) {
  Cad const cad = create({leader({0, 0, 7}, 3)});
  ASSERT_EQ(cad->m_lineSegments.size(), 1U);
  EXPECT_EQ(cad->m_lineSegments[0].m_from, cad->m_lineSegments[0].m_to);
  ASSERT_EQ(cad->m_shapes.size(), 1U);
  expectPoints(pointsOf(headItem(*cad).m_contours.at(0)), {{0, 0}, {0, 0}, {0, 0}});
}

TEST_F(MigratedLeaders, SegmentsAnchorsAndShapesKeepTheOrderOfTheLeaders) {
  Cad const cad = create({leader({1, 0, 0}, 3), leader({2, 0, 0}, 0), leader({3, 0, 0}, 4)});
  ASSERT_EQ(cad->m_lineSegments.size(), 3U);
  EXPECT_EQ(cad->m_leaderAnchors.size(), 3U);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(cad->m_lineSegments[i].m_from, Point3(static_cast<float>(i + 1), 0, 0));
  }
  ASSERT_EQ(cad->m_shapes.size(), 2U);
  EXPECT_EQ(cad->m_shapes[0].m_point, Point3(1, 0, 0));
  EXPECT_EQ(cad->m_shapes[1].m_point, Point3(3, 0, 0));
}

TEST_F(MigratedLeaders, AHeadThatIsUnknownIsLoggedAndTheSegmentKept) {
  Cad const cad = create({leader({3, 4, 9}, 7), leader({3, 4, 9}, 255), leader({3, 4, 9}, 1)});
  EXPECT_EQ(m_log.texts(), (Log{"Unhandled leader head", "Unhandled leader head"}));
  EXPECT_EQ(m_log.records.at(0).entry.m_type, 5);
  EXPECT_EQ(cad->m_lineSegments.size(), 3U);
  EXPECT_EQ(cad->m_leaderAnchors.size(), 3U);
  EXPECT_EQ(cad->m_shapes.size(), 1U);
}

TEST_F(MigratedLeaders, AnUnknownHeadDoesNotFailTheView) {
  auto const text = makeText("10x4");
  text->m_leaders = {leader({3, 4, 9}, 7)};
  EXPECT_NE(migrateOne(text), nullptr);
  EXPECT_EQ(m_log.texts(), Log{"Unhandled leader head"});
}

TEST_F(MigratedLeaders, AreAppendedToWhatTheAnnotationHas) {
  qvLegacy::qvAnnotationMigration migration(0, nullptr, nullptr, 1);
  Cad const cad = create({leader({1, 0, 0}, 3)});
  EXPECT_TRUE(migration.createLeaders({leader({2, 0, 0}, 3)}, *cad, {0, 0, 0}, {0, 0}));
  EXPECT_EQ(cad->m_lineSegments.size(), 2U);
  EXPECT_EQ(cad->m_shapes.size(), 2U);
}

TEST_F(MigratedLeaders, NumbersThatAreNonePassThrough) {
  float const nan = std::numeric_limits<float>::quiet_NaN();
  Cad const cad = create({leader({nan, 0, 0}, 3)});
  EXPECT_EQ(cad->m_lineSegments.size(), 1U);
  ASSERT_EQ(cad->m_shapes.size(), 1U);
  expectPoints(pointsOf(headItem(*cad).m_contours.at(0)), {{0, 0}, {0, 0}, {0, 0}});
}

}  // namespace
