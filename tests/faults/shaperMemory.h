#pragma once

#include <cstdint>

namespace qvFaults {

/// The C allocations of this program that the shaping library asks for, and which of them fail. Those of
/// everybody else always succeed. Made of this program's own `malloc`, `calloc` and `realloc`, so of no use
/// beside a sanitizer that has its own.
class ShaperMemory {
 public:
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  static constexpr bool CanFail = false;
#else
  static constexpr bool CanFail = true;
#endif

  /// From now on `first` requests succeed and `count` ones behind them fail.
  static void fail(std::uint32_t first, std::uint32_t count) noexcept;
  /// From now on all requests succeed.
  static void heal() noexcept;
  /// Requests since the last call of the two above.
  static std::uint32_t getRequests() noexcept;
  static bool hasFailed() noexcept;
};

}  // namespace qvFaults
