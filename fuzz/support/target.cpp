#include "target.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <new>

#include "qvSceneGraph/qvObject.h"
#include "qvToolkit/work/session.h"

namespace qvFuzz {

namespace {

/// Most runs end where a count asks for more than this: to fill more takes its time, and shows nothing new.
constexpr std::size_t UsualLiveBytes = std::size_t{2} << 20;

struct MemoryPlan {
  AllocationPlan m_failures;
  std::size_t m_maxLiveBytes;
};

/// The last three bytes: how allocations fail, and where. They do in half of the runs.
MemoryPlan takePlan(InputCursor& input) {
  using Failures = AllocationPlan::Failures;
  std::uint8_t const mode = input.takeLastByte();
  std::uint32_t const low = input.takeLastByte();
  std::uint32_t const high = input.takeLastByte();
  std::size_t const maxLiveBytes = mode >= 248 ? MemoryFaults::MaxLiveBytes : UsualLiveBytes;
  if (mode % 2 == 0) return {{}, maxLiveBytes};
  return {{mode % 4 == 1 ? Failures::Once : Failures::FromThenOn, low + 256 * (high % 16)}, maxLiveBytes};
}

void run(InputCursor& input) {
  MemoryPlan const plan = takePlan(input);
  MemoryFaults const faults(plan.m_failures, plan.m_maxLiveBytes);
  try {
    runTarget(input);
  } catch (std::bad_alloc const&) {  // the one exception that may leave
  }
}

}  // namespace

void require(bool holds, std::string_view text) {
  requireNone(holds ? "" : "no", text);
}

void requireNone(std::string_view problem, std::string_view text) {
  if (problem.empty()) return;
  std::fprintf(stderr, "broken: %.*s: %.*s\n", static_cast<int>(text.size()), text.data(),
               static_cast<int>(problem.size()), problem.data());
  std::abort();
}

void requirePrintable(std::string_view text) {
  auto const isControl = [](char c) {
    return (static_cast<unsigned char>(c) < 0x20 && c != '\n') || c == '\x7F';
  };
  require(std::ranges::none_of(text, isControl), "text for a terminal holds no control character");
}

}  // namespace qvFuzz

/// Patterns of fontconfig hold their elements by offsets, which the leak check does not follow.
extern "C" char const* __lsan_default_suppressions() {
  return "leak:libfontconfig\n";
}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* bytes, std::size_t size) {
  // Kept for the whole process: what is set up once is no part of a run.
  static qvToolkit::Session const session;
  std::size_t const objectsBefore = qv::qvObject::GetLiveObjects();
  qvFuzz::InputCursor input({bytes, size});
  qvFuzz::run(input);
  qvFuzz::require(qv::qvObject::GetLiveObjects() == objectsBefore, "no object outlives its run");
  return 0;
}
