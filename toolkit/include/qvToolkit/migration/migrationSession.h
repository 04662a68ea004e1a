#pragma once

#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

#include "annotationLegacy/qvAnnotationMigration.h"
#include "annotationLegacy/qvAnnotationView.h"
#include "qvToolkit/export.h"
#include "qvToolkit/findings/finding.h"
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
  FontOptions m_fonts;                 ///< those of the session; kept for the record
};

/// Takes the next migrated view, which it may keep; false ends the migration. What it throws propagates.
using ViewTaker = std::function<bool(MigratedView&& view)>;

class DocumentRasters;
class FindingList;

/// Migrates the views of one document.
/// @code
/// Document const document = openDocument("image_sheet.json");
/// RasterFolder const rasters("rasters");
/// MigrationOptions options;
/// options.m_rasters = [&rasters](std::string const& name) { return rasters.find(name); };
/// MigrationSession migration(options, [&document](Finding const& finding) {
///   std::cerr << formatFinding(document.m_path, finding) << '\n';
/// });
/// migration.migrate(document, [](MigratedView const& view) {
///   std::cout << view.m_name << ": " << view.m_images.size() << " images\n";
///   return true;
/// });
/// @endcode
/// While it migrates a view it stands in for the process log, so that no record goes elsewhere; so one
/// migration runs at a time. The library must be initialised for as long as its views live.
class QVT_EXPORT MigrationSession {
 public:
  /// `tell` takes what is to be said of each view, with the address of the view or annotation that it is
  /// about: why it was not migrated, or what was changed or lost on the way. It may be empty.
  explicit MigrationSession(MigrationOptions options, FindingSink tell = {})
      : m_options(std::move(options)), m_tell(std::move(tell)) {}

  /// Hands over one result for each view of the document, in order, also for those that the reader refused;
  /// its findings are told before. One view at a time is in memory, unless `take` keeps them. A view object
  /// that stands in the document more than once is migrated once.
  ///
  /// Throws `std::bad_alloc` and what `take`, `tell` and the source of images throw, nothing else. The
  /// document is not changed. Time grows with annotations and texts; the first text looks for fonts.
  void migrate(Document const& document, ViewTaker const& take);
  /// All of them at once, in memory together.
  std::vector<MigratedView> migrate(Document const& document);

  MigrationOptions const& getOptions() const noexcept { return m_options; }  ///< as they were given

 private:
  MigratedView migrateView(LoadedView const& loaded, std::size_t index, DocumentRasters& rasters);
  void migrateModel(qv::qvPointer<qvLegacy::qvAnnotationView> const& legacy, MigratedView& view,
                    DocumentRasters& rasters, FindingList& findings);

  MigrationOptions m_options;
  FindingSink m_tell;
};

}  // namespace qvToolkit
