#pragma once

#include <cstddef>
#include <limits>
#include <new>

#include "annotationLegacy/export.h"

namespace qvLegacy::impl {

/// Storage of the legacy model's lists and run texts. All of it comes through these two functions, so that
/// where a loaded document lives is decided in one place. Throws `std::bad_alloc` when there is none left.
QVA_EXPORT void* allocateModelMemory(std::size_t size);
/// Gives storage back; null is allowed.
QVA_EXPORT void freeModelMemory(void* memory) noexcept;

/// Stateless standard allocator over the model storage: all instances are equal, so list nodes may be spliced
/// between any two lists.
template <class T>
class ModelAllocator {
 public:
  using value_type = T;  ///< what the containers ask for
  ModelAllocator() noexcept = default;
  /// From the allocator of another type.
  template <class U>
  ModelAllocator(ModelAllocator<U> const&) noexcept {}  // NOLINT(google-explicit-constructor): rebinding

  /// Storage for `count` objects; `std::bad_alloc` when there is none.
  T* allocate(std::size_t count) {
    if (count > std::numeric_limits<std::size_t>::max() / sizeof(T)) throw std::bad_array_new_length();
    return static_cast<T*>(allocateModelMemory(count * sizeof(T)));
  }
  /// Gives storage of `allocate` back.
  void deallocate(T* memory, std::size_t) noexcept { freeModelMemory(memory); }

  /// Always true.
  template <class U>
  friend bool operator==(ModelAllocator const&, ModelAllocator<U> const&) noexcept {
    return true;
  }
};

}  // namespace qvLegacy::impl
