#pragma once

#include <exception>
#include <utility>

namespace qvLegacy {

/// Runs an action when its scope is left by an exception, and only then. The action must not throw.
template <class Action>
class [[nodiscard]] OnFailure {
 public:
  explicit OnFailure(Action action) : m_action(std::move(action)) {}
  ~OnFailure() {
    if (std::uncaught_exceptions() > m_exceptionsAtStart) m_action();
  }
  OnFailure(OnFailure const&) = delete;
  OnFailure& operator=(OnFailure const&) = delete;

 private:
  Action m_action;
  int m_exceptionsAtStart = std::uncaught_exceptions();
};

}  // namespace qvLegacy
