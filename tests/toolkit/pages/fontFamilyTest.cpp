#include "pages/fontFamily.h"

#include <gtest/gtest.h>

namespace qvToolkit {

namespace {

TEST(FontFamily, IsQuotedAndFollowedByAGenericFamily) {
  EXPECT_EQ(formatFontFamily("Liberation Sans"), "'Liberation Sans', sans-serif");
  EXPECT_EQ(formatFontFamily("Liberation Serif"), "'Liberation Serif', serif");
  EXPECT_EQ(formatFontFamily("DejaVu Sans Mono"), "'DejaVu Sans Mono', monospace");
  EXPECT_EQ(formatFontFamily("isocpeur"), "'isocpeur', sans-serif");
}

TEST(FontFamily, KeepsNothingThatCouldLeaveTheQuotes) {
  EXPECT_EQ(formatFontFamily("x';}</style><script>url(a)\\"), "'xstylescripturla', sans-serif");
  EXPECT_EQ(formatFontFamily("a\x1b\x07\n b\xff"), "'a b', sans-serif");
}

TEST(FontFamily, KeepsLettersOfOtherScripts) {
  EXPECT_EQ(formatFontFamily("\u660e\u671d"), "'\u660e\u671d', sans-serif");
  EXPECT_EQ(formatFontFamily("a\u00a0b\u202ec"), "'abc', sans-serif");
}

TEST(FontFamily, IsCutAt128Bytes) {
  EXPECT_EQ(formatFontFamily(std::string(500, 'a')), "'" + std::string(128, 'a') + "', sans-serif");
}

TEST(FontFamily, WithoutAnyUsableCharacterIsOnlyTheGenericOne) {
  EXPECT_EQ(formatFontFamily(""), "sans-serif");
  EXPECT_EQ(formatFontFamily("'; "), "sans-serif");
}

}  // namespace

}  // namespace qvToolkit
