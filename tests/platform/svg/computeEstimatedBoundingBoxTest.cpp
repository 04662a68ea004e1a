#include "qvSvg/computeEstimatedBoundingBox.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <utility>

#include "qvSvg/image.h"
#include "qvSvg/node.h"
#include "qvSvg/pathBuilder.h"
#include "qvSvg/rect.h"
#include "qvSvg/text.h"
#include "wm4/math.h"

namespace qv::svg {
namespace {

using Matrix = Wm4::Matrix3<float>;
using Point = Wm4::Vector2<float>;

constexpr float PI = Wm4::Math<float>::WM4_PI;
constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();

Matrix translation(float x, float y) {
  return {1.0F, 0.0F, x, 0.0F, 1.0F, y, 0.0F, 0.0F, 1.0F};
}

Matrix scaling(float x, float y) {
  return {x, 0.0F, 0.0F, 0.0F, y, 0.0F, 0.0F, 0.0F, 1.0F};
}

BoundingBox computeBox(ItemInterface const& item) {
  BoundingBox box;
  ComputeEstimatedBoundingBox(item, box, nullptr, nullptr);
  return box;
}

std::shared_ptr<Path> makeArc(Point const& radii, float start, float end) {
  PathBuilder builder;
  builder.startContour(true);
  builder.appendEllipse({0.0F, 0.0F}, radii, start, end);
  return builder.createPathItem(true);
}

void expectBox(BoundingBox const& box, float minX, float minY, float maxX, float maxY) {
  ASSERT_TRUE(box.isValid());
  EXPECT_NEAR(box.getMinPoint().X(), minX, 1e-5F);
  EXPECT_NEAR(box.getMinPoint().Y(), minY, 1e-5F);
  EXPECT_NEAR(box.getMaxPoint().X(), maxX, 1e-5F);
  EXPECT_NEAR(box.getMaxPoint().Y(), maxY, 1e-5F);
}

TEST(EstimatedBox, OfARectIsTheRect) {
  BoundingBox const box = computeBox(Rect({-5.0F, -2.0F}, {10.0F, 4.0F}));
  EXPECT_EQ(box.getMinPoint(), Point(-5.0F, -2.0F));
  EXPECT_EQ(box.getMaxPoint(), Point(5.0F, 2.0F));
}

TEST(EstimatedBox, OfARectWithNegativeSizeIsTheSameArea) {
  expectBox(computeBox(Rect({1.0F, 1.0F}, {-2.0F, -3.0F})), -1.0F, -2.0F, 1.0F, 1.0F);
}

TEST(EstimatedBox, OfAnImageIsItsRectangle) {
  Image image;
  image.m_position = {1.0F, 2.0F};
  image.m_size = {3.0F, 4.0F};
  expectBox(computeBox(image), 1.0F, 2.0F, 4.0F, 6.0F);
}

TEST(EstimatedBox, OfAPolygonHoldsAllItsPoints) {
  PathBuilder builder;
  builder.startContour(false);
  builder.appendSegmentListMove({{-6.6F, 0.0F}, {-5.0F, 2.0F}, {5.0F, 2.0F}, {6.6F, 0.0F}});
  expectBox(computeBox(*builder.createPathItem(true)), -6.6F, 0.0F, 6.6F, 2.0F);
}

TEST(EstimatedBox, OfAFullEllipseIsItsBox) {
  expectBox(computeBox(*makeArc({3.0F, 2.0F}, 0.0F, PI + PI)), -3.0F, -2.0F, 3.0F, 2.0F);
  expectBox(computeBox(*makeArc({3.0F, 2.0F}, 1.0F, 1.0F + PI + PI)), -3.0F, -2.0F, 3.0F, 2.0F);
}

TEST(EstimatedBox, OfAnArcEndsWhereTheArcEnds) {
  expectBox(computeBox(*makeArc({1.0F, 1.0F}, 0.0F, PI * 0.5F)), 0.0F, 0.0F, 1.0F, 1.0F);
  expectBox(computeBox(*makeArc({1.0F, 1.0F}, PI * 0.25F, PI * 0.75F)), -std::sqrt(0.5F), std::sqrt(0.5F),
            std::sqrt(0.5F), 1.0F);
  expectBox(computeBox(*makeArc({1.0F, 1.0F}, PI * 0.75F, PI * 1.25F)), -1.0F, -std::sqrt(0.5F),
            -std::sqrt(0.5F), std::sqrt(0.5F));
}

TEST(EstimatedBox, OfAnArcIsTheSameDrawnBackwards) {
  expectBox(computeBox(*makeArc({1.0F, 1.0F}, PI * 0.75F, PI * 0.25F)), -std::sqrt(0.5F), std::sqrt(0.5F),
            std::sqrt(0.5F), 1.0F);
  expectBox(computeBox(*makeArc({1.0F, 1.0F}, 0.0F, -PI)), -1.0F, -1.0F, 1.0F, 0.0F);
}

TEST(EstimatedBox, OfATurnedEllipseIsTight) {
  auto const ellipse = makeArc({2.0F, 1.0F}, 0.0F, PI + PI);
  float const half = std::sqrt(0.5F);
  ellipse->m_transform = Matrix(half, -half, 0.0F, half, half, 0.0F, 0.0F, 0.0F, 1.0F);
  float const extent = std::sqrt(2.5F);
  expectBox(computeBox(*ellipse), -extent, -extent, extent, extent);
}

TEST(EstimatedBox, OfATextIsItsLayoutBox) {
  Text text;
  text.m_box = {{0.0F, -2.0F}, {10.0F, 9.0F}};
  text.m_transform = scaling(1.0F, -1.0F);
  expectBox(computeBox(text), 0.0F, -9.0F, 10.0F, 2.0F);
}

TEST(EstimatedBox, IsInvalidForItemsWithoutExtent) {
  EXPECT_FALSE(computeBox(Node()).isValid());
  EXPECT_FALSE(computeBox(Path()).isValid());
  EXPECT_FALSE(computeBox(Text()).isValid());
  Path contourWithoutSegments;
  contourWithoutSegments.m_contours.emplace_back();
  EXPECT_FALSE(computeBox(contourWithoutSegments).isValid());
}

TEST(EstimatedBox, IgnoresItemsWithoutExtentBesideOthers) {
  Node node;
  node.editChildren() = {std::make_shared<Node>(), std::make_shared<Text>(), nullptr,
                         std::make_shared<Rect>(Point(1.0F, 1.0F), Point(1.0F, 1.0F))};
  expectBox(computeBox(node), 1.0F, 1.0F, 2.0F, 2.0F);
}

TEST(EstimatedBox, ComposesTransformsDownTheTree) {
  auto const rect = std::make_shared<Rect>(Point(0.0F, 0.0F), Point(1.0F, 1.0F));
  rect->m_transform = translation(1.0F, 2.0F);
  auto const inner = std::make_shared<Node>();
  inner->m_transform = scaling(2.0F, 3.0F);
  inner->editChildren().push_back(rect);
  Node root;
  root.m_transform = translation(10.0F, 20.0F);
  root.editChildren().push_back(inner);
  expectBox(computeBox(root), 12.0F, 26.0F, 14.0F, 29.0F);

  BoundingBox box;
  Matrix const outer = scaling(-1.0F, 1.0F);
  ComputeEstimatedBoundingBox(root, box, nullptr, &outer);
  expectBox(box, -14.0F, 26.0F, -12.0F, 29.0F);
}

TEST(EstimatedBox, ExtendsTheBoxThatIsGiven) {
  BoundingBox box({-1.0F, -1.0F}, {0.0F, 0.0F});
  ComputeEstimatedBoundingBox(Rect({2.0F, 2.0F}, {1.0F, 1.0F}), box, nullptr, nullptr);
  expectBox(box, -1.0F, -1.0F, 3.0F, 3.0F);
}

TEST(EstimatedBox, LeavesOutWhatTheFilterRefusesWithAllUnderIt) {
  auto const hidden = std::make_shared<Node>();
  hidden->m_class = "hidden";
  hidden->editChildren().push_back(std::make_shared<Rect>(Point(50.0F, 50.0F), Point(1.0F, 1.0F)));
  Node root;
  root.editChildren() = {hidden, std::make_shared<Rect>(Point(0.0F, 0.0F), Point(1.0F, 1.0F))};
  BoundingBox box;
  ComputeEstimatedBoundingBox(
      root, box, [](ItemInterface const* item) { return item->m_class != "hidden"; }, nullptr);
  expectBox(box, 0.0F, 0.0F, 1.0F, 1.0F);
}

TEST(EstimatedBox, IsInvalidWithACoordinateThatIsNotFinite) {
  Node root;
  root.editChildren() = {std::make_shared<Rect>(Point(NOT_A_NUMBER, 0.0F), Point(1.0F, 1.0F)),
                         std::make_shared<Rect>(Point(0.0F, 0.0F), Point(1.0F, 1.0F))};
  EXPECT_FALSE(computeBox(root).isValid());
  std::swap(root.editChildren()[0], root.editChildren()[1]);
  EXPECT_FALSE(computeBox(root).isValid());
}

TEST(EstimatedBox, IsInvalidWithATransformThatIsNotFinite) {
  Rect rect({0.0F, 0.0F}, {1.0F, 1.0F});
  rect.m_transform = translation(std::numeric_limits<float>::infinity(), 0.0F);
  EXPECT_FALSE(computeBox(rect).isValid());
}

TEST(EstimatedBox, IsInvalidWithAnArcWithoutAngle) {
  EXPECT_FALSE(computeBox(*makeArc({1.0F, 1.0F}, 0.0F, NOT_A_NUMBER)).isValid());
}

TEST(EstimatedBox, OfAVeryDeepTreeNeedsNoDeepStack) {
  auto root = std::make_shared<Node>();
  root->editChildren().push_back(std::make_shared<Rect>(Point(0.0F, 0.0F), Point(1.0F, 1.0F)));
  for (int i = 0; i < 200'000; ++i) {
    auto parent = std::make_shared<Node>();
    parent->editChildren().push_back(std::move(root));
    root = std::move(parent);
  }
  expectBox(computeBox(*root), 0.0F, 0.0F, 1.0F, 1.0F);
}

}  // namespace
}  // namespace qv::svg
