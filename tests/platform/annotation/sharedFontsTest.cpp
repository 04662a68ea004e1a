// Converters share fonts and shaped texts, on one thread or several.

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "fontFolders.h"

namespace qv::text {
namespace {

constexpr char const* TEXTS[] = {"M12 x 1.5",
                                 "\u2300 12 \u2316 0.2 \u24C2 A",
                                 "\u05E9\u05DC\u05D5\u05DD 12",
                                 "\u0639\u0644\u0649 (\u0645\u0627)",
                                 "\u0928\u092E\u0938\u094D\u0924\u0947",
                                 "\u0E2A\u0E27\u0E31\u0E2A\u0E14\u0E35",
                                 "x\u0302 \U0001D49C\tend",
                                 "\uE000 \u4E2D \xFF"};

std::string describe(std::vector<svg::TextSpan> const& spans) {
  std::ostringstream text;
  for (svg::TextSpan const& span : spans) {
    text << span.m_family << ' ' << span.m_text << ' ' << span.m_x << ' ' << span.m_advance << ':';
    for (svg::Glyph const& glyph : span.m_glyphs) text << ' ' << glyph.m_index << ' ' << glyph.m_x;
    text << '\n';
  }
  return text.str();
}

/// All texts in all styles, each time in sizes of its own.
std::string describeAll(float size) {
  std::string all;
  for (int style = 0; style < 4; ++style) {
    TextProperties properties = makeProperties(size);
    properties.m_bold = style % 2 != 0;
    properties.m_italic = style / 2 != 0;
    for (char const* const text : TEXTS) all += describe(layOutAnew(text, properties));
  }
  return all;
}

TEST(SharedFonts, ServeConvertersOneAfterTheOther) {
  svg::TextSpan const first = layOutAnew("A").at(0);
  EXPECT_EQ(layOutAnew("A").at(0).m_glyphSource, first.m_glyphSource);
}

TEST(SharedFonts, GiveTheSameResultWithFullCachesAsWithEmptyOnes) {
  std::string const warm = describeAll(7.0F) + describeAll(9.0F);
  WithFonts const emptied({});
  EXPECT_EQ(describeAll(7.0F) + describeAll(9.0F), warm);
}

TEST(SharedFonts, GiveEachThreadTheSameResult) {
  std::string const expected = describeAll(7.0F);
  WithFonts const emptied({});
  std::vector<std::string> results(6);
  std::vector<std::thread> threads;
  for (std::string& result : results) threads.emplace_back([&result] { result = describeAll(7.0F); });
  for (std::thread& thread : threads) thread.join();
  for (std::string const& result : results) EXPECT_EQ(result, expected);
}

TEST(SharedFonts, MayBeReplacedWhileOthersStillUseThem) {
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([i] {
      for (int round = 0; round < 5; ++round) {
        if (i == 0) setFontOptions({});
        EXPECT_EQ(layOutAnew("\u2300 12").at(1).m_family, "Liberation Sans");
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
}

TEST(SharedFonts, OutlinesOutliveThem) {
  svg::TextSpan const span = layOutAnew("A").at(0);
  setFontOptions({});
  EXPECT_FALSE(span.m_glyphSource->getOutline(span.m_glyphs[0].m_index).empty());
}

}  // namespace
}  // namespace qv::text
