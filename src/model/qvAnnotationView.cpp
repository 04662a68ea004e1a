#include "annotationLegacy/qvAnnotationView.h"

#include "ports/stream.h"

namespace qvLegacy {

namespace {

using AnnotationList = decltype(qvAnnotationView::m_annotations);

// KEEP: nothing is ever saved, but only streams above this version (6.26) are told so.
constexpr std::uint32_t LAST_UNMARKED_VERSION = 0x6001A;

/// Deep copies, in order. Annotations of a kind that cannot be cloned are dropped, null entries stay null.
AnnotationList cloneAnnotations(AnnotationList const& annotations) {
  AnnotationList clones;
  clones.reserve(annotations.size());
  for (auto const& annotation : annotations) {
    qvAnnotationInterface* const clone = annotation == nullptr ? nullptr : annotation->cloneAnnotation();
    if (clone != nullptr || annotation == nullptr) clones.emplace_back(clone);
  }
  return clones;
}

AnnotationList copyAnnotations(AnnotationList const& annotations, qvAnnotationView::AnnotationCopyMode mode) {
  switch (mode) {
    case qvAnnotationView::ShareAnnotations:
      return annotations;
    case qvAnnotationView::CloneAnnotations:
      return cloneAnnotations(annotations);
    default:
      return {};
  }
}

}  // namespace

qvAnnotationView::qvAnnotationView()
    : m_planeNormal(Wm4::Vector3<float>::UNIT_Z), m_planeXAxis(Wm4::Vector3<float>::UNIT_X) {
}

qvAnnotationView::qvAnnotationView(qvAnnotationView const& other) : qvAnnotationView() {
  *this = other;
}

qvAnnotationView& qvAnnotationView::operator=(qvAnnotationView const& other) {
  if (this != &other) copyFrom(other, CloneAnnotations);
  return *this;
}

qvAnnotationView::~qvAnnotationView() = default;

void qvAnnotationView::copyFrom(qvAnnotationView const& other, AnnotationCopyMode mode) {
  m_name = other.m_name;
  m_planeOrigin = other.m_planeOrigin;
  m_planeNormal = other.m_planeNormal;
  m_planeXAxis = other.m_planeXAxis;
  m_metadata = other.m_metadata;
  AnnotationList annotations = copyAnnotations(other.m_annotations, mode);
  m_annotations.swap(annotations);
}

void qvAnnotationView::PostLink() {
  qv::qvObject::PostLink();
}

void qvAnnotationView::Save(qv::qvBaseStream& stream) const {
  if (ports::version(stream) > LAST_UNMARKED_VERSION) stream.setStreamError();
}

bool qvAnnotationView::Equals(qv::qvRttiInterface const*) const {
  return false;
}

bool qvAnnotationView::Clone(qv::qvRttiInterface*&) const {
  return false;
}

qv::qvRtti const& qvAnnotationView::GetType() const {
  return TYPE;
}

qv::qvObject* qvAnnotationView::GetObjectByName(std::string const& name) {
  return qv::qvObject::GetObjectByName(name);
}

void qvAnnotationView::GetAllObjectsByName(std::string const& name, std::vector<qv::qvObject*>& objects) {
  qv::qvObject::GetAllObjectsByName(name, objects);
}

qv::qvObject* qvAnnotationView::GetObjectByID(unsigned int id) {
  return qv::qvObject::GetObjectByID(id);
}

void qvAnnotationView::SetName(std::string const& name) {
  m_name = name;
}

std::string const& qvAnnotationView::GetName() const {
  return m_name;
}

}  // namespace qvLegacy
