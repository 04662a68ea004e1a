#include "qvSystem/qvResourceLimit.h"

namespace qv {

qvResourceLimit::~qvResourceLimit() = default;

char const* qvResourceLimit::what() const noexcept {
  switch (m_budget) {
    case qvBudget::Memory:
      return "the memory budget is used up";
    case qvBudget::FailedReads:
      return "the budget of failed reads is used up";
    case qvBudget::Stack:
      return "the stack budget is used up";
    case qvBudget::Time:
      return "the time budget is used up";
    case qvBudget::Bytes:
      return "the document is larger than its budget";
  }
  return "a budget is used up";
}

}  // namespace qv
