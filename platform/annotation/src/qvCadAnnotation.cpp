#include "qvAnnotation/qvCadAnnotation.h"

#include "qvSystem/qvRtti.h"

namespace qv {

qvRtti const qvCadAnnotation::TYPE("qvCore.qvCadAnnotation", &qvObject::TYPE);

qvCadAnnotation::qvCadAnnotation() = default;
qvCadAnnotation::~qvCadAnnotation() = default;

qvRtti const& qvCadAnnotation::GetType() const {
  return TYPE;
}

void qvCadAnnotation::SetName(std::string const& name) {
  m_name = name;
}

std::string const& qvCadAnnotation::GetName() const {
  return m_name;
}

}  // namespace qv
