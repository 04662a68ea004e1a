#pragma once

#include <memory>
#include <utility>

#include "qvSystem/qvVariant.h"

namespace qv::impl {

/// Makes a T in the document storage.
template <class T, class... Arguments>
T* makeOwned(Arguments&&... arguments) {
  qvAllocator<T> allocator;
  T* const memory = allocator.allocate(1);
  try {
    return std::construct_at(memory, std::forward<Arguments>(arguments)...);
  } catch (...) {
    allocator.deallocate(memory, 1);
    throw;
  }
}

template <class T>
void destroyOwned(T* object) noexcept {
  std::destroy_at(object);
  qvAllocator<T>().deallocate(object, 1);
}

/// True for a map or list that holds another map or list: releasing it plainly would recurse.
bool holdsContainers(qvVariant const& value) noexcept;

/// Empties a tree of maps and lists of any depth without recursion and without allocating: `value` is null
/// after it.
void releaseTree(qvVariant& value) noexcept;

/// A deep copy of a tree of any depth, without recursion.
qvVariant copyTree(qvVariant const& source);

}  // namespace qv::impl
