#pragma once

#include <string>

namespace qvToolkit {

/// What the names of all temporary files of a process begin with, so that whoever outlives it can remove
/// them.
inline std::string makeTemporaryPrefix(int process) {
  return ".qvannot-" + std::to_string(process) + "-";
}

}  // namespace qvToolkit
