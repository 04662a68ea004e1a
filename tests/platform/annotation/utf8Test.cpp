#include "platform/annotation/src/utf8.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace qv::text {
namespace {

std::u32string decode(std::string_view utf8) {
  std::u32string characters;
  decodeForDisplay(utf8, characters);
  return characters;
}

/// The text with a U+FFFD for each unshowable character.
std::u32string show(std::string_view utf8) {
  std::u32string characters = decode(utf8);
  std::ranges::replace_if(characters, isUnshowable, REPLACEMENT_CHARACTER);
  return characters;
}

TEST(Utf8, DecodesEachLength) {
  EXPECT_EQ(show("A\xC3\xA9\xE2\x8C\x80\xF0\x9D\x92\x9C"), U"A\u00E9\u2300\U0001D49C");
}

TEST(Utf8, KeepsTabsAndBlanks) {
  EXPECT_EQ(show(" \ta "), U" \ta ");
}

TEST(Utf8, ReplacesEachControlCharacter) {
  EXPECT_EQ(show(std::string("a\0b", 3)), U"a\uFFFDb");
  EXPECT_EQ(show("\x01\n\r\x7F"), U"\uFFFD\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(show("\xC2\x85"), U"\uFFFD");
}

TEST(Utf8, ReplacesCharactersThatNoMarkupHoldsAndLineSeparators) {
  EXPECT_EQ(show("\xEF\xBF\xBE\xEF\xBF\xBF"), U"\uFFFD\uFFFD");
  EXPECT_EQ(show("\xE2\x80\xA8\xE2\x80\xA9"), U"\uFFFD\uFFFD");
}

TEST(Utf8, ReplacesEachMaximalIllFormedPieceOnce) {
  EXPECT_EQ(show("a\xFF\xFEz"), U"a\uFFFD\uFFFDz");
  EXPECT_EQ(show("\xE2\x8C"), U"\uFFFD");
  EXPECT_EQ(show("\xE2\x8Cz"), U"\uFFFDz");
  EXPECT_EQ(show("\xF0\x9D\x92\xE2\x8C\x80"), U"\uFFFD\u2300");
  EXPECT_EQ(show("\x80"), U"\uFFFD");
}

TEST(Utf8, RefusesOverlongFormsAndNumbersBeyondUnicode) {
  EXPECT_EQ(show("\xC0\x80"), U"\uFFFD\uFFFD");
  EXPECT_EQ(show("\xE0\x80\xAF"), U"\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(show("\xF4\x90\x80\x80"), U"\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(Utf8, ReplacesASurrogateByOneSign) {
  EXPECT_EQ(show("a\xED\xA0\x80z"), U"a\uFFFDz");
  EXPECT_EQ(show("\xED\xA0\xBD\xED\xB8\x80"), U"\uFFFD\uFFFD");
  EXPECT_EQ(show("\xED\xA0"), U"\uFFFD\uFFFD");
  EXPECT_EQ(show("\xED\x9F\xBF"), U"\uD7FF");
}

TEST(Utf8, KeepsTheBytesOfWhatItReplaces) {
  std::u32string const characters = decode("\x01\xFF\xED\xA0\x80\xE2\x8C\xF0\x9D\x92\uFFFD");
  ASSERT_EQ(characters.size(), 6U);
  EXPECT_EQ(getUnshowableBytes(characters[0]), "\x01");
  EXPECT_EQ(getUnshowableBytes(characters[1]), "\xFF");
  EXPECT_EQ(getUnshowableBytes(characters[2]), "\xED\xA0\x80");
  EXPECT_EQ(getUnshowableBytes(characters[3]), "\xE2\x8C");
  EXPECT_EQ(getUnshowableBytes(characters[4]), "\xF0\x9D\x92");
  EXPECT_EQ(characters[5], REPLACEMENT_CHARACTER);
  EXPECT_EQ(getUnshowableBytes(decode(std::string_view("\0", 1))[0]), std::string(1, '\0'));
}

TEST(Utf8, EncodesEveryScalarValueSoThatItDecodesAgain) {
  for (char32_t character = 0x20; character <= 0x10FFFF; ++character) {
    if (character >= 0xD800 && character <= 0xDFFF) continue;
    std::string text;
    appendUtf8(text, character);
    std::u32string const decoded = decode(text);
    ASSERT_EQ(decoded.size(), 1U);
    ASSERT_TRUE(decoded[0] == character || getUnshowableBytes(decoded[0]) == text);
  }
}

}  // namespace
}  // namespace qv::text
