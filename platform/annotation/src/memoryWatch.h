#pragma once

#include <cerrno>
#include <new>

namespace qv::text {

/// Tells whether memory ran out within a library that goes on without saying so: HarfBuzz takes a table that
/// it has no memory for as one that the font does not have, and letters are gone. What a failed allocation
/// always leaves behind is `errno`. One at a time on a thread, around calls of such a library alone.
class MemoryWatch {
 public:
  MemoryWatch() noexcept : m_before(errno) { errno = 0; }
  ~MemoryWatch() {
    if (errno == 0) errno = m_before;
  }
  MemoryWatch(MemoryWatch const&) = delete;
  MemoryWatch& operator=(MemoryWatch const&) = delete;

  bool hasFailed() const noexcept { return errno == ENOMEM; }
  /// Throws `std::bad_alloc` when an allocation has failed.
  void check() const {
    if (hasFailed()) throw std::bad_alloc();
  }

 private:
  int m_before;
};

}  // namespace qv::text
