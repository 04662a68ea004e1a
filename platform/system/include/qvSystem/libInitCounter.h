#pragma once

#include <string>

#include "qvSystem/export.h"

namespace qv::impl {

/// Counts nested initialisations of one library. Thread-safe counting; what happens between the calls is the
/// library's business.
class QV_EXPORT LibInitCounter {
 public:
  /// `name` is the library's name; `reportLeaks` asks for a warning on standard error at destruction when
  /// initialisations are left without their termination.
  LibInitCounter(char const* name, bool reportLeaks);
  ~LibInitCounter();
  LibInitCounter(LibInitCounter const&) = delete;
  LibInitCounter& operator=(LibInitCounter const&) = delete;

  /// True only for the call that must perform the initialisation, the first.
  bool incrementInitCounter();
  /// True only for the call that must perform the termination, the last. Without a matching increment: false,
  /// and the count stays 0.
  bool decrementInitCounter();

 private:
  struct State;
  State* m_state;
};

}  // namespace qv::impl
