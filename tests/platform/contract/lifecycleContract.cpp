#include <gtest/gtest.h>

#include "ports/lifecycle.h"

namespace {

TEST(LifecycleContract, CountersAreTrueForTheFirstAndTheLastCallOnly) {
  qv::impl::LibInitCounter counter("contract", false);
  EXPECT_TRUE(counter.incrementInitCounter());
  EXPECT_FALSE(counter.incrementInitCounter());
  EXPECT_FALSE(counter.decrementInitCounter());
  EXPECT_TRUE(counter.decrementInitCounter());
  EXPECT_FALSE(counter.decrementInitCounter()) << "without a matching increment";
  EXPECT_TRUE(counter.incrementInitCounter());
  EXPECT_TRUE(counter.decrementInitCounter());
}

void initializeAndTerminate() {
  qv::initializeQvSystem(qvLegacy::ports::SYSTEM_INIT_TYPE, false);
  qv::initializeQvSceneGraph();
  qv::initializeQvAnnotationLibrary(false);
  qv::terminateQvAnnotationLibrary();
  qv::terminateQvSceneGraph();
  qv::terminateQvSystem();
}

TEST(LifecycleContract, TheLibrariesMayBeInitialisedAgainAndWithinEachOther) {
  EXPECT_NO_THROW(initializeAndTerminate());
  qv::initializeQvSystem(qvLegacy::ports::SYSTEM_INIT_TYPE, false);
  EXPECT_NO_THROW(initializeAndTerminate());
  EXPECT_NO_THROW(qv::terminateQvSystem());
}

}  // namespace
