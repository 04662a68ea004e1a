#pragma once

#include "reporter.h"
#include "toolkit/fontSettings.h"

namespace qvannot {

/// Lets the process use the fonts that a command names. False when one of the folders cannot be used, which
/// is reported.
[[nodiscard]] bool chooseFonts(qvToolkit::FontOptions const& options, Reporter& reporter);

}  // namespace qvannot
