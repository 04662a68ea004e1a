#include "qvToolkit/findings/limitFinding.h"

#include <string>
#include <utility>

#include "qvSystem/qvResourceLimit.h"

namespace qvToolkit {

namespace {

/// Without a place in a document the offset is 0: no read begins there.
Finding makeFindingAt(FindingCode code, std::uint64_t offset, std::string const& text) {
  if (offset == 0) return makeFinding(code, text);
  return makeFinding(code, "byte " + std::to_string(offset) + ": " + text, {}, {offset, {}, {}, {}});
}

Finding describe(qv::qvResourceLimit const& error) {
  std::string const limit = std::to_string(error.GetLimit());
  switch (error.GetBudget()) {
    case qv::qvBudget::Memory:
      break;
    case qv::qvBudget::FailedReads:
      return makeFindingAt(
          FindingCode::LimitFailedReads, error.GetOffset(),
          "the document announces more than it holds; more than the limit of " + limit + " reads failed");
    case qv::qvBudget::Stack:
      return makeFindingAt(
          FindingCode::LimitStack, error.GetOffset(),
          "nested so deep that reading takes more than the limit of " + limit + " bytes of stack");
    case qv::qvBudget::Time:
      return makeFindingAt(FindingCode::LimitTime, error.GetOffset(),
                           "reading takes longer than the limit of " + limit + " milliseconds");
    case qv::qvBudget::Bytes:
      return makeFinding(FindingCode::InputTooLarge,
                         "the input is larger than the limit of " + limit + " bytes");
  }
  return makeFindingAt(FindingCode::LimitMemory, error.GetOffset(),
                       "the document needs more memory than the limit of " + limit + " bytes");
}

}  // namespace

Finding makeLimitFinding(std::bad_alloc const& error) {
  auto const* const limit = dynamic_cast<qv::qvResourceLimit const*>(&error);
  if (limit != nullptr) return describe(*limit);
  return makeFinding(FindingCode::LimitMemory, "the document needs more memory than there is");
}

}  // namespace qvToolkit
