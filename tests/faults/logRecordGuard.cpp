#include "logRecordGuard.h"

#include <dlfcn.h>

namespace qvFaults {

namespace {

constexpr char const* Destructor = "_ZN2qv11qvLogObjectD1Ev";

int recordsBeingWritten = 0;

}  // namespace

bool isWritingLogRecord() noexcept {
  return recordsBeingWritten > 0;
}

/// Declared under the destructor's own name: defined as a destructor, it would release the members itself.
__attribute__((visibility("default"))) void destroyLogRecord(void* record) asm("_ZN2qv11qvLogObjectD1Ev");

void destroyLogRecord(void* record) {
  static auto const original = reinterpret_cast<void (*)(void*)>(dlsym(RTLD_NEXT, Destructor));
  ++recordsBeingWritten;
  original(record);
  --recordsBeingWritten;
}

}  // namespace qvFaults
