#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "annotationLegacy/platform.h"
#include "ports/svg.h"

namespace {

using Point = Wm4::Vector2<float>;
namespace ports = qvLegacy::ports;
using qv::svg::BoundingBox;

BoundingBox boxOf(qv::svg::ItemInterface const& item) {
  BoundingBox box;
  ComputeEstimatedBoundingBox(item, box, nullptr, nullptr);
  return box;
}

TEST(SvgContract, ABoxBeginsInvalidAndGrowsByMarginsOnBothSides) {
  EXPECT_FALSE(BoundingBox().isValid());
  BoundingBox box = boxOf(qv::svg::Rect(Point(1.0F, 2.0F), Point(4.0F, 6.0F)));
  ASSERT_TRUE(box.isValid());
  box.addMargin(Point(1.0F, 2.0F));
  EXPECT_EQ(box.getMinPoint(), Point(0.0F, 0.0F));
  EXPECT_EQ(box.getMaxPoint(), Point(6.0F, 10.0F));
  box.translate(Point(10.0F, 20.0F));
  EXPECT_EQ(box.getCenterPoint(), Point(13.0F, 25.0F));
  EXPECT_EQ(box.getSize(), Point(6.0F, 10.0F));
  EXPECT_EQ(box.getWidth(), 6.0F);
  EXPECT_EQ(box.getHeight(), 10.0F);
}

TEST(SvgContract, ANodesBoxIsThatOfItsItemsUnderTheirTransforms) {
  qv::svg::Node node;
  EXPECT_FALSE(boxOf(node).isValid());
  auto const rect = std::make_shared<qv::svg::Rect>(Point(0.0F, 0.0F), Point(2.0F, 1.0F));
  ports::setTransform(*rect, Wm4::Matrix3<float>(1.0F, 0.0F, 5.0F, 0.0F, -1.0F, 7.0F, 0.0F, 0.0F, 1.0F));
  ports::appendChild(node, rect);
  EXPECT_EQ(boxOf(node).getMinPoint(), Point(5.0F, 6.0F));
  EXPECT_EQ(boxOf(node).getMaxPoint(), Point(7.0F, 7.0F));
}

TEST(SvgContract, ItemsBeginWithoutTransformAndImagesAtTheOrigin) {
  EXPECT_FALSE(ports::getTransform(qv::svg::Node()).has_value());
  EXPECT_EQ(ports::getPosition(qv::svg::Image()), Point::ZERO);
}

TEST(SvgContract, AnImageCountsWithItsSize) {
  qv::svg::Image image;
  ports::setSize(image, Point(3.0F, 4.0F));
  ports::setData(image, "bytes");
  EXPECT_EQ(boxOf(image).getSize(), Point(3.0F, 4.0F));
}

TEST(SvgContract, ChildrenAreAppendedInFrontAndInsertedAtTheBack) {
  qv::svg::Node node;
  auto const front = std::make_shared<qv::svg::Node>();
  auto const back = std::make_shared<qv::svg::Node>();
  ports::appendChild(node, front);
  ports::insertChildAtBack(node, back);
  ASSERT_EQ(node.editChildren().size(), 2U);
  EXPECT_EQ(node.editChildren().front(), back);
  EXPECT_EQ(node.editChildren().back(), front);
}

TEST(SvgContract, ABuilderWithoutContoursMakesNoItem) {
  EXPECT_EQ(qv::svg::PathBuilder().createPathItem(true), nullptr);
}

TEST(SvgContract, ABuilderCollectsContoursAndHandsThemOver) {
  qv::svg::PathBuilder builder;
  builder.startContour(false);
  builder.appendSegmentListMove({Point(0.0F, 0.0F), Point(4.0F, 0.0F), Point(4.0F, 3.0F)});
  builder.endContour();
  builder.appendLine(Point(-1.0F, 0.0F), Point(0.0F, 5.0F));
  auto const item = builder.createPathItem(true);
  ASSERT_NE(item, nullptr);
  EXPECT_EQ(boxOf(*item).getMinPoint(), Point(-1.0F, 0.0F));
  EXPECT_EQ(boxOf(*item).getMaxPoint(), Point(4.0F, 5.0F));
  EXPECT_EQ(builder.createPathItem(true), nullptr);
}

TEST(SvgContract, AnEllipseIsGivenByCentreRadiiAndAnglesInRadians) {
  qv::svg::PathBuilder builder;
  builder.startContour(false);
  builder.appendEllipse(Point(1.0F, 1.0F), Point(2.0F, 3.0F), 0.0F, 2.0F * Wm4::Math<float>::WM4_PI);
  builder.endContour();
  auto const item = builder.createPathItem(true);
  ASSERT_NE(item, nullptr);
  BoundingBox const box = boxOf(*item);
  EXPECT_NEAR(box.getWidth(), 4.0F, 1e-3F);
  EXPECT_NEAR(box.getHeight(), 6.0F, 1e-3F);
}

TEST(SvgContract, PresentationIsStoredWithTheItem) {
  qv::svg::Rect rect(Point::ZERO, Point::ONE);
  ports::setBorderColor(rect, "none");
  ports::setBackgroundColor(rect, "#00FF00");
  ports::setClass(rect, "frame");
  ports::setWidth(rect, 1.0F);
  EXPECT_EQ(boxOf(rect).getSize(), Point::ONE) << "widths of strokes are not counted";
}

}  // namespace
