#include "transform/qvGenericTransformation.h"

#include <cmath>

#include "annotationLegacy/qvAnnotationView.h"
#include "modelTest.h"

namespace {

using namespace qvLegacy;
using namespace qvLegacy::test;
using Transformation = qv::qvGenericTransformation<float>;
using Matrix3f = Wm4::Matrix3<float>;
using Vector3f = Wm4::Vector3<float>;

class AnnotationTransform : public ModelTest {};
class ViewTransform : public ModelTest {};
class PlaneTransform : public ModelTest {};

Matrix3f const TURN_ABOUT_Z(0, -1, 0, 1, 0, 0, 0, 0, 1);

/// An annotation with every kind of geometry.
TextPointer newPlaced() {
  TextPointer annotation = newText();
  annotation->m_position = {1, 0, 0};
  annotation->m_leaders.emplace_back(Vector3f(2, 0, 0)).m_head = 3;
  auto& measure = annotation->m_measures.emplace_back();
  measure.m_pointA = {3, 0, 0};
  measure.m_pointB = {4, 0, 0};
  measure.m_offset = {5, 0, 0};
  measure.m_arrowDir = 2;
  return annotation;
}

TEST_F(AnnotationTransform, MovesPointsWithTheTranslationAndOffsetsWithout) {
  TextPointer const annotation = newPlaced();
  Transformation t;
  t.SetTranslate({1, 2, 3});
  annotation->transform(t);
  EXPECT_EQ(annotation->m_position, Vector3f(2, 2, 3));
  EXPECT_EQ(annotation->m_leaders[0].m_position, Vector3f(3, 2, 3));
  EXPECT_EQ(annotation->m_leaders[0].m_head, 3);
  EXPECT_EQ(annotation->m_measures[0].m_pointA, Vector3f(4, 2, 3));
  EXPECT_EQ(annotation->m_measures[0].m_pointB, Vector3f(5, 2, 3));
  EXPECT_EQ(annotation->m_measures[0].m_offset, Vector3f(5, 0, 0));
  EXPECT_EQ(annotation->m_measures[0].m_arrowDir, 2);
}

TEST_F(AnnotationTransform, ScalesAndTurnsOffsetsToo) {
  TextPointer const annotation = newPlaced();
  Transformation t;
  t.SetRotate(TURN_ABOUT_Z);
  t.SetUniformScale(2);
  t.SetTranslate({0, 0, 1});
  annotation->transform(t);
  EXPECT_EQ(annotation->m_measures[0].m_offset, Vector3f(0, 10, 0));
  EXPECT_EQ(annotation->m_position, Vector3f(0, 2, 1));
}

TEST_F(AnnotationTransform, WithTheIdentityKeepsEvenNegativeZeros) {
  TextPointer const annotation = newPlaced();
  annotation->m_position = {-0.0F, -0.0F, -0.0F};
  annotation->m_measures[0].m_offset = {-0.0F, 1, 0};
  annotation->transform(Transformation());
  for (std::size_t i = 0; i < 3; ++i) EXPECT_TRUE(std::signbit(annotation->m_position[i]));
  EXPECT_TRUE(std::signbit(annotation->m_measures[0].m_offset.X()));
}

TEST_F(AnnotationTransform, LooksAtTheIdentityFlagOnly) {
  TextPointer const annotation = newPlaced();
  Transformation t;
  t.SetTranslate({1, 2, 3});
  t.m_isIdentity = true;
  annotation->transform(t);
  EXPECT_EQ(annotation->m_position, Vector3f(1, 0, 0));
}

TEST_F(AnnotationTransform, LeavesTheChildrenWhereTheyAre) {
  TextPointer const annotation = newPlaced();
  AnnotationPointer const child = newPlaced();
  addChild(*annotation, child);
  Transformation t;
  t.SetTranslate({1, 2, 3});
  annotation->transform(t);
  EXPECT_EQ(child->m_position, Vector3f(1, 0, 0));
}

TEST_F(ViewTransform, MovesTheOriginAsAPointAndTheDirectionsAsVectors) {
  qvAnnotationView view;
  view.m_planeOrigin = {1, 0, 0};
  Transformation t;
  t.SetRotate(TURN_ABOUT_Z);
  t.SetScale({2, 3, 4});
  t.SetTranslate({1, 1, 1});
  view.transform(t);
  EXPECT_EQ(view.m_planeOrigin, Vector3f(1, 3, 1));
  EXPECT_EQ(view.m_planeNormal, Vector3f(0, 0, 4)) << "not renormalised";
  EXPECT_EQ(view.m_planeXAxis, Vector3f(0, 2, 0)) << "not renormalised";
}

TEST_F(ViewTransform, MovesTheNormalAsAPlainVector) {
  qvAnnotationView view;
  view.m_planeNormal = {1, 1, 0};
  Transformation t;
  t.SetScale({1, 2, 1});
  view.transform(t);
  EXPECT_EQ(view.m_planeNormal, Vector3f(1, 2, 0));
}

TEST_F(ViewTransform, WithTheIdentityKeepsEvenNegativeZeros) {
  qvAnnotationView view;
  view.m_planeOrigin = {-0.0F, 0, 0};
  view.transform(Transformation());
  EXPECT_TRUE(std::signbit(view.m_planeOrigin.X()));
}

TEST_F(PlaneTransform, OfADefaultViewIsTheIdentity) {
  Transformation out;
  out.SetTranslate({9, 9, 9});
  out.SetMatrix(TURN_ABOUT_Z);
  out.SetScale({2, 3, 4});
  qvAnnotationView().getPlaneTransform(out);
  EXPECT_TRUE(out.IsIdentity());
  EXPECT_TRUE(out.IsRSMatrix());
  EXPECT_TRUE(out.IsUniformScale());
  EXPECT_EQ(out, Transformation());
}

TEST_F(PlaneTransform, OfAShiftedViewIsATranslation) {
  qvAnnotationView view;
  view.m_planeOrigin = {0, 0, 5};
  Transformation out;
  view.getPlaneTransform(out);
  EXPECT_FALSE(out.IsIdentity());
  EXPECT_EQ(out.GetMatrix(), Matrix3f::IDENTITY);
  EXPECT_EQ(out.GetTranslate(), Vector3f(0, 0, 5));
}

TEST_F(PlaneTransform, HasAxisThenCrossProductThenNormalAsColumns) {
  qvAnnotationView view;
  view.m_planeNormal = {0, 1, 0};
  view.m_planeXAxis = {0, 0, 1};
  Transformation out;
  view.getPlaneTransform(out);
  EXPECT_EQ(out.GetMatrix(), Matrix3f(0, 1, 0, 0, 0, 1, 1, 0, 0));
  EXPECT_EQ(out.ApplyForward(Vector3f(1, 2, 3), true), Vector3f(2, 3, 1));
}

TEST_F(PlaneTransform, CountsAsARotationEvenWhenTheAxisHasNoUnitLength) {
  qvAnnotationView view;
  view.m_planeXAxis = {2, 0, 0};
  Transformation out;
  view.getPlaneTransform(out);
  EXPECT_TRUE(out.IsRSMatrix());
  EXPECT_TRUE(out.IsUniformScale());
  EXPECT_FALSE(out.IsIdentity());
  EXPECT_EQ(out.GetScale(), Vector3f(1, 1, 1));
  EXPECT_EQ(out.GetMatrix(), Matrix3f(2, 0, 0, 0, 2, 0, 0, 0, 1));
}

}  // namespace
