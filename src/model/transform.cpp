#include "annotationLegacy/qvAnnotationInterface.h"
#include "annotationLegacy/qvAnnotationView.h"
#include "transform/qvGenericTransformation.h"

namespace qvLegacy {

namespace {

using Transformation = qv::qvGenericTransformation<float>;
using Vector3f = Wm4::Vector3<float>;

void moveAsPoint(Vector3f& point, Transformation const& transformation) {
  point = transformation.ApplyForward(point, true);
}

/// The linear part only, nothing renormalised.
void moveAsVector(Vector3f& vector, Transformation const& transformation) {
  vector = transformation.ApplyForward(vector, false);
}

void setColumn(Wm4::Matrix3<float>& matrix, std::size_t column, Vector3f const& v) {
  for (std::size_t i = 0; i < 3; ++i) matrix(i, column) = v[i];
}

}  // namespace

void qvAnnotationInterface::transform(Transformation const& transformation) {
  if (transformation.IsIdentity()) return;
  for (Leader& leader : m_leaders) moveAsPoint(leader.m_position, transformation);
  for (MeasureLeader& measure : m_measures) {
    moveAsPoint(measure.m_pointA, transformation);
    moveAsPoint(measure.m_pointB, transformation);
    moveAsVector(measure.m_offset, transformation);
  }
  moveAsPoint(m_position, transformation);
}

void qvAnnotationView::transform(Transformation const& transformation) {
  if (transformation.IsIdentity()) return;
  moveAsPoint(m_planeOrigin, transformation);
  // KEEP: the normal moves as a plain vector, not with the inverse transpose.
  moveAsVector(m_planeNormal, transformation);
  moveAsVector(m_planeXAxis, transformation);
}

void qvAnnotationView::getPlaneTransform(Transformation& out) const {
  out.MakeIdentity();
  out.SetTranslate(m_planeOrigin);
  // KEEP: the columns are written past the setters, so the transform counts as a rotation whatever they hold.
  setColumn(out.GetRotate(), 0, m_planeXAxis);
  setColumn(out.GetRotate(), 1, m_planeNormal.Cross(m_planeXAxis));
  setColumn(out.GetRotate(), 2, m_planeNormal);
  out.recomputeIsIdentity();
}

}  // namespace qvLegacy
