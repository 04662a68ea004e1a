#include <sched.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>

#include "qvToolkit/work/pool.h"

namespace qvToolkit {

namespace {

constexpr std::uint64_t Unlimited = std::numeric_limits<std::uint64_t>::max();

std::uint64_t countProcessors() {
  cpu_set_t processors;
  CPU_ZERO(&processors);
  if (sched_getaffinity(0, sizeof processors, &processors) != 0) return 1;
  return static_cast<std::uint64_t>(std::max(CPU_COUNT(&processors), 1));
}

/// Of this process in the unified hierarchy, "/user.slice/..."; empty where there is none.
std::string findControlGroup() {
  std::ifstream file("/proc/self/cgroup");
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with("0::")) return line.substr(3);
  }
  return {};
}

/// Visits the file of that name of the process's control group and of each around it.
template <class Visit>
void visitControlFiles(std::string const& name, Visit visit) {
  for (std::string group = findControlGroup(); !group.empty();) {
    std::ifstream file(std::filesystem::path("/sys/fs/cgroup" + group) / name);
    if (file) visit(file);
    if (group == "/") return;
    std::size_t const end = group.rfind('/');
    group = end == 0 ? "/" : group.substr(0, end);
  }
}

/// Processors that the group may keep busy; a part counts as one.
std::uint64_t getProcessorQuota() {
  std::uint64_t least = Unlimited;
  visitControlFiles("cpu.max", [&least](std::istream& file) {
    std::uint64_t quota = 0;
    std::uint64_t period = 0;
    if (file >> quota >> period && period > 0) least = std::min(least, (quota + period - 1) / period);
  });
  return std::max<std::uint64_t>(least, 1);
}

std::uint64_t getMemory() {
  auto const pages = static_cast<std::uint64_t>(std::max(sysconf(_SC_PHYS_PAGES), 0L));
  std::uint64_t memory = pages * static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
  visitControlFiles("memory.max", [&memory](std::istream& file) {
    std::uint64_t bytes = 0;
    if (file >> bytes) memory = std::min(memory, bytes);
  });
  return memory;
}

}  // namespace

std::size_t getDefaultProcesses(Limits const& limits) {
  std::uint64_t const most = std::min(countProcessors(), getProcessorQuota());
  std::uint64_t const each = std::max<std::uint64_t>(limits.get(Limit::Memory), 1);
  return static_cast<std::size_t>(std::clamp<std::uint64_t>(getMemory() / each, 1, most));
}

}  // namespace qvToolkit
