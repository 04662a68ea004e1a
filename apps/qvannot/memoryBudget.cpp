#include "memoryBudget.h"

#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <new>

#include "qvSystem/qvResourceLimit.h"

namespace {

/// What the allocator keeps with each piece.
constexpr std::uint64_t PieceOverhead = 8;
constexpr std::uint64_t Reserve = std::uint64_t{256} << 10;
constexpr std::uint64_t SmallRequest = std::uint64_t{4} << 10;

// Relaxed counters: the tool works on one thread, and the budget needs no order between several.
std::atomic<std::uint64_t> allocated = 0;
std::atomic<std::uint64_t> budget = std::numeric_limits<std::uint64_t>::max();
std::atomic<std::uint64_t> uncounted = 0;
std::atomic<std::uint64_t> reserve = 0;

std::uint64_t getUsed() noexcept {
  return allocated.load(std::memory_order_relaxed) + uncounted.load(std::memory_order_relaxed);
}

bool isAdmitted(std::uint64_t size) noexcept {
  std::uint64_t const limit = budget.load(std::memory_order_relaxed);
  std::uint64_t const used = getUsed();
  if (used <= limit && size <= limit - used) return true;
  std::uint64_t const open = reserve.exchange(Reserve, std::memory_order_relaxed);
  return size <= SmallRequest && used + size <= limit + open;
}

[[noreturn]] void refuse() {
  std::uint64_t const limit = budget.load(std::memory_order_relaxed);
  if (limit == std::numeric_limits<std::uint64_t>::max()) throw std::bad_alloc();
  throw qv::qvResourceLimit(qv::qvBudget::Memory, limit, 0);
}

/// The system refuses, too: what libraries take beside the counter is limited with the rest.
void* keepCount(void* memory) {
  if (memory == nullptr) refuse();
  allocated.fetch_add(malloc_usable_size(memory) + PieceOverhead, std::memory_order_relaxed);
  return memory;
}

void admit(std::size_t size) {
  if (!isAdmitted(size)) refuse();
}

void release(void* memory) noexcept {
  if (memory == nullptr) return;
  allocated.fetch_sub(malloc_usable_size(memory) + PieceOverhead, std::memory_order_relaxed);
  std::free(memory);
}

}  // namespace

// The standard library's other forms end in these. Those of sanitizers do not, so that what is given back
// here must be taken here.

void* operator new(std::size_t size) {
  admit(size);
  return keepCount(std::malloc(std::max<std::size_t>(size, 1)));
}

void* operator new(std::size_t size, std::align_val_t alignment) {
  auto const step = std::max(static_cast<std::size_t>(alignment), sizeof(void*));
  admit(size);
  void* memory = nullptr;
  return keepCount(posix_memalign(&memory, step, std::max<std::size_t>(size, 1)) == 0 ? memory : nullptr);
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
  release(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
  release(memory);
}

void operator delete(void* memory, std::nothrow_t const&) noexcept {
  release(memory);
}

void operator delete(void* memory, std::align_val_t) noexcept {
  release(memory);
}

void operator delete(void* memory, std::size_t, std::align_val_t) noexcept {
  release(memory);
}

void operator delete(void* memory, std::align_val_t, std::nothrow_t const&) noexcept {
  release(memory);
}

namespace qvannot {

void setMemoryBudget(std::uint64_t bytes, std::uint64_t uncountedBytes) noexcept {
  budget.store(bytes, std::memory_order_relaxed);
  uncounted.store(uncountedBytes, std::memory_order_relaxed);
  reserve.store(0, std::memory_order_relaxed);
}

std::uint64_t getAllocatedBytes() noexcept {
  return allocated.load(std::memory_order_relaxed);
}

std::uint64_t getMemoryBudget() noexcept {
  return budget.load(std::memory_order_relaxed);
}

std::uint64_t getMemoryLeft() noexcept {
  // Pieces that are free, but still held, are no one's.
  malloc_trim(0);
  std::uint64_t const limit = getMemoryBudget();
  return limit - std::min(limit, getUsed());
}

std::uint64_t getUncountedBytes() {
  std::uint64_t mapped = 0;
  std::uint64_t resident = 0;
  std::ifstream("/proc/self/statm") >> mapped >> resident;
  resident *= static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
  return resident - std::min(resident, getAllocatedBytes());
}

}  // namespace qvannot
