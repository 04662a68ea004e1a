#pragma once

#include <cstdint>
#include <string>

#include "annotationLegacy/qvAnnotationView.h"
#include "qvToolkit/reading/openDocument.h"

namespace qvFuzz {

/// A document of one view.
qvToolkit::Document makeDocument(qv::qvPointer<qvLegacy::qvAnnotationView> const& view);

/// Holds that a copy of a view equals it, unless copying cuts a run at a zero character, and that a copy of
/// the copy always does.
void requireEqualCopies(qvLegacy::qvAnnotationView const& view);

/// Writes the document at a version that can be written; what loses nothing must come back the same. With
/// `isLossless` nothing may be lost.
void requireRoundTrip(qvToolkit::Document const& document, std::uint32_t version, bool isLossless);

/// Holds that all that tells about a document is well-formed: text for a terminal, JSON.
void requireReports(qvToolkit::Document const& document);

/// Holds that the text is well-formed JSON without anything odd.
void requireJson(std::string text);

}  // namespace qvFuzz
