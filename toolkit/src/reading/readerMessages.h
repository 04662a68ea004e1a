#pragma once

#include <string_view>

#include "qvToolkit/findings/finding.h"

namespace qvToolkit {

/// What a message of the variant readers cost: an error where something of the document was lost, a warning
/// where only its look changed. A text that is not known weighs as an error.
Severity getReaderMessageSeverity(std::string_view message);

}  // namespace qvToolkit
