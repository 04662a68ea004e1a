#include "work/runClock.h"

#include <unistd.h>

#include <array>
#include <cstdio>
#include <ctime>

namespace qvToolkit {

namespace {

/// "2026-02-28T23:59:59.125Z", in UTC whatever the zone of the process.
std::string formatTime(std::chrono::system_clock::time_point time) {
  auto const milliseconds = std::chrono::floor<std::chrono::milliseconds>(time.time_since_epoch()).count();
  std::time_t const seconds = milliseconds / 1000;
  std::tm parts{};
  gmtime_r(&seconds, &parts);
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02d-%02dT%02d:%02d:%02d.%03dZ", parts.tm_year + 1900,
                parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec,
                static_cast<int>(milliseconds % 1000));
  return text.data();
}

}  // namespace

RunFacts RunClock::describe() const {
  std::array<char, 256> host{};
  gethostname(host.data(), host.size() - 1);
  RunFacts facts;
  facts.m_started = formatTime(m_started);
  facts.m_ended = formatTime(std::chrono::system_clock::now());
  facts.m_wallSeconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - m_from).count();
  facts.m_host = host.data();
  return facts;
}

}  // namespace qvToolkit
