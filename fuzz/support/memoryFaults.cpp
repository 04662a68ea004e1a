#include "memoryFaults.h"

#include <malloc.h>

#include <cstdlib>
#include <limits>
#include <new>

namespace qvFuzz {

namespace {

using Failures = AllocationPlan::Failures;

struct State {
  AllocationPlan m_plan;
  std::size_t m_live = 0;
  std::size_t m_maxLive = std::numeric_limits<std::size_t>::max();
  std::uint32_t m_done = 0;
  int m_pauses = 0;
  bool m_hasStruck = false;
};

State state;

bool failsByPlan() noexcept {
  if (state.m_plan.m_failures == Failures::None || state.m_pauses > 0) return false;
  std::uint32_t const index = state.m_done++;
  return state.m_plan.m_failures == Failures::Once ? index == state.m_plan.m_first
                                                   : index >= state.m_plan.m_first;
}

/// Null when there is none to be had.
void* allocate(std::size_t size) noexcept {
  bool const isTooMuch = size > state.m_maxLive || state.m_live > state.m_maxLive - size;
  void* const memory = isTooMuch || failsByPlan() ? nullptr : std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) {
    state.m_hasStruck = true;
  } else {
    state.m_live += malloc_usable_size(memory);
  }
  return memory;
}

void* allocateOrThrow(std::size_t size) {
  void* const memory = allocate(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void release(void* memory) noexcept {
  if (memory == nullptr) return;
  state.m_live -= malloc_usable_size(memory);
  std::free(memory);
}

}  // namespace

MemoryFaults::MemoryFaults(AllocationPlan const& plan, std::size_t maxLiveBytes) noexcept {
  state.m_plan = plan;
  state.m_maxLive = state.m_live + maxLiveBytes;
  state.m_done = 0;
  state.m_hasStruck = false;
}

MemoryFaults::~MemoryFaults() {
  state.m_plan = {};
  state.m_maxLive = std::numeric_limits<std::size_t>::max();
}

bool MemoryFaults::haveStruck() noexcept {
  return state.m_hasStruck;
}

bool MemoryFaults::arePlanned() noexcept {
  return state.m_plan.m_failures != Failures::None;
}

std::size_t MemoryFaults::getLiveBytes() noexcept {
  return state.m_live;
}

FaultPause::FaultPause() noexcept {
  ++state.m_pauses;
}
FaultPause::~FaultPause() {
  --state.m_pauses;
}

}  // namespace qvFuzz

void* operator new(std::size_t size) {
  return qvFuzz::allocateOrThrow(size);
}
void* operator new[](std::size_t size) {
  return qvFuzz::allocateOrThrow(size);
}
void* operator new(std::size_t size, std::nothrow_t const&) noexcept {
  return qvFuzz::allocate(size);
}
void* operator new[](std::size_t size, std::nothrow_t const&) noexcept {
  return qvFuzz::allocate(size);
}
void operator delete(void* memory) noexcept {
  qvFuzz::release(memory);
}
void operator delete[](void* memory) noexcept {
  qvFuzz::release(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  qvFuzz::release(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  qvFuzz::release(memory);
}
void operator delete(void* memory, std::nothrow_t const&) noexcept {
  qvFuzz::release(memory);
}
void operator delete[](void* memory, std::nothrow_t const&) noexcept {
  qvFuzz::release(memory);
}
