#pragma once

#include <string>

#include "qvannot/cli/command.h"

namespace qvannot {

/// The manual page of the tool and all of its commands, for man(1).
std::string formatManualPage(CommandRows commands);

}  // namespace qvannot
