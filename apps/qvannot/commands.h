#pragma once

#include <string>

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
/// Works on no file: it tells what the catalogue of findings holds.
void run(ExplainCommand const& command, Reporter& reporter);

/// What is wrong with the code that is to be explained; empty when nothing is.
std::string refuseCode(std::string const& text);

}  // namespace qvannot
