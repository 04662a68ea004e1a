#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "annotationLegacy/qvAnnotationMigration.h"
#include "annotationLegacy/qvAnnotationView.h"
#include "qvToolkit/export.h"
#include "qvToolkit/images/rasterSource.h"
#include "qvToolkit/migration/fontSettings.h"
#include "qvToolkit/migration/migratedView.h"
#include "qvToolkit/model/document.h"
#include "qvToolkit/model/treeLimits.h"
#include "qvToolkit/outcome/request.h"

namespace qvToolkit {

/// How views are to be migrated.
struct MigrationOptions {
  static constexpr float DefaultHeadSize = Request::DefaultHeadSize;  ///< in SVG units

  int m_dropped = 0;                   ///< bits of `qvLegacy::qvAnnotationMigration::Option`
  float m_headSize = DefaultHeadSize;  ///< in SVG units
  RasterSource m_rasters;              ///< asked for images; empty: there is none
  TreeLimits m_trees;                  ///< views beyond them are not migrated
  FontOptions m_fonts;                 ///< to be applied to the process before; kept for the record
};

class DocumentRasters;
class FindingList;

/// Migrates the views of one document.
/// @code
/// Document const document = openDocument("image_sheet.json");
/// MigrationOptions options;
/// RasterFolder const rasters("rasters");
/// options.m_rasters = [&rasters](std::string const& name) { return rasters.find(name); };
/// MigrationSession session(options);
/// for (MigratedView const& view : session.migrate(document))
///   for (Finding const& finding : view.m_findings)
///     std::cerr << formatFinding(document.m_path, finding) << '\n';
/// @endcode
/// For the time of a migration it stands in for the process log, so that no record goes elsewhere; so one
/// session migrates at a time. The library must be initialised for as long as the session and what it
/// returned live.
class QVT_EXPORT MigrationSession {
 public:
  explicit MigrationSession(MigrationOptions options) : m_options(std::move(options)) {}

  /// One result for each view of the document, in order, also for those that the reader refused. A view
  /// object that stands in the document more than once is migrated once. Throws `std::bad_alloc` and what the
  /// source of images throws, nothing else. The document is not changed. Time and memory grow with
  /// annotations and texts; the first text looks for fonts.
  std::vector<MigratedView> migrate(Document const& document);

  MigrationOptions const& getOptions() const noexcept { return m_options; }  ///< as they were given

 private:
  MigratedView migrateView(LoadedView const& loaded, std::size_t index, DocumentRasters& rasters);
  void migrateModel(qv::qvPointer<qvLegacy::qvAnnotationView> const& legacy, MigratedView& view,
                    DocumentRasters& rasters, FindingList& findings);

  MigrationOptions m_options;
};

}  // namespace qvToolkit
