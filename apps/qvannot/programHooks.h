#pragma once

#include "qvToolkit/work/workerProgram.h"

namespace qvannot {

/// What this program brings along for the work on documents: its counting allocator, how it spells options,
/// and where records of the libraries go.
qvToolkit::ProgramHooks makeProgramHooks();

}  // namespace qvannot
