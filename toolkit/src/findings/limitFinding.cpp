#include "qvToolkit/findings/limitFinding.h"

#include <string>
#include <utility>

#include "qvSystem/qvResourceLimit.h"

namespace qvToolkit {

namespace {

Finding makeFinding(FindingCode code, std::string text, char const* option) {
  return {code, Severity::Error, std::move(text), {}, {}, option};
}

/// Without a place in a document the offset is 0: no read begins there.
Finding makeFindingAt(std::uint64_t offset, FindingCode code, std::string const& text, char const* option) {
  if (offset == 0) return makeFinding(code, text, option);
  Finding finding = makeFinding(code, "byte " + std::to_string(offset) + ": " + text, option);
  finding.m_place.m_byteOffset = offset;
  return finding;
}

Finding describe(qv::qvResourceLimit const& error) {
  std::string const limit = std::to_string(error.GetLimit());
  switch (error.GetBudget()) {
    case qv::qvBudget::Memory:
      break;
    case qv::qvBudget::FailedReads:
      return makeFindingAt(
          error.GetOffset(), FindingCode::LimitFailedReads,
          "the document announces more than it holds; more than the limit of " + limit + " reads failed",
          "--max-failed-reads");
    case qv::qvBudget::Stack:
      return makeFindingAt(
          error.GetOffset(), FindingCode::LimitStack,
          "nested so deep that reading takes more than the limit of " + limit + " bytes of stack",
          "--max-stack");
    case qv::qvBudget::Time:
      return makeFindingAt(error.GetOffset(), FindingCode::LimitTime,
                           "reading takes longer than the limit of " + limit + " milliseconds", "--max-time");
    case qv::qvBudget::Bytes:
      return makeFinding(FindingCode::InputTooLarge,
                         "the input is larger than the limit of " + limit + " bytes", "--max-input");
  }
  return makeFindingAt(error.GetOffset(), FindingCode::LimitMemory,
                       "the document needs more memory than the limit of " + limit + " bytes",
                       "--max-memory");
}

}  // namespace

Finding makeLimitFinding(std::bad_alloc const& error) {
  auto const* const limit = dynamic_cast<qv::qvResourceLimit const*>(&error);
  if (limit != nullptr) return describe(*limit);
  return makeFinding(FindingCode::LimitMemory, "the document needs more memory than there is",
                     "--max-memory");
}

}  // namespace qvToolkit
