#include <gtest/gtest.h>

#include <cstring>
#include <memory>

#include "qvAnnotation/qvCadAnnotation.h"
#include "qvAnnotation/qvCadAnnotationView.h"
#include "qvSystem/qvRtti.h"

namespace qv {
namespace {

using Vector = Wm4::Vector3<float>;

TEST(CadAnnotation, StartsEmptyBlackAndUnscaled) {
  qvPointer<qvCadAnnotation> const annotation(new qvCadAnnotation);
  EXPECT_EQ(annotation->m_svgRoot, nullptr);
  EXPECT_EQ(annotation->m_color, (Wm4::Vector3<unsigned char>(0, 0, 0)));
  EXPECT_EQ(annotation->m_position, Vector::ZERO);
  EXPECT_EQ(annotation->m_rotationAngle, 0.0F);
  EXPECT_EQ(annotation->m_scale, 1.0F);
  EXPECT_EQ(annotation->m_flags, 0);
  EXPECT_TRUE(annotation->m_lineSegments.empty());
  EXPECT_TRUE(annotation->m_shapes.empty());
  EXPECT_TRUE(annotation->m_leaderAnchors.empty());
}

TEST(CadAnnotation, KeepsItsName) {
  qvPointer<qvCadAnnotation> const annotation(new qvCadAnnotation);
  EXPECT_EQ(annotation->GetName(), "");
  annotation->SetName("note 1");
  EXPECT_EQ(annotation->GetName(), "note 1");
}

TEST(CadAnnotation, IsAnObjectWithATypeOfItsOwn) {
  qvPointer<qvCadAnnotation> const annotation(new qvCadAnnotation);
  EXPECT_TRUE(annotation->GetType().IsExactly(qvCadAnnotation::TYPE));
  EXPECT_TRUE(annotation->GetType().IsDerived(qvObject::TYPE));
  EXPECT_STREQ(qvCadAnnotation::TYPE.GetName(), "qvCore.qvCadAnnotation");
}

TEST(CadAnnotation, HoldsLeaderGeometryByValue) {
  qvCadAnnotation::LineSegment const segment({1.0F, 2.0F, 3.0F}, {4.0F, 5.0F, 6.0F});
  EXPECT_EQ(segment.m_from, Vector(1.0F, 2.0F, 3.0F));
  EXPECT_EQ(segment.m_to, Vector(4.0F, 5.0F, 6.0F));
  auto const node = std::make_shared<svg::Node>();
  qvCadAnnotation::Shape const shape(node, {7.0F, 8.0F, 9.0F});
  EXPECT_EQ(shape.m_node, node);
  EXPECT_EQ(shape.m_point, Vector(7.0F, 8.0F, 9.0F));
  qvCadAnnotation::SvgLeaderAnchors const anchors({1.0F, 0.0F, 0.0F}, {2.0F, 3.0F});
  EXPECT_EQ(anchors.m_origin, Vector(1.0F, 0.0F, 0.0F));
  EXPECT_EQ(anchors.m_offset, (Wm4::Vector2<float>(2.0F, 3.0F)));
}

TEST(CadAnnotationView, StartsOnThePlaneOfTheModelAxes) {
  qvPointer<qvCadAnnotationView> const view(new qvCadAnnotationView);
  EXPECT_EQ(view->m_planeOrigin, Vector::ZERO);
  EXPECT_EQ(view->m_planeNormal, Vector::UNIT_Z);
  EXPECT_EQ(view->m_planeXAxis, Vector::UNIT_X);
  EXPECT_TRUE(view->m_annotations.empty());
  view->SetName("front");
  EXPECT_EQ(view->GetName(), "front");
  EXPECT_TRUE(view->GetType().IsExactly(qvCadAnnotationView::TYPE));
  EXPECT_TRUE(view->GetType().IsDerived(qvObject::TYPE));
}

TEST(CadAnnotationView, HoldsAReferenceOnEachAnnotation) {
  qvPointer<qvCadAnnotation> const annotation(new qvCadAnnotation);
  {
    qvPointer<qvCadAnnotationView> const view(new qvCadAnnotationView);
    view->m_annotations.push_back(annotation);
    EXPECT_EQ(annotation->GetReferences(), 2);
  }
  EXPECT_EQ(annotation->GetReferences(), 1);
}

}  // namespace
}  // namespace qv
