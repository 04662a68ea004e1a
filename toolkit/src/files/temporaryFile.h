#pragma once

#include "files/fileDescriptor.h"

namespace qvToolkit {

/// A temporary file that never has a name, so that nothing of it is left however the process ends. It lies in
/// the folder for temporary files, or in memory where that has no room or cannot do without names. Not open,
/// with errno set, when there is no file to be had.
FileDescriptor openTemporaryFile();

/// A file in memory, whose number is none of the standard streams'.
FileDescriptor openMemoryFile();

}  // namespace qvToolkit
