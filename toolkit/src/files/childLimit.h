#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "files/childProcess.h"
#include "qvToolkit/findings/finding.h"

namespace qvToolkit {

/// Which limit a program ran into, as a finding. Nothing for one that came to an end by itself, well or not.
/// `memoryLimit` is the budget, of which it got what was left, or `ChildCommand::Unlimited`.
std::optional<Finding> findChildLimit(std::string const& program, ChildRun const& run,
                                      std::uint64_t memoryLimit);

}  // namespace qvToolkit
