#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "qvAnnotation/qvCadAnnotationView.h"
#include "qvSvg/image.h"
#include "qvSvg/node.h"
#include "qvToolkit/export.h"
#include "qvToolkit/images/image.h"

namespace qvToolkit {

/// Where the SVG content of an annotation came from.
struct AnnotationMark {
  std::string m_name;     ///< of the legacy annotation, as raw bytes
  std::string m_address;  ///< of the legacy annotation, "view/3/annot/7/sub/0"
};

/// The marks of the SVG roots of a view's annotations and sub-annotations. The nodes belong to the view.
using AnnotationMarks = std::unordered_map<qv::svg::Node const*, AnnotationMark>;

/// The images that a view shows. The data of its image items are the names of rasters, under which the images
/// stand here, so that one that is shown at many places is held once.
using MigratedImages = std::map<std::string, std::shared_ptr<Image const>>;

/// What became of one view.
/// @code
/// MigrationSession session(MigrationOptions{});
/// MigratedView const view = std::move(session.migrate(openDocument("bracket.json")).front());
/// assert(view.m_view != nullptr && view.m_images.empty());
/// @endcode
/// A copy shares model and images.
struct MigratedView {
  std::size_t m_index = 0;                        ///< of the view in its document
  std::string m_name;                             ///< raw bytes
  qv::qvPointer<qv::qvCadAnnotationView> m_view;  ///< null when the view was not migrated
  /// The document holds the same view object at this index, which tells what became of it; `m_view` is null
  /// then.
  std::optional<std::size_t> m_sameAs;
  std::vector<std::string> m_log;  ///< texts of the migration's log records, in order
  AnnotationMarks m_marks;         ///< empty when the view was not migrated
  MigratedImages m_images;         ///< likewise
};

/// The image that an item of the view shows; one without bytes where the view has none for it. Valid as long
/// as the view.
QVT_EXPORT Image const& findImage(MigratedView const& view, qv::svg::Image const& item);

}  // namespace qvToolkit
