#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>

#include "qvSystem/export.h"
#include "qvSystem/qvResourceLimit.h"

namespace qv {

/// What the loading of one document may use up. By default nothing is limited.
///
/// Nesting needs no budget of its own: the objects of a document do not contain each other, metadata are at
/// most 64 levels deep by their format, and whatever else recurses uses stack.
struct qvStreamLimits {
  static constexpr std::uint64_t Unlimited = std::numeric_limits<std::uint64_t>::max();

  /// Reads that get less than they ask for, which is what every read behind the end of the data does.
  std::uint64_t m_maxFailedReads = Unlimited;
  std::uint64_t m_maxStackBytes = Unlimited;
  std::uint64_t m_maxMilliseconds = Unlimited;
  std::uint64_t m_maxBytes = Unlimited;
};

/// Watches over the reads of one load.
///
/// Every primitive read of a bundled stream ends in one raw read, and every level of a recursion has to read
/// before it can go deeper: so a look at each raw read sees all that a document can make a reader do. Stack
/// and time are measured from the governor's construction, on whose thread the load must run.
class QV_EXPORT qvStreamGovernor {
 public:
  explicit qvStreamGovernor(qvStreamLimits const& limits) noexcept;

  /// To be asked with each raw read; `isShort` when it gets less than it asks for. False when a budget is
  /// used up: the read must not take place, nor any after it.
  bool admitRead(bool isShort) noexcept {
    auto const frame = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
    if (--m_readsUntilClock > 0 && !isShort && frame >= m_lowestFrame) return true;
    return admitUnusualRead(isShort, frame);
  }
  /// False when a document of that size is refused.
  bool admitBytes(std::uint64_t count) noexcept;

  /// The budget that was used up first.
  std::optional<qvBudget> GetExceeded() const noexcept { return m_exceeded; }
  /// Throws the `qvResourceLimit` that tells of the exceeded budget. `offset` counts from the origin.
  [[noreturn]] void Refuse(std::uint64_t offset) const;
  /// Where in the document the data of the next stream begin.
  void SetOrigin(std::uint64_t offset) noexcept { m_origin = offset; }

 private:
  bool admitUnusualRead(bool isShort, std::uintptr_t frame) noexcept;
  bool exceed(qvBudget budget) noexcept;
  std::uint64_t getLimit(qvBudget budget) const noexcept;

  std::uint32_t m_readsUntilClock;
  std::uintptr_t m_lowestFrame;
  std::uint64_t m_failedReads = 0;
  std::uint64_t m_origin = 0;
  std::chrono::steady_clock::time_point m_start;
  qvStreamLimits m_limits;
  std::optional<qvBudget> m_exceeded;
};

/// Bytes that are left on the stack of the calling thread.
[[nodiscard]] QV_EXPORT std::uint64_t GetStackBytesLeft() noexcept;

}  // namespace qv
