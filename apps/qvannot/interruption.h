#pragma once

namespace qvannot {

/// Lets the tool end tidily: SIGINT and SIGTERM are remembered once, a second one ends the process at once; a
/// closed pipe and a file size limit show as write errors; processes that end are waited for, whatever the
/// caller of the tool makes of them.
void installSignalHandling();

/// The number of the signal that asks the tool to end; 0 for none.
volatile int const* getInterruption();

/// Ends the process by the remembered signal, so that the caller's shell sees it. Returns when there is none.
void endByInterruption();

}  // namespace qvannot
