#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "annotationLegacy/qvAnnotationMigration.h"
#include "annotationLegacy/qvAnnotationView.h"
#include "qvAnnotation/qvCadAnnotationView.h"
#include "qvSvg/node.h"
#include "qvToolkit/findings/finding.h"
#include "qvToolkit/images/rasterFolder.h"
#include "qvToolkit/migration/fontSettings.h"
#include "qvToolkit/model/document.h"
#include "qvToolkit/model/treeLimits.h"

namespace qvToolkit {

struct MigrationOptions {
  /// Size of leader heads and measure arrows in SVG units; on paper that is 3 mm, as on drawings with texts
  /// of 3.5 mm.
  static constexpr float DefaultHeadSize = 3.0F;

  int m_dropped = 0;  ///< bits of `qvLegacy::qvAnnotationMigration::Option`
  float m_headSize = DefaultHeadSize;
  std::string m_rasterFolder;  ///< empty: no raster can be delivered
  std::uint64_t m_maxRasterBytes = RasterFolder::MaxFileBytes;
  TreeLimits m_trees;
  FontOptions m_fonts;  ///< to be applied to the process before; kept for the record
};

/// Where the SVG content of an annotation came from.
struct AnnotationMark {
  std::string m_name;
  std::string m_address;
};

/// The marks of the SVG roots of a view's annotations and sub-annotations.
using AnnotationMarks = std::unordered_map<qv::svg::Node const*, AnnotationMark>;

class FindingList;

/// What became of one view.
struct MigratedView {
  std::size_t m_index = 0;  ///< of the view in its document
  std::string m_name;
  qv::qvPointer<qv::qvCadAnnotationView> m_view;  ///< null when the view was not migrated
  std::optional<std::size_t> m_sameAs;  ///< the document holds the same view object at this index, too
  std::vector<std::string> m_log;       ///< texts of the migration's log records, in order
  Findings m_findings;
  AnnotationMarks m_marks;
};

/// Migrates the views of one document.
///
/// For the time of a migration it stands in for the process log, so that no record goes elsewhere. The
/// library must be initialised for as long as the session and what it returned live.
class MigrationSession {
 public:
  explicit MigrationSession(MigrationOptions options);

  /// Migrates each view that the reader delivered, in order. A view object that stands in the document more
  /// than once is migrated once. Throws `std::bad_alloc` only.
  std::vector<MigratedView> migrate(Document const& document);

  MigrationOptions const& getOptions() const noexcept { return m_options; }
  /// The images that the migrated views refer to.
  RasterFolder const& getRasters() const noexcept { return m_rasters; }

 private:
  MigratedView migrateView(LoadedView const& loaded, std::size_t index);
  void migrateModel(qv::qvPointer<qvLegacy::qvAnnotationView> const& legacy, MigratedView& view,
                    FindingList& findings);

  MigrationOptions m_options;
  RasterFolder m_rasters;
};

}  // namespace qvToolkit
