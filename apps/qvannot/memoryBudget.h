#pragma once

#include <cstddef>
#include <cstdint>

namespace qvannot {

/// The memory that the whole process may hold by `new`, the libraries' allocations included. A request for
/// more than what is left throws `qv::qvResourceLimit` before anything is allocated.
///
/// `uncountedBytes` are taken beside them, such as by code and fonts, and count as used.
///
/// The first refusal opens a small reserve for small requests, so that what the unwinding stack does, such as
/// writing a log record, does not fail for want of a few bytes.
void setMemoryBudget(std::uint64_t bytes, std::uint64_t uncountedBytes = 0) noexcept;

/// Bytes that are allocated now, with what the allocator adds to each piece.
std::uint64_t getAllocatedBytes() noexcept;
/// The budget, and what is left of it.
std::uint64_t getMemoryBudget() noexcept;
std::uint64_t getMemoryLeft() noexcept;
/// Bytes of the process that lie in memory now and are not counted; 0 where the system does not say.
std::uint64_t getUncountedBytes();

// For the operators `new` and `delete`, which stand in a file of their own: a program with others can still
// have the rest of the tool.

/// Throws when a request is not within the budget.
void admitAllocation(std::size_t size);
/// Counts what the allocator gave, and returns it. The system refuses, too: nothing given throws.
void* keepAllocation(void* memory);
/// Takes it from the count, and gives it back.
void releaseAllocation(void* memory) noexcept;

}  // namespace qvannot
