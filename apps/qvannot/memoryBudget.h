#pragma once

#include <cstdint>

namespace qvannot {

/// The memory that the whole process may hold by `new`, the libraries' allocations included. A request for
/// more than what is left throws `qv::qvResourceLimit` before anything is allocated.
///
/// The first refusal opens a small reserve for small requests, so that what the unwinding stack does, such as
/// writing a log record, does not fail for want of a few bytes.
void setMemoryBudget(std::uint64_t bytes) noexcept;

/// Bytes that are allocated now, with what the allocator adds to each piece.
std::uint64_t getAllocatedBytes() noexcept;

}  // namespace qvannot
