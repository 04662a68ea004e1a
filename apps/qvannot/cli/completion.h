#pragma once

#include <string>

#include "qvannot/cli/command.h"

namespace qvannot {

// Scripts that complete the tool's command line, each for one shell: commands, the options of each, and the
// files, folders or words that an option takes.

std::string formatBashCompletion(CommandRows commands);
std::string formatZshCompletion(CommandRows commands);
std::string formatFishCompletion(CommandRows commands);

}  // namespace qvannot
