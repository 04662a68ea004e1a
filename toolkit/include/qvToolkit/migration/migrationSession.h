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
#include "qvToolkit/export.h"
#include "qvToolkit/findings/finding.h"
#include "qvToolkit/images/rasterFolder.h"
#include "qvToolkit/migration/fontSettings.h"
#include "qvToolkit/model/document.h"
#include "qvToolkit/model/treeLimits.h"
#include "qvToolkit/outcome/request.h"

namespace qvToolkit {

/// How views are to be migrated.
struct MigrationOptions {
  static constexpr float DefaultHeadSize = Request::DefaultHeadSize;  ///< in SVG units

  int m_dropped = 0;                   ///< bits of `qvLegacy::qvAnnotationMigration::Option`
  float m_headSize = DefaultHeadSize;  ///< in SVG units
  std::string m_rasterFolder;          ///< empty: no raster can be delivered
  std::uint64_t m_maxRasterBytes = RasterFolder::MaxFileBytes;  ///< of one image file
  TreeLimits m_trees;                                           ///< views beyond them are not migrated
  FontOptions m_fonts;  ///< to be applied to the process before; kept for the record
};

/// Where the SVG content of an annotation came from.
struct AnnotationMark {
  std::string m_name;     ///< of the legacy annotation, as raw bytes
  std::string m_address;  ///< of the legacy annotation, "view/3/annot/7/sub/0"
};

/// The marks of the SVG roots of a view's annotations and sub-annotations. The nodes belong to the view.
using AnnotationMarks = std::unordered_map<qv::svg::Node const*, AnnotationMark>;

class FindingList;

/// What became of one view.
struct MigratedView {
  std::size_t m_index = 0;                        ///< of the view in its document
  std::string m_name;                             ///< raw bytes
  qv::qvPointer<qv::qvCadAnnotationView> m_view;  ///< null when the view was not migrated
  /// The document holds the same view object at this index, which tells what became of it; `m_view` is null
  /// then.
  std::optional<std::size_t> m_sameAs;
  std::vector<std::string> m_log;  ///< texts of the migration's log records, in order
  Findings m_findings;             ///< why it was not migrated, or what was changed or lost on the way
  AnnotationMarks m_marks;         ///< empty when the view was not migrated
};

/// Migrates the views of one document.
/// @code
/// Document const document = openDocument("image_sheet.json");
/// MigrationOptions options;
/// options.m_rasterFolder = "rasters";
/// MigrationSession session(options);
/// for (MigratedView const& view : session.migrate(document))
///   for (Finding const& finding : view.m_findings)
///     std::cerr << formatFinding(document.m_path, finding) << '\n';
/// @endcode
/// For the time of a migration it stands in for the process log, so that no record goes elsewhere; so one
/// session migrates at a time. The library must be initialised for as long as the session and what it
/// returned live, and the session must live for as long as pages are made of its views: it keeps their
/// images.
class QVT_EXPORT MigrationSession {
 public:
  /// Opens the folder of images. One that cannot be used is no failure yet: `getRasters` tells.
  explicit MigrationSession(MigrationOptions options);

  /// One result for each view of the document, in order, also for those that the reader refused. A view
  /// object that stands in the document more than once is migrated once. Throws `std::bad_alloc` only. The
  /// document is not changed. Time and memory grow with annotations and texts; the first text looks for
  /// fonts.
  std::vector<MigratedView> migrate(Document const& document);

  MigrationOptions const& getOptions() const noexcept { return m_options; }  ///< as they were given
  /// The images that the migrated views refer to, and why others are not there.
  RasterFolder const& getRasters() const noexcept { return m_rasters; }

 private:
  MigratedView migrateView(LoadedView const& loaded, std::size_t index);
  void migrateModel(qv::qvPointer<qvLegacy::qvAnnotationView> const& legacy, MigratedView& view,
                    FindingList& findings);

  MigrationOptions m_options;
  RasterFolder m_rasters;
};

}  // namespace qvToolkit
