#pragma once

#include <string>

#include "annotationLegacy/qvAnnotationView.h"
#include "model/variantLookup.h"
#include "qvToolkit/findings/address.h"
#include "qvToolkit/findings/finding.h"
#include "reading/auditTrail.h"

namespace qvToolkit {

/// A view map and what its reader made of it.
struct ReadView {
  VariantMap const& m_map;
  qvLegacy::qvAnnotationView const* m_view;  ///< null when the reader refused the view
  qv::qvStreamVersion m_version;
  Address m_address;          ///< of the view
  std::string m_jsonPointer;  ///< of the map
};

/// The audit of one document.
class ReadAudit {
 public:
  /// Compares a view map with the view that was read from it and reports what did not come through exactly:
  /// each annotation record that is not in the view (error), leaders, children, lines and runs that were not
  /// read, values for which others stand (error or warning), each with its place; and the keys that the
  /// reader of this version never looks at, gathered for the view by kind of record: info for unknown keys,
  /// heavier where annotations (error) or metadata (warning) were dropped with them. Walks without recursion.
  ///
  /// Returns which messages of the reader are about no loss.
  HarmlessMessages audit(ReadView const& read, Findings& findings);

  /// Reports what is told once for all views.
  void finish(Findings& findings) const;

 private:
  CutHeights m_heights;
};

}  // namespace qvToolkit
