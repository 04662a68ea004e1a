#include "qvSystem/qvSystemUtils.h"

#include <unistd.h>

#include <chrono>

namespace qv {

std::uint64_t qvSystemUtils::GetMSecElapsedSinceEpoch() {
  auto const sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
  return static_cast<std::uint64_t>(
      std::chrono::duration_cast<std::chrono::milliseconds>(sinceEpoch).count());
}

std::string qvThread::CurrentThreadId() {
  return std::to_string(::gettid());
}

}  // namespace qv
