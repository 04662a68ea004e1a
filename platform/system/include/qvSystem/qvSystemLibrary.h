#pragma once

#include "qvSystem/export.h"

namespace qv {

/// How much of the system library a host needs.
enum InitType : int {
  InitMinimal = 0,   ///< types and variants
  InitStreams = 1,   ///< and object streams
  InitComplete = 2,  ///< and the process log
};

/// Counted initialisation of the system library. `verbose` writes a trace record to the process log.
QV_EXPORT void initializeQvSystem(InitType type, bool verbose);
QV_EXPORT void terminateQvSystem();

}  // namespace qv
