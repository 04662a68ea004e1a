#pragma once

#include <cstdint>
#include <string>

#include "qvSystem/export.h"

namespace qv {

/// Clock utilities.
class QV_EXPORT qvSystemUtils {
 public:
  /// Milliseconds since the epoch, 1970-01-01 00:00 UTC.
  static std::uint64_t GetMSecElapsedSinceEpoch();
};

/// Thread utilities.
class QV_EXPORT qvThread {
 public:
  /// Text that identifies the calling thread within the process.
  static std::string CurrentThreadId();
};

}  // namespace qv
