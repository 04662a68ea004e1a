#include "qvSceneGraph/qvSceneGraphLibrary.h"

#include "qvSystem/libInitCounter.h"

namespace qv {

namespace {

/// Never destroyed, so that a late terminate finds it.
impl::LibInitCounter& counter() {
  static impl::LibInitCounter& instance = *new impl::LibInitCounter("qvSceneGraph", false);
  return instance;
}

}  // namespace

// The type records exist from load time on; a host only says how long it needs the library.
void initializeQvSceneGraph() {
  counter().incrementInitCounter();
}

void terminateQvSceneGraph() {
  counter().decrementInitCounter();
}

}  // namespace qv
