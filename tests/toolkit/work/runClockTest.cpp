#include "work/runClock.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <ctime>
#include <regex>

namespace qvToolkit {

namespace {

TEST(RunClock, TellsBeginAndEndInUtcWhateverTheZone) {
  setenv("TZ", "Pacific/Kiritimati", 1);
  tzset();
  auto const before = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
  RunFacts const facts = RunClock().describe();
  unsetenv("TZ");
  tzset();
  std::regex const form(R"(\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}Z)");
  EXPECT_TRUE(std::regex_match(facts.m_started, form)) << facts.m_started;
  EXPECT_TRUE(std::regex_match(facts.m_ended, form)) << facts.m_ended;
  EXPECT_LE(facts.m_started, facts.m_ended);
  std::tm parts{};
  ASSERT_NE(strptime(facts.m_started.c_str(), "%Y-%m-%dT%H:%M:%S", &parts), nullptr);
  EXPECT_GE(timegm(&parts), std::chrono::system_clock::to_time_t(before));
}

TEST(RunClock, NeverRunsBackwards) {
  RunClock const clock;
  double const first = clock.describe().m_wallSeconds;
  EXPECT_GE(first, 0);
  EXPECT_GE(clock.describe().m_wallSeconds, first);
  EXPECT_EQ(clock.describe().m_started, clock.describe().m_started);
}

TEST(RunClock, TellsTheHost) {
  std::array<char, 256> host{};
  ASSERT_EQ(gethostname(host.data(), host.size() - 1), 0);
  EXPECT_EQ(RunClock().describe().m_host, host.data());
}

}  // namespace

}  // namespace qvToolkit
