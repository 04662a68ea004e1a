#pragma once

#include <string>
#include <string_view>

#include "qvToolkit/reading/openDocument.h"

namespace qvToolkit {

/// True when the first bytes may be those of JSON text; otherwise a finding of the document says what they
/// are.
bool isJson(Document& document, std::string_view content);

/// Reads JSON text into `document`: its views, as the library reads them, and what the readers say of them.
/// What is wrong is in the findings, with line, column and JSON pointer. `content` is given spare capacity;
/// it stays as it is. Throws `std::bad_alloc` only, of which a limit that is reached is a kind.
void readJsonDocument(Document& document, std::string& content, OpenLimits const& limits);

}  // namespace qvToolkit
