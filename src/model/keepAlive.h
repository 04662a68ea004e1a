#pragma once

#include "annotationLegacy/qvAnnotationInterface.h"

namespace qvLegacy {

/// Holds the source of an assignment while the target drops its children, which may be all that keeps the
/// source alive. An annotation that nobody counts is nobody's child, and holding it would delete it at the
/// end.
[[nodiscard]] inline qv::qvPointer<qvAnnotationInterface> keepAlive(qvAnnotationInterface const& source,
                                                                    qvAnnotationInterface const& target) {
  bool const mayBeDescendant = target.m_subAnnots != nullptr && source.GetReferences() > 0;
  return mayBeDescendant ? const_cast<qvAnnotationInterface*>(&source) : nullptr;
}

}  // namespace qvLegacy
