#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>

namespace qvHostile {

/// Processor time of a piece of work, the least of three runs.
template <class Work>
double measureTime(Work const& work) {
  std::clock_t least = 0;
  for (int run = 0; run < 3; ++run) {
    std::clock_t const start = std::clock();
    work();
    std::clock_t const time = std::clock() - start;
    least = run == 0 ? time : std::min(least, time);
  }
  return static_cast<double>(least);
}

/// Expects that eight times the work takes less than three times eight times as long; if it went with the
/// square, it would take sixty-four times as long. Says nothing about how fast the machine is.
template <class Work, class MoreWork>
void expectLinearTime(Work const& once, MoreWork const& eightTimes) {
  EXPECT_LT(measureTime(eightTimes), 24 * measureTime(once));
}

}  // namespace qvHostile
