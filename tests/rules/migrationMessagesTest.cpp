#include "rules/migrationMessages.h"

#include <gtest/gtest.h>

namespace qvLegacy::rules::migrationMessages {
namespace {

TEST(MigrationMessages, NoneIsTheBeginningOfAnother) {
  for (Message const& one : all) {
    for (Message const& other : all)
      EXPECT_EQ(isMessage(other.text, one), one.text == other.text) << one.text;
  }
}

TEST(MigrationMessages, AreKnownByTheirBeginning) {
  EXPECT_TRUE(isMessage("Fail to retrieve raster 'r'", missingRaster));
  EXPECT_FALSE(isMessage("fail to retrieve raster 'r'", missingRaster));
}

TEST(MigrationMessages, OfAHeadThatIsNotDrawnCostsOnlyLook) {
  EXPECT_EQ(costOf("Unhandled leader head"), Cost::Look);
  EXPECT_EQ(costOf("Fail to compute perpendicular line"), Cost::Content);
  EXPECT_EQ(costOf("Found CT metadata NOAin annotation"), Cost::View);
  EXPECT_EQ(costOf("another text"), Cost::View);
}

}  // namespace
}  // namespace qvLegacy::rules::migrationMessages
