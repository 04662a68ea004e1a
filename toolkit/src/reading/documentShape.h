#pragma once

#include <optional>
#include <string>
#include <vector>

#include "model/variantLookup.h"
#include "qvToolkit/findings/finding.h"

namespace qvToolkit {

/// One entry of a document that should be a view map.
struct ViewEntry {
  qv::qvVariant const* m_value;
  std::string m_jsonPointer;
};

/// The views of a document: the value itself, its elements, or those of its "views".
struct DocumentShape {
  bool m_isDocument = false;       ///< false: the findings say why
  std::vector<ViewEntry> m_views;  ///< in document order; values of a wrong kind included
  Findings m_findings;
};

/// Finds the views of a document: one view map, an array of view maps or {"views": [view maps]}. A map counts
/// as a view when it has a version or annotations. `root` must outlive the result.
DocumentShape findViews(qv::qvVariant const& root);

}  // namespace qvToolkit
