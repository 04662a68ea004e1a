#pragma once

#include <string>

#include "annotationLegacy/qvAnnotationView.h"
#include "model/variantLookup.h"
#include "qvToolkit/findings/finding.h"

namespace qvToolkit {

/// A view map and what its reader made of it.
struct ReadView {
  VariantMap const& m_map;
  qvLegacy::qvAnnotationView const* m_view;  ///< null when the reader refused the view
  qv::qvStreamVersion m_version;
  std::string m_address;      ///< "view/3"
  std::string m_jsonPointer;  ///< of the map
};

/// Compares a view map with the view that was read from it and reports what the reader passed over without a
/// message of its own: each annotation record that is not in the view (error), leaders, children and texts
/// that were cut (error or warning), and the keys that the reader of this version never looks at, gathered
/// for the view by record kind: info for unknown keys, heavier where annotations (error) or metadata
/// (warning) were dropped with them.
///
/// Walks without recursion.
void auditView(ReadView const& read, Findings& findings);

}  // namespace qvToolkit
