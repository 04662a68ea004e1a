#include "qvAnnotation/qvCadAnnotationView.h"

#include "qvSystem/qvRtti.h"

namespace qv {

qvRtti const qvCadAnnotationView::TYPE("qvCore.qvCadAnnotationView", &qvObject::TYPE);

qvCadAnnotationView::qvCadAnnotationView() : m_planeNormal(0.0F, 0.0F, 1.0F), m_planeXAxis(1.0F, 0.0F, 0.0F) {
}
qvCadAnnotationView::~qvCadAnnotationView() = default;

qvRtti const& qvCadAnnotationView::GetType() const {
  return TYPE;
}

void qvCadAnnotationView::SetName(std::string const& name) {
  m_name = name;
}

std::string const& qvCadAnnotationView::GetName() const {
  return m_name;
}

}  // namespace qv
