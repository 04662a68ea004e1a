#include "qvSystem/qvStreamGovernor.h"

#include <pthread.h>

namespace qv {

namespace {

/// Reads between two looks at the clock: one look costs as much as some ten reads.
constexpr std::uint32_t readsPerLook = 4096;

std::uintptr_t getFrame() noexcept {
  return reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
}

std::uintptr_t getLowestFrame(std::uint64_t maxStackBytes) noexcept {
  std::uintptr_t const here = getFrame();
  return maxStackBytes >= here ? 0 : here - maxStackBytes;
}

/// The highest address when it cannot be found, so that nothing is left.
std::uintptr_t findLowestOfStack() noexcept {
  pthread_attr_t attributes;
  if (pthread_getattr_np(pthread_self(), &attributes) != 0) return ~std::uintptr_t{0};
  void* lowest = nullptr;
  std::size_t size = 0;
  int const error = pthread_attr_getstack(&attributes, &lowest, &size);
  pthread_attr_destroy(&attributes);
  return error != 0 ? ~std::uintptr_t{0} : reinterpret_cast<std::uintptr_t>(lowest);
}

}  // namespace

qvStreamGovernor::qvStreamGovernor(qvStreamLimits const& limits) noexcept
    : m_readsUntilClock(readsPerLook),
      m_lowestFrame(getLowestFrame(limits.m_maxStackBytes)),
      m_start(std::chrono::steady_clock::now()),
      m_limits(limits) {
}

bool qvStreamGovernor::admitBytes(std::uint64_t count) noexcept {
  return count <= m_limits.m_maxBytes || exceed(qvBudget::Bytes);
}

bool qvStreamGovernor::admitUnusualRead(bool isShort, std::uintptr_t frame) noexcept {
  if (m_exceeded.has_value()) return false;
  if (frame < m_lowestFrame) return exceed(qvBudget::Stack);
  if (isShort && ++m_failedReads > m_limits.m_maxFailedReads) return exceed(qvBudget::FailedReads);
  if (m_readsUntilClock > 0) return true;
  m_readsUntilClock = readsPerLook;
  auto const elapsed =
      std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - m_start);
  return static_cast<std::uint64_t>(elapsed.count()) <= m_limits.m_maxMilliseconds || exceed(qvBudget::Time);
}

/// From here on every read takes the long way and is refused.
bool qvStreamGovernor::exceed(qvBudget budget) noexcept {
  m_exceeded = budget;
  m_lowestFrame = ~std::uintptr_t{0};
  return false;
}

std::uint64_t qvStreamGovernor::getLimit(qvBudget budget) const noexcept {
  switch (budget) {
    case qvBudget::FailedReads:
      return m_limits.m_maxFailedReads;
    case qvBudget::Stack:
      return m_limits.m_maxStackBytes;
    case qvBudget::Time:
      return m_limits.m_maxMilliseconds;
    case qvBudget::Bytes:
      return m_limits.m_maxBytes;
    case qvBudget::Memory:
      break;
  }
  return qvStreamLimits::Unlimited;
}

void qvStreamGovernor::Refuse(std::uint64_t offset) const {
  qvBudget const budget = m_exceeded.value_or(qvBudget::Bytes);
  throw qvResourceLimit(budget, getLimit(budget), m_origin + offset);
}

std::uint64_t GetStackBytesLeft() noexcept {
  // Found once: for the first thread, the system goes through all mappings of the process.
  thread_local std::uintptr_t const lowest = findLowestOfStack();
  std::uintptr_t const here = getFrame();
  return lowest < here ? here - lowest : 0;
}

}  // namespace qv
