#include "annotationLegacy/qvAnnotationMetaData.h"

#include "ports/stream.h"

namespace qvLegacy {

namespace {

using ViewList = decltype(qvAnnotationMetaData::m_views);

// KEEP: nothing is ever saved, but only streams above this version (6.12) are told so.
constexpr std::uint32_t LAST_UNMARKED_VERSION = 0x6000C;

/// Deep copies, in order; null entries stay null.
ViewList copyViews(ViewList const& views) {
  ViewList copies;
  copies.reserve(views.size());
  for (auto const& view : views) copies.emplace_back(view == nullptr ? nullptr : new qvAnnotationView(*view));
  return copies;
}

/// The views themselves, then one view for each that its `Clone` was asked to fill.
ViewList shareAndCloneViews(ViewList const& views) {
  ViewList result;
  result.reserve(2 * views.size());
  result = views;
  for (auto const& view : views) {
    qv::qvPointer<qvAnnotationView> const clone(new qvAnnotationView);
    qv::qvRttiInterface* target = clone;
    if (view != nullptr) view->Clone(target);
    result.push_back(clone);
  }
  return result;
}

}  // namespace

unsigned int const qvAnnotationMetaData::MetadataTypeId;

qvAnnotationMetaData::qvAnnotationMetaData() : qv::qvMetadataInterface(MetadataTypeId) {
}

qvAnnotationMetaData::qvAnnotationMetaData(qvAnnotationMetaData const& other) : qvAnnotationMetaData() {
  *this = other;
}

qvAnnotationMetaData& qvAnnotationMetaData::operator=(qvAnnotationMetaData const& other) {
  if (this == &other) return *this;
  ViewList views = copyViews(other.m_views);
  m_views.swap(views);
  return *this;
}

qvAnnotationMetaData::~qvAnnotationMetaData() = default;

qv::qvRtti const& qvAnnotationMetaData::GetType() const {
  return TYPE;
}

void qvAnnotationMetaData::PostLink() {
  qv::qvMetadataInterface::PostLink();
}

void qvAnnotationMetaData::Save(qv::qvBaseStream& stream) const {
  if (ports::version(stream) > LAST_UNMARKED_VERSION) stream.setStreamError();
}

bool qvAnnotationMetaData::Equals(qv::qvRttiInterface const* other) const {
  return qv::qvMetadataInterface::Equals(other);
}

bool qvAnnotationMetaData::Clone(qv::qvRttiInterface*& target) const {
  if (target != nullptr && !target->GetType().IsDerived(TYPE)) return false;
  // KEEP: a view's Clone fills nothing, so the target ends with the source's views and as many empty ones.
  ViewList views = shareAndCloneViews(m_views);
  if (target == nullptr) target = new qvAnnotationMetaData;
  static_cast<qvAnnotationMetaData*>(target)->m_views.swap(views);
  return qv::qvMetadataInterface::Clone(target);
}

qv::qvObject* qvAnnotationMetaData::GetObjectByName(std::string const& name) {
  return qv::qvMetadataInterface::GetObjectByName(name);
}

void qvAnnotationMetaData::GetAllObjectsByName(std::string const& name, std::vector<qv::qvObject*>& objects) {
  qv::qvMetadataInterface::GetAllObjectsByName(name, objects);
}

qv::qvObject* qvAnnotationMetaData::GetObjectByID(unsigned int id) {
  return qv::qvMetadataInterface::GetObjectByID(id);
}

void qvAnnotationMetaData::SetName(std::string const&) {
}

std::string const& qvAnnotationMetaData::GetName() const {
  return sEmptyString;
}

}  // namespace qvLegacy
