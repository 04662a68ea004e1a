#include "migration/flags.h"

#include <gtest/gtest.h>

namespace qvLegacy::migration {
namespace {

TEST(Flags, AnUnlockedFrameOfUnlockedScaleGetsItsTwoBits) {
  EXPECT_EQ(migratedFlags(0, 0x00), 0x90);
}

TEST(Flags, TheDepthTestBitIsCopiedAsItIs) {
  EXPECT_EQ(migratedFlags(0, 0x20), 0xB0);
  EXPECT_EQ(migratedFlags(0x20, 0x00), 0x90);
}

TEST(Flags, ALockedScaleTakesThePlaceOfTheScalingBit) {
  EXPECT_EQ(migratedFlags(0, 0x40), 0xC0);
}

TEST(Flags, ALockedFrameClearsNothingButSetsNoBit) {
  EXPECT_EQ(migratedFlags(0, 0x80), 0x10);
  EXPECT_EQ(migratedFlags(0x80, 0x80), 0x90);
}

TEST(Flags, TheFrameShapeLeavesNoTrace) {
  EXPECT_EQ(migratedFlags(0, 0xEB), 0x60);
}

TEST(Flags, OtherBitsAreKept) {
  EXPECT_EQ(migratedFlags(0x0F, 0xE0), 0x6F);
}

}  // namespace
}  // namespace qvLegacy::migration
