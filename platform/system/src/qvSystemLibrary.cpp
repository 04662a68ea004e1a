#include "qvSystem/qvSystemLibrary.h"

#include "qvSystem/libInitCounter.h"
#include "qvSystem/qvLog.h"
#include "qvSystem/qvSystemUtils.h"

namespace qv {

namespace {

/// Never destroyed, so that a late terminate finds it.
impl::LibInitCounter& counter() {
  static impl::LibInitCounter& instance = *new impl::LibInitCounter("qvSystem", false);
  return instance;
}

void writeTrace(char const* text) {
  if (qvLog::msInstance == nullptr || !qvLog::msInstance->IsTypeEnabled(qvLogTrace)) return;
  qvLog::LogEntry entry;
  entry.m_text = text;
  entry.m_time = qvSystemUtils::GetMSecElapsedSinceEpoch();
  entry.m_type = qvLogTrace;
  entry.computeLogPrefix(true);
  qvLog::msInstance->Write(entry, false);
}

char const* describe(InitType type) {
  switch (type) {
    case InitMinimal:
      return "system library initialised: types and variants";
    case InitStreams:
      return "system library initialised: types, variants and streams";
    case InitComplete:
      break;
  }
  return "system library initialised";
}

}  // namespace

// Everything that the types need exists from load time on, since static objects of other libraries use it;
// what is left to a host is to say how long it needs the library.
void initializeQvSystem(InitType type, bool verbose) {
  if (counter().incrementInitCounter() && verbose) writeTrace(describe(type));
}

void terminateQvSystem() {
  counter().decrementInitCounter();
}

}  // namespace qv
