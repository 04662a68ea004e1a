// Text that cannot be shown as it is.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fontFolders.h"

namespace qv::text {
namespace {

using Bytes = std::vector<std::string>;

TEST(BrokenText, ShowsAReplacementForEachIllFormedPieceAndKeepsItsBytes) {
  std::vector<svg::TextSpan> const spans = layOutSpans("a\xE2\x8C\xFFz");
  ASSERT_EQ(spans.size(), 3U);
  EXPECT_EQ(spans[0].m_unshowable, Bytes());
  EXPECT_EQ(spans[1].m_text, "\uFFFD\uFFFD");
  EXPECT_EQ(spans[1].m_unshowable, (Bytes{"\xE2\x8C", "\xFF"}));
  EXPECT_EQ(spans[1].m_match, svg::FontMatch::Substitute);
  EXPECT_EQ(spans[1].m_glyphs.size(), 2U);
}

TEST(BrokenText, KeepsControlCharactersAndSurrogatesApart) {
  svg::TextSpan const span = layOutSpans(std::string("\x01\n\0\xED\xA0\x80", 6)).at(0);
  EXPECT_EQ(span.m_text, "\uFFFD\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(span.m_unshowable, (Bytes{"\x01", "\n", std::string(1, '\0'), "\xED\xA0\x80"}));
}

TEST(BrokenText, IsNotTheSameAsTheReplacementCharacterInADocument) {
  EXPECT_EQ(layOutSpans("\uFFFD").at(0).m_unshowable, Bytes());
  EXPECT_EQ(layOutSpans("\xFF").at(0).m_unshowable, Bytes{"\xFF"});
  EXPECT_EQ(layOutSpans("\xFE\uFFFD").at(0).m_unshowable, Bytes{"\xFE"});
}

TEST(BrokenText, DoesNotDisturbTheDirectionOfTheTextAroundIt) {
  std::vector<svg::TextSpan> const spans = layOutSpans("\u05D0\xFF\u05D1");
  ASSERT_EQ(spans.size(), 3U);
  EXPECT_EQ(spans[0].m_text, "\u05D1");
  EXPECT_EQ(spans[1].m_unshowable, Bytes{"\xFF"});
  EXPECT_EQ(spans[2].m_text, "\u05D0");
}

TEST(BrokenText, IsReplacedVisiblyEvenWithoutAFontForTheReplacementCharacter) {
  WithFonts const scope(onlyFontsOf({LIBERATION_FOLDER}));
  svg::TextSpan const span = layOutAnew("\xFF").at(0);
  EXPECT_EQ(span.m_unshowable, Bytes{"\xFF"});
  EXPECT_EQ(span.m_glyphs.size(), 1U);
}

TEST(BrokenText, MarkWithoutABaseIsDrawnAlone) {
  svg::TextSpan const span = layOutSpans("\u0301").at(0);
  EXPECT_NE(span.m_match, svg::FontMatch::Missing);
  EXPECT_EQ(span.m_text, "\u0301");
}

}  // namespace
}  // namespace qv::text
