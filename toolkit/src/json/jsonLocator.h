#pragma once

#include <string_view>

#include "qvToolkit/findings/finding.h"

namespace qvToolkit {

/// Fills in offset, line and column of those findings that have a JSON pointer only, in one pass over the
/// text. The text must be well-formed JSON; a pointer that leads nowhere leaves its finding as it is. Of
/// equal keys the last counts.
void locateFindings(std::string_view text, Findings& findings);

}  // namespace qvToolkit
