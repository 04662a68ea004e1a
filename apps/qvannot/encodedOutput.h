#pragma once

#include "cli/option.h"
#include "documentRun.h"

namespace qvannot {

/// The rows of a command that writes one object stream, but for the limits and the version.
Options makeEncodedOutputOptions(DocumentRun& run);
Option makeStreamVersionOption(qvToolkit::Request& request);

}  // namespace qvannot
