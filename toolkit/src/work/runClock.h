#pragma once

#include <chrono>

#include "qvToolkit/outcome/outcome.h"

namespace qvToolkit {

/// Measures the work on one input, from its making on.
class RunClock {
 public:
  RunClock() : m_started(std::chrono::system_clock::now()), m_from(std::chrono::steady_clock::now()) {}

  /// Begin, end and duration, and the host; the rest is not known here.
  RunFacts describe() const;

 private:
  std::chrono::system_clock::time_point m_started;
  std::chrono::steady_clock::time_point m_from;
};

}  // namespace qvToolkit
