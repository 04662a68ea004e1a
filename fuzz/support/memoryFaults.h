#pragma once

#include <cstddef>
#include <cstdint>

namespace qvFuzz {

/// How the allocations of one run fail.
struct AllocationPlan {
  enum class Failures : std::uint8_t { None, Once, FromThenOn };

  Failures m_failures = Failures::None;
  std::uint32_t m_first = 0;  ///< allocations that succeed before
};

/// While one of these lives, `new` follows the plan, and no more than `maxLiveBytes` can be alive at a time
/// beyond what was when it was made. What cannot be had is `std::bad_alloc`. There is one at a time.
class MemoryFaults {
 public:
  static constexpr std::size_t MaxLiveBytes = std::size_t{64} << 20;

  explicit MemoryFaults(AllocationPlan const& plan, std::size_t maxLiveBytes = MaxLiveBytes) noexcept;
  ~MemoryFaults();
  MemoryFaults(MemoryFaults const&) = delete;
  MemoryFaults& operator=(MemoryFaults const&) = delete;

  /// Whether an allocation has failed in the current run: what swallows that may give less.
  static bool haveStruck() noexcept;
  /// Whether the current run's plan lets allocations fail.
  static bool arePlanned() noexcept;
  /// What `new` has given and `delete` has not got back, at any time.
  static std::size_t getLiveBytes() noexcept;
};

/// No allocation fails by plan while one of these lives.
class FaultPause {
 public:
  FaultPause() noexcept;
  ~FaultPause();
  FaultPause(FaultPause const&) = delete;
  FaultPause& operator=(FaultPause const&) = delete;
};

}  // namespace qvFuzz
