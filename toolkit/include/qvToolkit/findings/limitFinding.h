#pragma once

#include <new>

#include "qvToolkit/export.h"
#include "qvToolkit/findings/finding.h"

namespace qvToolkit {

/// What ended a piece of work, as a finding: the budget that was used up, its size, the place where it ended
/// and the option that changes it; or that there is no more memory.
/// @code
/// Findings findings;
/// try {
///   throw std::bad_alloc();
/// } catch (std::bad_alloc const& error) {
///   findings.push_back(makeLimitFinding(error));
/// }
/// assert(findings[0].m_code == FindingCode::LimitMemory);
/// @endcode
/// A `qv::qvResourceLimit` names its budget; any other `std::bad_alloc` stands for memory.
QVT_EXPORT Finding makeLimitFinding(std::bad_alloc const& error);

}  // namespace qvToolkit
