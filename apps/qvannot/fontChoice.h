#pragma once

#include <cstddef>

#include "qvToolkit/migration/fontSettings.h"
#include "reporter.h"

namespace qvannot {

/// Lets the process use the fonts that a command names; for several inputs they are looked for here, once for
/// all workers. False when one of the folders cannot be used, which is reported.
[[nodiscard]] bool chooseFonts(qvToolkit::FontOptions const& options, std::size_t inputs, Reporter& reporter);

}  // namespace qvannot
