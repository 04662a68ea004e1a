#include "qvAnnotation/qvAnnotationLibrary.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "layOut.h"

namespace qv {
namespace {

TEST(AnnotationLibrary, ConverterOutlivesTheLibrary) {
  initializeQvAnnotationLibrary(true);
  text::TextSegmentToSvgConverter converter;
  text::TextArea area;
  area.m_lines.push_back({text::normal("A")});
  svg::Node node;
  ASSERT_TRUE(converter.convertTextAreaToSvg(area, node, nullptr, ""));
  terminateQvAnnotationLibrary();
  EXPECT_TRUE(converter.convertTextAreaToSvg(area, node, nullptr, ""));
  EXPECT_EQ(node.getChildren().size(), 2U);
}

TEST(AnnotationLibrary, LaysTextOutAfterANewStart) {
  for (bool const loadFonts : {true, false}) {
    initializeQvAnnotationLibrary(loadFonts);
    initializeQvAnnotationLibrary(false);
    terminateQvAnnotationLibrary();
    text::TextSegmentToSvgConverter converter;
    text::TextArea area;
    area.m_lines.push_back({text::normal("A")});
    svg::Node node;
    EXPECT_TRUE(converter.convertTextAreaToSvg(area, node, nullptr, ""));
    terminateQvAnnotationLibrary();
  }
}

TEST(AnnotationLibrary, TerminationWithoutInitialisationDoesNothing) {
  terminateQvAnnotationLibrary();
  EXPECT_FALSE(text::layOut({{text::normal("A")}}).empty());
}

TEST(AnnotationLibrary, ConvertersOfDifferentThreadsAreIndependent) {
  float const expected = text::measure(text::normal("Bohrung \xE2\x8C\x80 12"));
  std::vector<float> widths(4, 0.0F);
  std::vector<std::thread> threads;
  for (float& width : widths) {
    threads.emplace_back([&width] {
      text::TextSegmentToSvgConverter converter;
      text::TextArea area;
      area.m_lines.push_back({text::normal("Bohrung \xE2\x8C\x80 12")});
      for (int i = 0; i < 50; ++i) {
        svg::Node node;
        Wm4::Vector2<float> size;
        if (converter.convertTextAreaToSvg(area, node, &size, "")) width = size.X();
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(widths, std::vector<float>(4, expected));
}

}  // namespace
}  // namespace qv
