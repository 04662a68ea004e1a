#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "files/fileDescriptor.h"
#include "qvToolkit/files/outputSink.h"
#include "qvToolkit/findings/finding.h"

namespace qvToolkit {

/// Keeps the migrated model in a nameless temporary file while the pages are written, which go to the results
/// before it.
class ModelSpool : public OutputSink {
 public:
  /// More than `most` bytes are in vain, and so are not kept.
  explicit ModelSpool(std::uint64_t most);

  [[nodiscard]] bool write(std::string_view bytes) override;
  /// Copies all that was written, and of what is too much enough for the sink to see that.
  [[nodiscard]] bool copyTo(OutputSink& sink);
  /// Why there is nothing to copy; nothing as long as there is.
  std::optional<Finding> const& findProblem() const noexcept { return m_problem; }

 private:
  std::uint64_t m_most;
  FileDescriptor m_file;
  std::uint64_t m_size = 0;
  std::string m_excess;  ///< that was not kept
  std::optional<Finding> m_problem;
};

}  // namespace qvToolkit
