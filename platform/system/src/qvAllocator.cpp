#include "qvSystem/qvAllocator.h"

namespace qv {

void* AllocateDocumentMemory(std::size_t size) {
  return ::operator new(size);
}

void FreeDocumentMemory(void* memory) noexcept {
  ::operator delete(memory);
}

}  // namespace qv
