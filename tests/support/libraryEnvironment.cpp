/// Compiled into a test program, this initialises the library for all its tests.

#include <gtest/gtest.h>

#include "annotationLegacy/library.h"

namespace {

class LibraryEnvironment : public testing::Environment {
 public:
  void SetUp() override { qv::initializeQvAnnotationLegacyLibrary(); }
  void TearDown() override { qv::terminateQvAnnotationLegacyLibrary(); }
};

[[maybe_unused]] testing::Environment* const environment =
    testing::AddGlobalTestEnvironment(new LibraryEnvironment);

}  // namespace
