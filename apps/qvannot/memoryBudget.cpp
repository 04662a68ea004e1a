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

}  // namespace

namespace qvannot {

void admitAllocation(std::size_t size) {
  if (!isAdmitted(size)) refuse();
}

void* keepAllocation(void* memory) {
  if (memory == nullptr) refuse();
  allocated.fetch_add(malloc_usable_size(memory) + PieceOverhead, std::memory_order_relaxed);
  return memory;
}

void releaseAllocation(void* memory) noexcept {
  if (memory == nullptr) return;
  allocated.fetch_sub(malloc_usable_size(memory) + PieceOverhead, std::memory_order_relaxed);
  std::free(memory);
}

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
