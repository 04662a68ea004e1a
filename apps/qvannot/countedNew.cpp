#include <algorithm>
#include <cstdlib>
#include <new>

#include "memoryBudget.h"

using qvannot::admitAllocation;
using qvannot::keepAllocation;
using qvannot::releaseAllocation;

// The standard library's other forms end in these. Those of sanitizers do not, so that what is given back
// here must be taken here.

void* operator new(std::size_t size) {
  admitAllocation(size);
  return keepAllocation(std::malloc(std::max<std::size_t>(size, 1)));
}

void* operator new(std::size_t size, std::align_val_t alignment) {
  auto const step = std::max(static_cast<std::size_t>(alignment), sizeof(void*));
  admitAllocation(size);
  void* memory = nullptr;
  return keepAllocation(posix_memalign(&memory, step, std::max<std::size_t>(size, 1)) == 0 ? memory
                                                                                           : nullptr);
}

void* operator new(std::size_t size, std::nothrow_t const&) noexcept {
  try {
    return operator new(size);
  } catch (std::bad_alloc const&) {
    return nullptr;
  }
}

void* operator new(std::size_t size, std::align_val_t alignment, std::nothrow_t const&) noexcept {
  try {
    return operator new(size, alignment);
  } catch (std::bad_alloc const&) {
    return nullptr;
  }
}

void operator delete(void* memory) noexcept {
  releaseAllocation(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
  releaseAllocation(memory);
}

void operator delete(void* memory, std::nothrow_t const&) noexcept {
  releaseAllocation(memory);
}

void operator delete(void* memory, std::align_val_t) noexcept {
  releaseAllocation(memory);
}

void operator delete(void* memory, std::size_t, std::align_val_t) noexcept {
  releaseAllocation(memory);
}

void operator delete(void* memory, std::align_val_t, std::nothrow_t const&) noexcept {
  releaseAllocation(memory);
}
