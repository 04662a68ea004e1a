#include "rules/gates.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using qvLegacy::rules::Encodings;
using qvLegacy::rules::gateOf;
using qvLegacy::rules::reaches;
using qvLegacy::rules::Since;

constexpr std::uint32_t pack(std::uint32_t major, std::uint32_t minor) {
  return major << 16 | minor;
}

struct Gate {
  char const* name;
  Since gate;
  std::uint32_t before;
  std::uint32_t since;
};

class VersionGate : public testing::TestWithParam<Gate> {};

TEST_P(VersionGate, ClosesOneVersionEarlier) {
  EXPECT_FALSE(reaches(GetParam().before, GetParam().gate));
}

TEST_P(VersionGate, OpensAtItsVersion) {
  EXPECT_TRUE(reaches(GetParam().since, GetParam().gate));
}

TEST_P(VersionGate, ComparesWholeNumbers) {
  EXPECT_FALSE(reaches(0x5FFFF, GetParam().gate));
  EXPECT_FALSE(reaches(0, GetParam().gate));
  EXPECT_TRUE(reaches(0x70000, GetParam().gate));
  EXPECT_TRUE(reaches(0xFFFFFFFF, GetParam().gate));
}

INSTANTIATE_TEST_SUITE_P(
    All, VersionGate,
    testing::Values(Gate{"views", Since::views, pack(6, 12), pack(6, 13)},
                    Gate{"annotationNames", Since::annotationNames, pack(6, 13), pack(6, 14)},
                    Gate{"frameShapes", Since::frameShapes, pack(6, 13), pack(6, 14)},
                    Gate{"sharedRecord", Since::sharedRecord, pack(6, 14), pack(6, 15)},
                    Gate{"rasters", Since::rasters, pack(6, 14), pack(6, 15)},
                    Gate{"measures", Since::measures, pack(6, 16), pack(6, 17)},
                    Gate{"segmentTypes", Since::segmentTypes, pack(6, 16), pack(6, 17)},
                    Gate{"variantMaps", Since::variantMaps, pack(6, 16), pack(6, 17)},
                    Gate{"heads", Since::heads, pack(6, 21), pack(6, 22)},
                    Gate{"arrowDirections", Since::arrowDirections, pack(6, 21), pack(6, 22)},
                    Gate{"children", Since::children, pack(6, 21), pack(6, 22)},
                    Gate{"annotationMetadata", Since::annotationMetadata, pack(6, 21), pack(6, 22)},
                    Gate{"oneAnnotationList", Since::oneAnnotationList, pack(6, 21), pack(6, 22)},
                    Gate{"viewMetadata", Since::viewMetadata, pack(6, 26), pack(6, 27)}),
    [](testing::TestParamInfo<Gate> const& tested) { return std::string(tested.param.name); });

TEST(Gates, HaveAHistoryInWords) {
  EXPECT_EQ(gateOf(Since::heads).brought, "leader heads");
  EXPECT_EQ(gateOf(Since::viewMetadata).brought, "view metadata");
  EXPECT_EQ(gateOf(Since::segmentTypes).brought, "run types and 16-bit lengths");
}

TEST(Gates, SayWhichEncodingTheyChanged) {
  EXPECT_EQ(gateOf(Since::sharedRecord).encodings, Encodings::Stream);
  EXPECT_EQ(gateOf(Since::oneAnnotationList).encodings, Encodings::Variants);
  EXPECT_EQ(gateOf(Since::children).encodings, Encodings::Both);
}

TEST(Gates, BoundWhatCanBeWritten) {
  EXPECT_EQ(qvLegacy::rules::oldestVersion, pack(6, 13));
  EXPECT_EQ(qvLegacy::rules::newestVersion, pack(6, 27));
}

}  // namespace
