#pragma once

#include <string_view>

#include "qvToolkit/reading/openDocument.h"

namespace qvToolkit {

/// True when the content begins as an object stream does.
bool isObjectStream(std::string_view content);

/// Reads an object stream into `document`: the views that metadata objects list, in their order, then those
/// that none lists; each view once, however often it is listed. What is wrong is in the findings, with object
/// id and byte offset. Throws `std::bad_alloc` only, of which
/// a limit that is reached is a kind.
void readStreamDocument(Document& document, std::string_view content, OpenLimits const& limits);

}  // namespace qvToolkit
