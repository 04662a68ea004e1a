#include "annotationLegacy/qvAnnotationInterface.h"

#include <cmath>
#include <tuple>

#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "model/keepAlive.h"
#include "rules/fields.h"

namespace qvLegacy {

namespace {

using Vector3f = Wm4::Vector3<float>;

/// The unit vector along `v`, in single precision; zero where the length has no finite reciprocal. A length
/// that is not a number gives a vector of such.
Vector3f directionOf(Vector3f const& v) {
  float const reciprocal = 1.0F / v.Length();
  return std::isinf(reciprocal) ? Vector3f::ZERO : v * reciprocal;
}

}  // namespace

qvAnnotationInterface::Leader::Leader() = default;

qvAnnotationInterface::Leader::Leader(Wm4::Vector3<float> const& position) : m_position(position) {
}

qvAnnotationInterface::MeasureLeader::MeasureLeader() : m_offset(Vector3f::UNIT_X) {
}

qvAnnotationInterface::SubAnnot::SubAnnot() = default;

qvAnnotationInterface::qvAnnotationInterface(Type type) : m_color(255, 255, 255), m_type(type) {
}

qvAnnotationInterface::qvAnnotationInterface(qvAnnotationInterface const& other)
    : qvAnnotationInterface(static_cast<Type>(other.m_type)) {
  qvAnnotationInterface::operator=(other);
}

qvAnnotationInterface& qvAnnotationInterface::operator=(qvAnnotationInterface const& other) {
  if (this == &other) return *this;
  auto const source = keepAlive(other, *this);
  auto const copy = [&](auto const&... member) { ((this->*member.member = other.*member.member), ...); };
  std::apply(copy, rules::members::head<qvAnnotationInterface>);
  // KEEP: m_type is not copied, a text that is assigned a raster stays a text.
  m_metadata = other.m_metadata;
  removeSubAnnots();
  appendCopiesOfChildren(other);
  return *this;
}

qvAnnotationInterface::~qvAnnotationInterface() {
  removeSubAnnots();
}

void qvAnnotationInterface::SetName(std::string const& name) {
  m_name = name;
}

std::string const& qvAnnotationInterface::GetName() const {
  return m_name;
}

qvAnnotationInterface* qvAnnotationInterface::cloneAnnotation() const {
  switch (m_type) {
    case Text:
      return new qvAnnotationText(static_cast<qvAnnotationText const&>(*this));
    case Raster:
      return new qvAnnotationRaster(static_cast<qvAnnotationRaster const&>(*this));
    default:
      return nullptr;
  }
}

void qvAnnotationInterface::recomputeOffsetVectorLength() {
  for (MeasureLeader& measure : m_measures) {
    Vector3f const direction = directionOf(measure.m_offset);
    measure.m_offset = direction * (m_position - measure.m_pointA).Dot(direction);
  }
}

}  // namespace qvLegacy
