#include "programHooks.h"

#include <algorithm>

#include "memoryBudget.h"
#include "optionNames.h"
#include "toolLog.h"

namespace qvannot {

namespace {

using qvToolkit::Limit;
using qvToolkit::Limits;

qvToolkit::MemoryHooks makeMemoryHooks(Limits const& limits) {
  setMemoryBudget(limits.get(Limit::Memory));
  qvToolkit::MemoryHooks hooks;
  hooks.m_onInput = [limits](std::uint64_t inputBytes) {
    std::uint64_t const memory = limits.getMemory(inputBytes);
    // What the tool itself takes belongs to it, but leaves the document most of a small one.
    setMemoryBudget(memory, std::min(getUncountedBytes(), memory / 16));
  };
  if (limits.get(Limit::Memory) != Limits::Unlimited)
    hooks.m_getLeft = [] { return qvToolkit::MemoryLeft{getMemoryBudget(), getMemoryLeft()}; };
  return hooks;
}

}  // namespace

qvToolkit::ProgramHooks makeProgramHooks() {
  return {makeMemoryHooks, spellOption, writeLogRecord};
}

}  // namespace qvannot
