#pragma once

#include <string>
#include <vector>

#include "annotationLegacy/qvAnnotationView.h"
#include "qvToolkit/export.h"
#include "qvToolkit/findings/exitCode.h"
#include "qvToolkit/findings/finding.h"
#include "qvToolkit/model/source.h"

namespace qvToolkit {

/// One view of a document as the library's reader left it.
struct LoadedView {
  qv::qvPointer<qvLegacy::qvAnnotationView> m_view;  ///< null when the reader refused the view
  qv::qvStreamVersion m_version;        ///< that the view was written in, as it stands in the document
  std::string m_name;                   ///< raw bytes; known also for a refused view
  std::vector<std::string> m_messages;  ///< the reader's messages, in order
};

/// A document in memory.
/// @code
/// Document const document = openDocument("bracket.qvs");
/// for (LoadedView const& view : document.m_views) {
///   if (view.m_view == nullptr) continue;  // refused: its messages and the document's findings say why
///   std::cout << view.m_name << ": " << view.m_view->m_annotations.size() << " annotations\n";
/// }
/// @endcode
/// A copy shares the views. Documents must be gone before the library is terminated.
struct Document {
  std::string m_path;               ///< as it was given; "-" for standard input
  Source m_source;                  ///< its path is `m_path`, unless a caller sets another one
  Format m_format = Format::Json;   ///< Json, too, where the content is neither
  std::vector<LoadedView> m_views;  ///< in document order; one that is listed twice stands here twice
  Findings m_findings;              ///< in the order met
};

/// Why nothing of the document could be read, as the classes of its findings say; `ExitDone` when it could,
/// even where it turned out to hold no view. Visits all findings of a document without views.
QVT_EXPORT ExitCode getFailure(Document const& document);

}  // namespace qvToolkit
