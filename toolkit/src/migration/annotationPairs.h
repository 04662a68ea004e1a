#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "annotationLegacy/qvAnnotationView.h"
#include "qvAnnotation/qvCadAnnotationView.h"
#include "qvToolkit/findings/address.h"

namespace qvToolkit {

/// A legacy annotation and what the migration made of it.
struct AnnotationPair {
  qvLegacy::qvAnnotationInterface const* m_legacy = nullptr;
  qv::svg::Node const* m_root = nullptr;       ///< its SVG content; null when it has none
  qv::qvCadAnnotation const* m_cad = nullptr;  ///< the CAD annotation that the whole tree became
  std::size_t m_depth = 0;                     ///< 0 for an annotation of the view, 1 for its children
  std::string m_address;
};

/// The pairs of a migrated view, each annotation before its sub-annotations, in document order. Null entries
/// count in the addresses but yield no pair.
std::vector<AnnotationPair> pairAnnotations(qvLegacy::qvAnnotationView const& legacy,
                                            qv::qvCadAnnotationView const& migrated,
                                            Address const& viewAddress);

}  // namespace qvToolkit
