#include "rules/knownMetadata.h"

#include <gtest/gtest.h>

#include <string_view>

namespace qvLegacy::rules {
namespace {

TEST(KnownMetadata, AllSevenKeysAreKnown) {
  for (std::string_view const key : {"ReferencedEntities", "AnnotationGroup", "InactivationFlag", "NOA",
                                     "NOA_Graphical representation", "NOA_Type of Noa", "NOA_Hidden Text"}) {
    EXPECT_TRUE(isKnownMetadataKey(key)) << key;
  }
  EXPECT_EQ(knownMetadataKeys.size(), 7U);
}

TEST(KnownMetadata, KeysAreComparedWholeAndCaseSensitively) {
  for (std::string_view const key : {"noa", "NOA ", " NOA", "NO", "NOA_", "NOA_Hidden text",
                                     "noa_hidden text", "NOA_Hidden Text ", "referencedentities", ""}) {
    EXPECT_FALSE(isKnownMetadataKey(key)) << key;
  }
}

}  // namespace
}  // namespace qvLegacy::rules
