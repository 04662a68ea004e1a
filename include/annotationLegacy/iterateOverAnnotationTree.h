#pragma once

#include <vector>

#include "annotationLegacy/export.h"
#include "annotationLegacy/platform.h"
#include "annotationLegacy/qvAnnotationInterface.h"

namespace qvLegacy::annotation {

/// Visitor of annotation trees, depth first in child-list order. The tree must not change during a walk and
/// must hold no cycle. The order of the virtual operations is part of the binary interface.
class QVA_EXPORT IterateOverAnnotationTreeFunctorInterface {
 public:
  virtual ~IterateOverAnnotationTreeFunctorInterface();

  /// Called when the walk enters a node. `isRoot` is true for the top of each walk only. The base does
  /// nothing. What it throws ends the walk and propagates.
  virtual void startProcessingAnnot(qvAnnotationInterface::SubAnnot const& node, bool isRoot);
  /// Called with the same arguments when the walk leaves the node, after all its descendants.
  virtual void endProcessingAnnot(qvAnnotationInterface::SubAnnot const& node, bool isRoot);

  /// Walks the tree under `annotation`, which the walk holds one reference on: an object without references
  /// would be deleted at its end. The root is shown with anchor 0. Null, at any level, is not visited.
  void iterateOverAnnotationTree(qvAnnotationInterface* annotation);
  /// Walks each tree of the list, in order.
  void iterateOverAnnotationTree(std::vector<qv::qvPointer<qvAnnotationInterface>>& annotations);
  /// Walks one node and what is under it.
  void iterateOverAnnotationTreeImpl(qvAnnotationInterface::SubAnnot const& node, bool isRoot);
};

/// Counts the annotations that a walk visits.
class QVA_EXPORT CountAnnotationFunctor : public IterateOverAnnotationTreeFunctorInterface {
 public:
  /// Adds to `counter`, which the caller owns and sets to 0 before the first walk.
  explicit CountAnnotationFunctor(unsigned int& counter);
  /// Adds 1.
  void startProcessingAnnot(qvAnnotationInterface::SubAnnot const& node, bool isRoot) override;

 private:
  unsigned int& m_counter;
};

}  // namespace qvLegacy::annotation
