#pragma once

#include <algorithm>
#include <cstdint>

#include "qvSystem/qvStreamGovernor.h"
#include "qvToolkit/reading/openDocument.h"

namespace qvToolkit {

/// The stack that reading a document may take from here on: a part of what is left, since what comes after
/// it, such as an exception's way out, needs some, too.
[[nodiscard]] inline std::uint64_t getStackBudget(OpenLimits const& limits) noexcept {
  constexpr std::uint64_t Share = 4;
  return std::min(limits.m_maxStackBytes, qv::GetStackBytesLeft() / Share);
}

}  // namespace qvToolkit
