#pragma once

#include "commandLine.h"
#include "reporter.h"

namespace qvannot {

/// Each command works through its files in order; one that fails does not stop the others. The library must
/// be initialised.
void run(InspectCommand const& command, Reporter& reporter);
void run(MigrateCommand const& command, Reporter& reporter);
void run(EncodeCommand const& command, Reporter& reporter);
void run(TransformCommand const& command, Reporter& reporter);
void run(DumpCommand const& command, Reporter& reporter);
void run(FontsCommand const& command, Reporter& reporter);

}  // namespace qvannot
