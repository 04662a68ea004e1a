#pragma once

#include "limits.h"

namespace CLI {
class App;
}

namespace qvannot {

/// Adds an option for each limit, and the one that lifts all.
void addLimits(CLI::App& command, Limits& limits);

}  // namespace qvannot
