#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "annotationLegacy/platform.h"
#include "ports/svg.h"
#include "ports/text.h"

namespace {

namespace ports = qvLegacy::ports;
using qv::text::TextSegment;

TextSegment makeRun(std::string const& text, TextSegment::SegmentType type = TextSegment::Normal) {
  TextSegment run;
  run.setText(text.data(), text.size());
  ports::setType(run, type);
  return run;
}

/// The box of the lines' layout with an em of `size`, in layout coordinates: y up.
qv::svg::BoundingBox layOut(std::vector<std::vector<TextSegment>> const& lines, float size = 10.0F) {
  qv::text::TextArea area;
  ports::setDefaultProperties(area, ports::makeTextProperties(size, "Arial", false, false));
  for (auto const& line : lines) ports::appendLine(area, ports::TextLine(line.begin(), line.end()));
  qv::svg::Node node;
  qv::text::TextSegmentToSvgConverter converter;
  EXPECT_TRUE(converter.convertTextAreaToSvg(area, node, nullptr, "contract"));
  qv::svg::BoundingBox box;
  ComputeEstimatedBoundingBox(node, box, nullptr, nullptr);
  return box;
}

TEST(TextContract, TheFirstBaselineBeginsAtTheOriginAndGlyphsStandTowardsPositiveY) {
  qv::svg::BoundingBox const box = layOut({{makeRun("Hx")}});
  ASSERT_TRUE(box.isValid());
  EXPECT_NEAR(box.getMinPoint().X(), 0.0F, 2.0F);
  EXPECT_GT(box.getMaxPoint().Y(), 5.0F);
  EXPECT_LT(box.getMinPoint().Y(), 1.0F);
}

TEST(TextContract, LinesFollowDownwards) {
  float const one = layOut({{makeRun("H")}}).getMinPoint().Y();
  float const two = layOut({{makeRun("H")}, {makeRun("H")}}).getMinPoint().Y();
  EXPECT_LT(two, one - 5.0F);
}

TEST(TextContract, TheBoxGrowsWithTheSizeAndWithTheText) {
  float const width = layOut({{makeRun("HH")}}).getWidth();
  EXPECT_NEAR(layOut({{makeRun("HH")}}, 20.0F).getWidth(), 2.0F * width, 0.1F * width);
  EXPECT_NEAR(layOut({{makeRun("HHHH")}}).getWidth(), 2.0F * width, 0.1F * width);
  EXPECT_NEAR(layOut({{makeRun("H"), makeRun("H")}}).getWidth(), width, 0.1F * width);
}

TEST(TextContract, ARunsOwnPropertiesReplaceThoseOfTheArea) {
  TextSegment large = makeRun("HH");
  ports::setProperties(large, ports::makeTextProperties(20.0F, "Arial", true, false));
  EXPECT_GT(layOut({{large}}).getHeight(), 1.5F * layOut({{makeRun("HH")}}).getHeight());
}

TEST(TextContract, SuperscriptsStandHigherThanSubscripts) {
  qv::svg::BoundingBox const upper = layOut({{makeRun("x", TextSegment::Superscript)}});
  qv::svg::BoundingBox const lower = layOut({{makeRun("x", TextSegment::Subscript)}});
  EXPECT_GT(upper.getCenterPoint().Y(), lower.getCenterPoint().Y());
}

TEST(TextContract, ARunTakesAsManyCharactersAsItIsTold) {
  TextSegment run;
  run.setText("HHHH", 2);
  EXPECT_NEAR(layOut({{run}}).getWidth(), layOut({{makeRun("HH")}}).getWidth(), 1e-3F);
}

TEST(TextContract, TextWithoutCharactersIsConvertedToNothing) {
  EXPECT_FALSE(layOut({}).isValid());
  EXPECT_FALSE(layOut({{TextSegment()}}).isValid());
}

}  // namespace
