#include "annotationLegacy/modelAllocator.h"

namespace qvLegacy::impl {

void* allocateModelMemory(std::size_t size) {
  return ::operator new(size);
}

void freeModelMemory(void* memory) noexcept {
  ::operator delete(memory);
}

}  // namespace qvLegacy::impl
