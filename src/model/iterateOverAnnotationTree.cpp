#include "annotationLegacy/iterateOverAnnotationTree.h"

namespace qvLegacy::annotation {

IterateOverAnnotationTreeFunctorInterface::~IterateOverAnnotationTreeFunctorInterface() = default;

void IterateOverAnnotationTreeFunctorInterface::startProcessingAnnot(qvAnnotationInterface::SubAnnot const&,
                                                                     bool) {
}

void IterateOverAnnotationTreeFunctorInterface::endProcessingAnnot(qvAnnotationInterface::SubAnnot const&,
                                                                   bool) {
}

void IterateOverAnnotationTreeFunctorInterface::iterateOverAnnotationTree(qvAnnotationInterface* annotation) {
  qvAnnotationInterface::SubAnnot root;
  root.m_annot = annotation;
  root.m_anchor = qvAnnotationInterface::Free;
  iterateOverAnnotationTreeImpl(root, true);
}

void IterateOverAnnotationTreeFunctorInterface::iterateOverAnnotationTree(
    std::vector<qv::qvPointer<qvAnnotationInterface>>& annotations) {
  for (auto const& annotation : annotations) iterateOverAnnotationTree(annotation);
}

void IterateOverAnnotationTreeFunctorInterface::iterateOverAnnotationTreeImpl(
    qvAnnotationInterface::SubAnnot const& node, bool isRoot) {
  if (node.m_annot == nullptr) return;
  startProcessingAnnot(node, isRoot);
  for (auto const& child : node.m_annot->getSubAnnots()) iterateOverAnnotationTreeImpl(child, false);
  endProcessingAnnot(node, isRoot);
}

CountAnnotationFunctor::CountAnnotationFunctor(unsigned int& counter) : m_counter(counter) {
}

void CountAnnotationFunctor::startProcessingAnnot(qvAnnotationInterface::SubAnnot const&, bool) {
  ++m_counter;
}

}  // namespace qvLegacy::annotation
