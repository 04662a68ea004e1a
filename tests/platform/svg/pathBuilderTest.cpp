#include "qvSvg/pathBuilder.h"

#include <gtest/gtest.h>

#include "wm4/math.h"

namespace qv::svg {
namespace {

using Point = Wm4::Vector2<float>;

constexpr float PI = Wm4::Math<float>::WM4_PI;

TEST(PathBuilder, YieldsNothingWhenNothingWasAppended) {
  PathBuilder builder;
  EXPECT_EQ(builder.createPathItem(true), nullptr);
  EXPECT_EQ(builder.createPathItem(false), nullptr);
}

TEST(PathBuilder, DropsContoursWithoutSegments) {
  PathBuilder builder;
  builder.startContour(false);
  builder.endContour();
  builder.startContour(false);
  builder.appendSegmentListMove({});
  builder.endContour();
  builder.startContour(true);
  builder.appendSegmentListMove({{1.0F, 2.0F}});
  builder.endContour();
  builder.endContour();
  EXPECT_EQ(builder.createPathItem(true), nullptr);
}

TEST(PathBuilder, MakesAClosedPolygonOfAPointList) {
  PathBuilder builder;
  builder.startContour(false);
  builder.appendSegmentListMove({{0.0F, 0.0F}, {4.0F, 0.0F}, {4.0F, 3.0F}});
  builder.endContour();
  auto const path = builder.createPathItem(true);
  ASSERT_NE(path, nullptr);
  ASSERT_EQ(path->m_contours.size(), 1U);
  PathContour const& contour = path->m_contours.front();
  EXPECT_TRUE(contour.m_closed);
  EXPECT_EQ(contour.m_start, Point(0.0F, 0.0F));
  ASSERT_EQ(contour.m_segments.size(), 2U);
  EXPECT_EQ(contour.m_segments[0].m_kind, PathSegment::Kind::Line);
  EXPECT_EQ(contour.m_segments[0].m_point, Point(4.0F, 0.0F));
  EXPECT_EQ(contour.m_segments[1].m_point, Point(4.0F, 3.0F));
}

TEST(PathBuilder, LeavesAnOpenContourOpen) {
  PathBuilder builder;
  builder.startContour(true);
  builder.appendSegmentListMove({{0.0F, 0.0F}, {1.0F, 1.0F}});
  builder.endContour();
  EXPECT_FALSE(builder.createPathItem(true)->m_contours.front().m_closed);
}

TEST(PathBuilder, JoinsPointListsOfOneContour) {
  PathBuilder builder;
  builder.startContour(true);
  builder.appendSegmentListMove({{0.0F, 0.0F}});
  builder.appendSegmentListMove({{1.0F, 0.0F}, {2.0F, 0.0F}});
  builder.endContour();
  auto const path = builder.createPathItem(true);
  ASSERT_EQ(path->m_contours.size(), 1U);
  EXPECT_EQ(path->m_contours.front().m_start, Point(0.0F, 0.0F));
  EXPECT_EQ(path->m_contours.front().m_segments.size(), 2U);
}

TEST(PathBuilder, StartsAContourAtTheFirstPointOfItsEllipse) {
  PathBuilder builder;
  builder.startContour(false);
  builder.appendEllipse({1.0F, 2.0F}, {3.0F, 4.0F}, 0.0F, PI + PI);
  builder.endContour();
  auto const path = builder.createPathItem(true);
  ASSERT_NE(path, nullptr);
  PathContour const& contour = path->m_contours.front();
  EXPECT_TRUE(contour.m_closed);
  EXPECT_EQ(contour.m_start, Point(4.0F, 2.0F));
  ASSERT_EQ(contour.m_segments.size(), 1U);
  EXPECT_EQ(contour.m_segments[0].m_kind, PathSegment::Kind::Ellipse);
  EXPECT_EQ(contour.m_segments[0].m_point, Point(1.0F, 2.0F));
  EXPECT_EQ(contour.m_segments[0].m_radii, Point(3.0F, 4.0F));
  EXPECT_EQ(contour.m_segments[0].m_startAngle, 0.0F);
  EXPECT_EQ(contour.m_segments[0].m_endAngle, PI + PI);
}

TEST(PathBuilder, KeepsTheStartOfAContourThatGoesOnWithAnEllipse) {
  PathBuilder builder;
  builder.startContour(true);
  builder.appendSegmentListMove({{9.0F, 9.0F}});
  builder.appendEllipse({0.0F, 0.0F}, {1.0F, 1.0F}, 0.0F, 1.0F);
  builder.endContour();
  EXPECT_EQ(builder.createPathItem(true)->m_contours.front().m_start, Point(9.0F, 9.0F));
}

TEST(PathBuilder, AppendsEachLineAsAnOpenContourOfItsOwn) {
  PathBuilder builder;
  builder.appendLine({-1.0F, 0.0F}, {1.0F, 0.0F});
  builder.appendLine({0.0F, -1.0F}, {0.0F, 1.0F});
  auto const path = builder.createPathItem(true);
  ASSERT_NE(path, nullptr);
  ASSERT_EQ(path->m_contours.size(), 2U);
  for (PathContour const& contour : path->m_contours) {
    EXPECT_FALSE(contour.m_closed);
    EXPECT_EQ(contour.m_segments.size(), 1U);
  }
  EXPECT_EQ(path->m_contours[1].m_start, Point(0.0F, -1.0F));
  EXPECT_EQ(path->m_contours[1].m_segments[0].m_point, Point(0.0F, 1.0F));
}

TEST(PathBuilder, LineDoesNotDisturbTheContourAroundIt) {
  PathBuilder builder;
  builder.startContour(false);
  builder.appendSegmentListMove({{0.0F, 0.0F}, {1.0F, 0.0F}});
  builder.appendLine({5.0F, 5.0F}, {6.0F, 6.0F});
  builder.appendSegmentListMove({{1.0F, 1.0F}});
  builder.endContour();
  auto const path = builder.createPathItem(true);
  ASSERT_EQ(path->m_contours.size(), 2U);
  EXPECT_EQ(path->m_contours[0].m_start, Point(5.0F, 5.0F));
  EXPECT_EQ(path->m_contours[1].m_segments.size(), 2U);
  EXPECT_TRUE(path->m_contours[1].m_closed);
}

TEST(PathBuilder, StartingAContourEndsTheOneBefore) {
  PathBuilder builder;
  builder.startContour(false);
  builder.appendSegmentListMove({{0.0F, 0.0F}, {1.0F, 0.0F}});
  builder.startContour(true);
  builder.appendSegmentListMove({{2.0F, 0.0F}, {3.0F, 0.0F}});
  auto const path = builder.createPathItem(true);
  ASSERT_EQ(path->m_contours.size(), 2U);
  EXPECT_TRUE(path->m_contours[0].m_closed);
  EXPECT_FALSE(path->m_contours[1].m_closed);
  EXPECT_EQ(path->m_contours[1].m_start, Point(2.0F, 0.0F));
}

TEST(PathBuilder, IsEmptyAfterItHandedItsContoursOver) {
  PathBuilder builder;
  builder.appendLine({0.0F, 0.0F}, {1.0F, 1.0F});
  EXPECT_NE(builder.createPathItem(true), nullptr);
  EXPECT_EQ(builder.createPathItem(true), nullptr);
}

TEST(PathBuilder, KeepsItsContoursWhenItDoesNotHandThemOver) {
  PathBuilder builder;
  builder.appendLine({0.0F, 0.0F}, {1.0F, 1.0F});
  auto const first = builder.createPathItem(false);
  builder.appendLine({2.0F, 0.0F}, {3.0F, 1.0F});
  auto const second = builder.createPathItem(true);
  EXPECT_EQ(first->m_contours.size(), 1U);
  EXPECT_EQ(second->m_contours.size(), 2U);
}

}  // namespace
}  // namespace qv::svg
