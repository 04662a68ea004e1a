#pragma once

#include <cstddef>

#include "reporter.h"
#include "toolkit/fontSettings.h"

namespace qvannot {

/// Lets the process use the fonts that a command names; for several inputs they are looked for here, once for
/// all workers. False when one of the folders cannot be used, which is reported.
[[nodiscard]] bool chooseFonts(qvToolkit::FontOptions const& options, std::size_t inputs, Reporter& reporter);

}  // namespace qvannot
