#pragma once

#include <string>

#include "annotationLegacy/qvLogObject.h"
#include "ports/log.h"

namespace qvLegacy::migration {

/// Writes one record to the process log; what goes wrong here is passed over.
inline void report(std::string const& text) {
  qv::qvLogObject(ports::LOG_ERROR, nullptr, qv::qvLog::msInstance, nullptr, true) << text;
}

/// Writes one record to the process log and is false: `return fail("Empty frame");`.
[[nodiscard]] inline bool fail(std::string const& text) {
  report(text);
  return false;
}

}  // namespace qvLegacy::migration
