#include "qvSystem/libInitCounter.h"

#include <gtest/gtest.h>

#include <memory>
#include <thread>
#include <vector>

namespace {

using qv::impl::LibInitCounter;

TEST(LibInitCounter, OnlyTheFirstIncrementAndTheLastDecrementAreTrue) {
  LibInitCounter counter("test", false);
  EXPECT_TRUE(counter.incrementInitCounter());
  EXPECT_FALSE(counter.incrementInitCounter());
  EXPECT_FALSE(counter.decrementInitCounter());
  EXPECT_TRUE(counter.decrementInitCounter());
}

TEST(LibInitCounter, CanBeInitialisedAgain) {
  LibInitCounter counter("test", false);
  EXPECT_TRUE(counter.incrementInitCounter());
  EXPECT_TRUE(counter.decrementInitCounter());
  EXPECT_TRUE(counter.incrementInitCounter());
}

TEST(LibInitCounter, AnUnmatchedDecrementIsFalseAndLeavesTheCountAtZero) {
  LibInitCounter counter("test", false);
  EXPECT_FALSE(counter.decrementInitCounter());
  EXPECT_FALSE(counter.decrementInitCounter());
  EXPECT_TRUE(counter.incrementInitCounter());
  EXPECT_TRUE(counter.decrementInitCounter());
  EXPECT_FALSE(counter.decrementInitCounter());
}

TEST(LibInitCounter, ReportsAtDestructionWhatWasLeftInitialised) {
  ::testing::internal::CaptureStderr();
  {
    LibInitCounter counter("leaky", true);
    counter.incrementInitCounter();
    counter.incrementInitCounter();
  }
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "warning: leaky: 2 initialisation(s) not terminated\n");
}

TEST(LibInitCounter, ReportsNothingWhenBalancedOrNotAsked) {
  ::testing::internal::CaptureStderr();
  {
    LibInitCounter balanced("balanced", true);
    balanced.incrementInitCounter();
    balanced.decrementInitCounter();
    LibInitCounter silent("silent", false);
    silent.incrementInitCounter();
  }
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

TEST(LibInitCounter, OneOfManyThreadsIsTheFirst) {
  LibInitCounter counter("test", false);
  std::vector<int> first(8, 0);
  std::vector<std::thread> threads;
  for (int& isFirst : first) {
    threads.emplace_back([&counter, &isFirst] {
      for (int i = 0; i < 1000; ++i) isFirst += counter.incrementInitCounter() ? 1 : 0;
    });
  }
  for (std::thread& thread : threads) thread.join();
  int total = 0;
  for (int const isFirst : first) total += isFirst;
  EXPECT_EQ(total, 1);
  for (int i = 0; i < 7999; ++i) ASSERT_FALSE(counter.decrementInitCounter());
  EXPECT_TRUE(counter.decrementInitCounter());
}

}  // namespace
