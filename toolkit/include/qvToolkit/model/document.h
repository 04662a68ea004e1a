#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "annotationLegacy/qvAnnotationView.h"
#include "qvToolkit/findings/exitCode.h"
#include "qvToolkit/findings/finding.h"

namespace qvToolkit {

/// Encoding of a document, told by its content.
enum class Format : std::uint8_t { Json, ObjectStream };

/// One view of a document as the library's reader left it.
struct LoadedView {
  qv::qvPointer<qvLegacy::qvAnnotationView> m_view;  ///< null when the reader refused the view
  qv::qvStreamVersion m_version;
  std::string m_name;                   ///< known also for a refused view
  std::vector<std::string> m_messages;  ///< the reader's messages, in order
};

/// A document in memory.
struct Document {
  std::string m_path;
  Format m_format = Format::Json;
  std::vector<LoadedView> m_views;
  Findings m_findings;  ///< in the order met
  /// Why the document could not be opened at all; `ExitDone` when it could. Without views then.
  ExitCode m_failure = ExitDone;
};

}  // namespace qvToolkit
