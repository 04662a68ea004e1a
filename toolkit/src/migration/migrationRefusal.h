#pragma once

#include <string>
#include <vector>

#include "annotationLegacy/qvAnnotationView.h"
#include "images/documentRasters.h"
#include "qvToolkit/findings/address.h"

namespace qvToolkit {

/// What a refused view was migrated with, and what the migration said.
struct RefusedMigration {
  qvLegacy::qvAnnotationView const& m_view;
  Address const& m_viewAddress;
  std::vector<std::string> const& m_log;  ///< texts of the migration's records, in order
  int m_dropped;                          ///< bits of `qvLegacy::qvAnnotationMigration::Option`
  DocumentRasters const& m_rasters;
};

struct Refusal {
  std::string m_reason;       ///< the record that made the view fail, or what did so without a record
  std::string m_place;        ///< "annotation 'n' (view/0/annot/3)"; empty when it is not one annotation
  bool m_isMetadata = false;  ///< metadata that an option would drop
};

/// Finds out why the migration refused a view. Records of what the migration tolerated come before, or alone
/// when the last reason has no record of its own.
Refusal explainRefusal(RefusedMigration const& refused);

}  // namespace qvToolkit
