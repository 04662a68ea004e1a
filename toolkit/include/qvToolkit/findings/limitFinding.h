#pragma once

#include <new>

#include "qvToolkit/findings/finding.h"

namespace qvToolkit {

/// What ended a piece of work, as a finding: the budget that was used up, its size, the place where it ended
/// and the option that changes it; or that there is no more memory.
Finding makeLimitFinding(std::bad_alloc const& error);

}  // namespace qvToolkit
