#pragma once

#include <cstdint>
#include <string>

#include "files/temporaryFile.h"

namespace qvToolkit {

/// A nameless temporary file: what a worker writes goes here first, so that nothing of it is seen before it
/// is known to be whole.
class Spool {
 public:
  /// -1 when there is no room for temporary files.
  int getDescriptor() const noexcept { return m_file.get(); }
  std::uint64_t getSize() const;
  /// At most `count` bytes from `offset` on.
  std::string read(std::uint64_t offset, std::uint64_t count) const;

 private:
  FileDescriptor m_file = openTemporaryFile();
};

}  // namespace qvToolkit
