#include <cassert>
#include <utility>

#include "annotationLegacy/qvAnnotationInterface.h"

namespace qvLegacy {

namespace {

using SubAnnotList = qvAnnotationInterface::SubAnnotList;

/// Releases one reference on each child, in order. A child that is about to go first hands its own children
/// over to the end of the list, so that the depth of a tree costs no stack. Splicing neither allocates nor
/// throws.
void releaseNodes(SubAnnotList& nodes) noexcept {
  while (!nodes.empty()) {
    qvAnnotationInterface* const child = nodes.front().m_annot;
    if (child != nullptr && child->m_subAnnots != nullptr && child->GetReferences() == 1) {
      nodes.splice(nodes.end(), *child->m_subAnnots);
    }
    nodes.pop_front();
  }
}

/// A deep copy of a text or raster child; null and children of any other kind are shared.
qv::qvPointer<qvAnnotationInterface> copyOfChild(qv::qvPointer<qvAnnotationInterface> const& child) {
  if (child == nullptr) return nullptr;
  qvAnnotationInterface* const copy = child->cloneAnnotation();
  return copy != nullptr ? copy : child.get();
}

}  // namespace

SubAnnotList* qvAnnotationInterface::ms_dummySubAnnots = nullptr;

void qvAnnotationInterface::InitDummySubAnnots() {
  if (ms_dummySubAnnots == nullptr) ms_dummySubAnnots = new SubAnnotList;
}

void qvAnnotationInterface::ClearDummySubAnnots() noexcept {
  std::unique_ptr<SubAnnotList> const nodes(std::exchange(ms_dummySubAnnots, nullptr));
  if (nodes != nullptr) releaseNodes(*nodes);
}

SubAnnotList const& qvAnnotationInterface::getSubAnnots() const {
  assert((m_subAnnots != nullptr || ms_dummySubAnnots != nullptr) && "the library is not initialised");
  return m_subAnnots != nullptr ? *m_subAnnots : *ms_dummySubAnnots;
}

std::uint32_t qvAnnotationInterface::getSubAnnotsCount() const {
  return m_subAnnots == nullptr ? 0 : static_cast<std::uint32_t>(m_subAnnots->size());
}

SubAnnotList& qvAnnotationInterface::editSubAnnots() {
  if (m_subAnnots == nullptr) m_subAnnots = std::make_unique<SubAnnotList>();
  return *m_subAnnots;
}

void qvAnnotationInterface::removeSubAnnots() noexcept {
  std::unique_ptr<SubAnnotList> const nodes = std::move(m_subAnnots);
  if (nodes != nullptr) releaseNodes(*nodes);
}

/// Reads the source's list itself, not `getSubAnnots()`: copying needs no initialised library.
void qvAnnotationInterface::appendCopiesOfChildren(qvAnnotationInterface const& other) {
  if (other.m_subAnnots == nullptr) return;
  for (SubAnnot const& node : *other.m_subAnnots) {
    SubAnnot copy;
    copy.m_annot = copyOfChild(node.m_annot);
    copy.m_anchor = node.m_anchor;
    editSubAnnots().push_back(std::move(copy));
  }
}

}  // namespace qvLegacy
