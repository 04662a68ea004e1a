#include "annotationLegacy/version.h"

#include <gtest/gtest.h>

namespace {

using qvAnnotationLegacy::Version;

TEST(Version, NumbersAreThoseOfThePublishedLibrary) {
  EXPECT_EQ(Version::GetMajor(), 3U);
  EXPECT_EQ(Version::GetMinor(), 0U);
  EXPECT_EQ(Version::GetRelease(), 0U);
  EXPECT_EQ(Version::GetRevision(), 1297U);
  EXPECT_EQ(Version::GetYear(), 2026U);
  EXPECT_EQ(Version::GetMonth(), 2U);
  EXPECT_STREQ(Version::GetCommitId(), "3d96f40405c8d0b4");
}

TEST(Version, ShortTextsIgnoreTheirFlag) {
  for (bool const flag : {false, true}) {
    EXPECT_STREQ(Version::GetDescStringMajorMinor(flag), "3.0");
    EXPECT_STREQ(Version::GetDescStringMajorMinorRelease(flag), "3.0.0");
  }
}

TEST(Version, OnlyTheSecondFlagAddsTheCommitId) {
  EXPECT_STREQ(Version::GetDescStringMajorMinorReleaseRevision(false, true), "3.0.0.1297 #3d96f40405c8d0b4");
  EXPECT_STREQ(Version::GetDescStringMajorMinorReleaseRevision(true, true), "3.0.0.1297 #3d96f40405c8d0b4");
  EXPECT_STREQ(Version::GetDescStringMajorMinorReleaseRevision(true, false), "3.0.0.1297");
  EXPECT_STREQ(Version::GetDescStringMajorMinorReleaseRevision(false, false), "3.0.0.1297");
}

TEST(Version, DatedTextHasTheMonthWithoutAZero) {
  EXPECT_STREQ(Version::GetDescStringMajorMinorReleaseRevisionDate(), "3.0.0.1297 #3d96f40405c8d0b4 2026-2");
}

TEST(Version, IsNeverABetaOrADebugOrADevelopmentVersion) {
  EXPECT_FALSE(Version::IsBeta());
  EXPECT_FALSE(Version::IsDebug());
  EXPECT_FALSE(Version::IsDev());
}

}  // namespace
