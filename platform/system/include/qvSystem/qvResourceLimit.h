#pragma once

#include <cstdint>
#include <new>

#include "qvSystem/export.h"

namespace qv {

/// What a load may use up.
enum class qvBudget : std::uint8_t {
  Memory,       ///< bytes that are allocated and not yet freed
  FailedReads,  ///< reads that got less than they asked for
  Stack,        ///< bytes of call stack below the point where the load began
  Time,         ///< milliseconds since the load began
  Bytes,        ///< size of the document
};

/// A budget is used up.
///
/// It is the standard out-of-memory exception, so whoever copes with that one copes with this. Making it
/// allocates nothing, and its text is a literal.
class QV_EXPORT qvResourceLimit : public std::bad_alloc {
 public:
  /// `offset` is the place in the document where the budget ended, 0 where there is none.
  qvResourceLimit(qvBudget budget, std::uint64_t limit, std::uint64_t offset) noexcept
      : m_limit(limit), m_offset(offset), m_budget(budget) {}
  qvResourceLimit(qvResourceLimit const&) noexcept = default;
  qvResourceLimit& operator=(qvResourceLimit const&) noexcept = default;
  ~qvResourceLimit() override;

  char const* what() const noexcept override;
  qvBudget GetBudget() const noexcept { return m_budget; }
  std::uint64_t GetLimit() const noexcept { return m_limit; }
  std::uint64_t GetOffset() const noexcept { return m_offset; }

 private:
  std::uint64_t m_limit;
  std::uint64_t m_offset;
  qvBudget m_budget;
};

}  // namespace qv
