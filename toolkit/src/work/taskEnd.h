#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "qvToolkit/findings/finding.h"
#include "qvToolkit/outcome/limits.h"

namespace qvToolkit {

/// How the process of a task ended, as the worker program tells its client.
struct TaskEnd {
  std::uint64_t m_task = 0;        ///< number that the client gave it
  int m_status = 0;                ///< as `waitpid` has it
  bool m_isOverdue = false;        ///< it was killed since it took too long by the clock
  int m_problem = 0;               ///< the system's error number when it could not be started
  std::int64_t m_process = 0;      ///< its number
  double m_processorSeconds = 0;   ///< with what it has started and waited for
  std::uint64_t m_peakMemory = 0;  ///< bytes
};

/// As the bytes of a frame.
std::string formatTaskEnd(TaskEnd const& end);
/// Nothing for what nobody formatted.
std::optional<TaskEnd> parseTaskEnd(std::string text);

/// Of what the process died; nothing when it came to an end by itself. `isWhole` tells that it left a whole
/// answer.
std::optional<Finding> findDeath(TaskEnd const& end, Limits const& limits, bool isWhole);

}  // namespace qvToolkit
