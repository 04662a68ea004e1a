#pragma once

#include <cstddef>

#include "qvToolkit/work/session.h"
#include "reporter.h"

namespace qvannot {

/// Makes the session ready for the inputs of a command; for several of them fonts are looked for here, once
/// for all workers. False when it cannot do what was asked for, which is reported.
[[nodiscard]] bool prepare(qvToolkit::Session const& session, std::size_t inputs, Reporter& reporter);

}  // namespace qvannot
