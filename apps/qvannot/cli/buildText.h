#pragma once

#include <string>

namespace qvannot {

/// What the tool was built from, for reports of faults: a line with the commit, and one with the libraries
/// that it works with and their versions.
std::string formatBuild();

}  // namespace qvannot
