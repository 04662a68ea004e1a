#include "platform/annotation/src/utf8.h"

#include <gtest/gtest.h>

#include <string>

namespace qv::text {
namespace {

TEST(Utf8, DecodesEachLength) {
  EXPECT_EQ(decodeForDisplay("A\xC3\xA9\xE2\x8C\x80\xF0\x9D\x92\x9C"), U"A\u00E9\u2300\U0001D49C");
}

TEST(Utf8, KeepsTabsAndBlanks) {
  EXPECT_EQ(decodeForDisplay(" \ta "), U" \ta ");
}

TEST(Utf8, ReplacesEachControlCharacter) {
  EXPECT_EQ(decodeForDisplay(std::string("a\0b", 3)), U"a\uFFFDb");
  EXPECT_EQ(decodeForDisplay("\x01\n\r\x7F"), U"\uFFFD\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(decodeForDisplay("\xC2\x85"), U"\uFFFD");
}

TEST(Utf8, ReplacesCharactersThatNoMarkupHoldsAndLineSeparators) {
  EXPECT_EQ(decodeForDisplay("\xEF\xBF\xBE\xEF\xBF\xBF"), U"\uFFFD\uFFFD");
  EXPECT_EQ(decodeForDisplay("\xE2\x80\xA8\xE2\x80\xA9"), U"\uFFFD\uFFFD");
}

TEST(Utf8, ReplacesEachMaximalIllFormedPieceOnce) {
  EXPECT_EQ(decodeForDisplay("a\xFF\xFEz"), U"a\uFFFD\uFFFDz");
  EXPECT_EQ(decodeForDisplay("\xE2\x8C"), U"\uFFFD");
  EXPECT_EQ(decodeForDisplay("\xE2\x8Cz"), U"\uFFFDz");
  EXPECT_EQ(decodeForDisplay("\xF0\x9D\x92\xE2\x8C\x80"), U"\uFFFD\u2300");
  EXPECT_EQ(decodeForDisplay("\x80"), U"\uFFFD");
}

TEST(Utf8, RefusesOverlongFormsSurrogatesAndNumbersBeyondUnicode) {
  EXPECT_EQ(decodeForDisplay("\xC0\x80"), U"\uFFFD\uFFFD");
  EXPECT_EQ(decodeForDisplay("\xE0\x80\xAF"), U"\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(decodeForDisplay("\xED\xA0\x80"), U"\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(decodeForDisplay("\xF4\x90\x80\x80"), U"\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(Utf8, EncodesEveryScalarValueSoThatItDecodesAgain) {
  for (char32_t character = 0x20; character <= 0x10FFFF; ++character) {
    if (character >= 0xD800 && character <= 0xDFFF) continue;
    std::string text;
    appendUtf8(text, character);
    std::u32string const decoded = decodeForDisplay(text);
    ASSERT_EQ(decoded.size(), 1U);
    ASSERT_TRUE(decoded[0] == character || decoded[0] == REPLACEMENT_CHARACTER);
  }
}

}  // namespace
}  // namespace qv::text
