#pragma once

#include <string>

namespace qvToolkit {

/// Opens the file `path` below the folder `folder` for reading, without blocking. Symbolic links are not
/// followed anywhere on the way, and nothing outside the folder is reached. Returns the descriptor, or -1
/// with errno set. `path` is relative, not empty, and has no ".." part.
int openBeneath(int folder, std::string const& path);

/// The same, without the kernel's help: one folder after the other. For kernels that lack openat2.
int openBeneathStepwise(int folder, std::string const& path);

}  // namespace qvToolkit
