#include <gtest/gtest.h>

#include "readers/since.h"
#include "tests/readers/binary/byteStream.h"

namespace {

using namespace readersTest;
using qvLegacy::readers::reaches;
using qvLegacy::readers::Since;

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

INSTANTIATE_TEST_SUITE_P(All, VersionGate,
                         testing::Values(Gate{"views", Since::views, v6_12, v6_13},
                                         Gate{"annotationNames", Since::annotationNames, v6_13, v6_14},
                                         Gate{"frameShapes", Since::frameShapes, v6_13, v6_14},
                                         Gate{"sharedRecord", Since::sharedRecord, v6_14, v6_15},
                                         Gate{"rasters", Since::rasters, v6_14, v6_15},
                                         Gate{"measures", Since::measures, v6_16, v6_17},
                                         Gate{"segmentTypes", Since::segmentTypes, v6_16, v6_17},
                                         Gate{"variantMaps", Since::variantMaps, v6_16, v6_17},
                                         Gate{"heads", Since::heads, v6_21, v6_22},
                                         Gate{"arrowDirections", Since::arrowDirections, v6_21, v6_22},
                                         Gate{"children", Since::children, v6_21, v6_22},
                                         Gate{"annotationMetadata", Since::annotationMetadata, v6_21, v6_22},
                                         Gate{"oneAnnotationList", Since::oneAnnotationList, v6_21, v6_22},
                                         Gate{"viewMetadata", Since::viewMetadata, v6_26, v6_27}),
                         [](testing::TestParamInfo<Gate> const& tested) {
                           return std::string(tested.param.name);
                         });

}  // namespace
