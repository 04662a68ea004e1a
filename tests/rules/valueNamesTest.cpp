#include "rules/valueNames.h"

#include <gtest/gtest.h>

namespace qvLegacy::rules {
namespace {

/// The names from value 0 on.
void expectNames(ValueNames const& set, std::initializer_list<std::string_view> names) {
  std::uint8_t value = 0;
  for (std::string_view const name : names) {
    EXPECT_EQ(set.nameOf(value), name) << int{value};
    EXPECT_EQ(set.valueOf(name), value) << name;
    ++value;
  }
  EXPECT_EQ(set.nameOf(value), "");
}

TEST(ValueNames, StandForTheirValues) {
  expectNames(annotationTypes, {"unknown", "text", "raster"});
  expectNames(leaderHeads, {"none", "square", "circle", "arrow", "plus", "cross", "triangle"});
  expectNames(arrowDirections, {"none", "outout", "inout", "outin"});
  expectNames(segmentTypes, {"normal", "sub", "sup"});
  expectNames(frameShapes,
              {"noframe", "rectangle", "square", "diamond", "triangle", "flagright", "flagleft", "flagboth",
               "parallelogram", "hexagon", "pentagon", "circle", "oblong", "oblongleft", "oblongright"});
}

TEST(ValueNames, OfAnchorsGiveRightTopTwiceAndRightBottomNever) {
  EXPECT_EQ(anchors.valueOf("rt"), 12);
  EXPECT_EQ(anchors.valueOf("rb"), 12);
  EXPECT_EQ(anchors.nameOf(12), "rt");
  EXPECT_EQ(anchors.nameOf(10), "rb");
  std::uint8_t value = 1;
  for (std::string_view const name : {"bl", "bc", "br", "tl", "tc", "tr", "lb", "lc", "lt"}) {
    EXPECT_EQ(anchors.valueOf(name), value) << name;
    EXPECT_EQ(anchors.nameOf(value++), name);
  }
  EXPECT_EQ(anchors.valueOf("rc"), 11);
}

TEST(ValueNames, AnyOtherTextStandsForTheDefault) {
  EXPECT_EQ(frameShapes.valueOf("Square"), 1);
  EXPECT_EQ(frameShapes.valueOf(""), 1);
  for (ValueNames const& set : {annotationTypes, leaderHeads, arrowDirections, anchors, segmentTypes}) {
    EXPECT_EQ(set.valueOf("TEXT"), 0);
    EXPECT_EQ(set.valueOf(""), 0);
    EXPECT_FALSE(set.has(""));
  }
}

TEST(ValueNames, BeyondTheSetThereIsNone) {
  EXPECT_EQ(leaderHeads.nameOf(255), "");
  EXPECT_EQ(anchors.nameOf(256 + 1), "");
}

}  // namespace
}  // namespace qvLegacy::rules
