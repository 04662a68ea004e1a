#pragma once

#include <string>

#include "qvannot/cli/command.h"

namespace qvannot {

/// What `qvannot --help` prints: worked examples first, then options, commands and exit codes.
std::string formatToolHelp(CommandRows commands);

/// What `qvannot COMMAND --help` prints.
std::string formatCommandHelp(CommandRow const& command);

/// How a command is called: "qvannot migrate FILE... -o DIR [OPTION...]".
std::string formatUsage(CommandRow const& command);

}  // namespace qvannot
