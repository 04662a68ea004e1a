#include "shaperMemory.h"

#include <link.h>

#include <cerrno>
#include <cstddef>
#include <limits>
#include <string_view>

namespace qvFaults {

namespace {

/// Where the shaping library lies in this process.
struct CodeRange {
  std::uintptr_t m_begin = 0;
  std::uintptr_t m_end = 0;
};

struct Plan {
  std::uint32_t m_first = std::numeric_limits<std::uint32_t>::max();
  std::uint32_t m_count = 0;
  std::uint32_t m_requests = 0;
  bool m_hasFailed = false;
};

CodeRange shaper;
Plan plan;

int noteShaper(dl_phdr_info* info, std::size_t, void*) {
  if (std::string_view(info->dlpi_name).find("/libharfbuzz.so") == std::string_view::npos) return 0;
  for (int i = 0; i < info->dlpi_phnum; ++i) {
    ElfW(Phdr) const& part = info->dlpi_phdr[i];
    if (part.p_type != PT_LOAD || (part.p_flags & PF_X) == 0) continue;
    shaper.m_begin = info->dlpi_addr + part.p_vaddr;
    shaper.m_end = shaper.m_begin + part.p_memsz;
  }
  return 1;
}

bool mustFail(void const* caller) noexcept {
  auto const place = reinterpret_cast<std::uintptr_t>(caller);
  if (place < shaper.m_begin || place >= shaper.m_end) return false;
  std::uint32_t const index = plan.m_requests++;
  if (index < plan.m_first || index - plan.m_first >= plan.m_count) return false;
  plan.m_hasFailed = true;
  errno = ENOMEM;
  return true;
}

}  // namespace

void ShaperMemory::fail(std::uint32_t first, std::uint32_t count) noexcept {
  if (shaper.m_begin == 0) dl_iterate_phdr(noteShaper, nullptr);
  plan = {first, count};
}

void ShaperMemory::heal() noexcept {
  fail(std::numeric_limits<std::uint32_t>::max(), 0);
}

std::uint32_t ShaperMemory::getRequests() noexcept {
  return plan.m_requests;
}

bool ShaperMemory::hasFailed() noexcept {
  return plan.m_hasFailed;
}

}  // namespace qvFaults

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)

// The C library's own functions under the names that it keeps for those who replace them.
extern "C" void* __libc_malloc(std::size_t size);                     // NOLINT(bugprone-reserved-identifier)
extern "C" void* __libc_calloc(std::size_t count, std::size_t size);  // NOLINT(bugprone-reserved-identifier)
extern "C" void* __libc_realloc(void* memory, std::size_t size);      // NOLINT(bugprone-reserved-identifier)

extern "C" void* malloc(std::size_t size) noexcept {
  return qvFaults::mustFail(__builtin_return_address(0)) ? nullptr : __libc_malloc(size);
}
extern "C" void* calloc(std::size_t count, std::size_t size) noexcept {
  return qvFaults::mustFail(__builtin_return_address(0)) ? nullptr : __libc_calloc(count, size);
}
extern "C" void* realloc(void* memory, std::size_t size) noexcept {
  return qvFaults::mustFail(__builtin_return_address(0)) ? nullptr : __libc_realloc(memory, size);
}

#endif
