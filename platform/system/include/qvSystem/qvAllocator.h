#pragma once

#include <cstddef>
#include <limits>
#include <new>

#include "qvSystem/export.h"

namespace qv {

/// Storage of variants and of the scene graph's objects. Everything that a document's load creates in number
/// comes through these two functions, so that where it lives (heap or an arena) is decided in one place.
QV_EXPORT void* AllocateDocumentMemory(std::size_t size);
QV_EXPORT void FreeDocumentMemory(void* memory) noexcept;

/// Stateless standard allocator over the document storage: all instances are equal.
template <class T>
class qvAllocator {
 public:
  using value_type = T;
  qvAllocator() noexcept = default;
  template <class U>
  qvAllocator(qvAllocator<U> const&) noexcept {}  // NOLINT(google-explicit-constructor): rebinding

  T* allocate(std::size_t count) {
    if (count > std::numeric_limits<std::size_t>::max() / sizeof(T)) throw std::bad_array_new_length();
    return static_cast<T*>(AllocateDocumentMemory(count * sizeof(T)));
  }
  void deallocate(T* memory, std::size_t) noexcept { FreeDocumentMemory(memory); }

  template <class U>
  friend bool operator==(qvAllocator const&, qvAllocator<U> const&) noexcept {
    return true;
  }
};

}  // namespace qv
