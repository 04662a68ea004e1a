#pragma once

#include <string>

namespace qvToolkit {

/// A document of text as drawings have it: in the font that they ask for most and its styles, with the signs
/// of tolerances and holes. What a process has found, read and measured for it, its forks have, too.
std::string makeWarmText();

}  // namespace qvToolkit
