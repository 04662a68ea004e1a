#include "qvSystem/libInitCounter.h"

#include <mutex>

#include "defaultLog.h"

namespace qv::impl {

struct LibInitCounter::State {
  std::string m_name;
  std::mutex m_mutex;
  unsigned int m_count = 0;
  bool m_reportLeaks = false;
};

LibInitCounter::LibInitCounter(char const* name, bool reportLeaks) : m_state(new State) {
  m_state->m_name = name == nullptr ? "" : name;
  m_state->m_reportLeaks = reportLeaks;
}

LibInitCounter::~LibInitCounter() {
  if (m_state->m_reportLeaks && m_state->m_count > 0) {
    qvLog::LogEntry entry;
    entry.m_type = qvLogWarning;
    entry.m_text =
        m_state->m_name + ": " + std::to_string(m_state->m_count) + " initialisation(s) not terminated";
    entry.computeLogPrefix(false);
    // Counters die while the process ends, when a host's log may be gone already.
    defaultLog().Write(entry, true);
  }
  delete m_state;
}

bool LibInitCounter::incrementInitCounter() {
  std::lock_guard const lock(m_state->m_mutex);
  return m_state->m_count++ == 0;
}

bool LibInitCounter::decrementInitCounter() {
  std::lock_guard const lock(m_state->m_mutex);
  return m_state->m_count > 0 && --m_state->m_count == 0;
}

}  // namespace qv::impl
