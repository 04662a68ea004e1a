#pragma once

#include "qvToolkit/export.h"
#include "qvToolkit/findings/finding.h"
#include "qvToolkit/json/jsonWriter.h"

namespace qvToolkit {

/// The findings as a JSON array, without a key. `option` holds the options that tolerate one, spelled as
/// `spelling` has them, here and wherever findings are part of a report; null without a spelling.
/// @code
/// JsonWriter json;
/// writeFindings(json, openDocument("bracket.json").m_findings);
/// std::cout << json.takeText();
/// @endcode
QVT_EXPORT void writeFindings(JsonWriter& json, Findings const& findings, OptionSpelling spelling = nullptr);

}  // namespace qvToolkit
