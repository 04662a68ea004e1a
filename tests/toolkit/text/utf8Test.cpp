#include "text/utf8.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace qvToolkit {

namespace {

TEST(Utf8, ReadsBackEveryCharacterThatItWrites) {
  for (char32_t c = 0; c <= 0x10FFFF; ++c) {
    if (isSurrogate(c)) continue;
    std::string text;
    appendUtf8(text, c);
    Utf8Step const step = decodeUtf8(text);
    ASSERT_TRUE(step.m_isValid) << static_cast<unsigned>(c);
    ASSERT_EQ(step.m_codePoint, c);
    ASSERT_EQ(step.m_length, text.size());
  }
}

TEST(Utf8, TakesAnEncodedSurrogateAsOneInvalidSequence) {
  std::string_view text = "\xED\xA0\x80x";
  Utf8Step const step = takeUtf8(text);
  EXPECT_FALSE(step.m_isValid);
  EXPECT_TRUE(isHighSurrogate(step.m_codePoint));
  EXPECT_EQ(text, "x");
}

TEST(Utf8, TakesAsManyInvalidBytesAsCouldBeginACharacter) {
  std::vector<std::string> pieces;
  forEachCharacter("a\xE2\x82z\xFF\xC0\xE2\x8C\x80",
                   [&](Utf8Step const&, std::string_view bytes) { pieces.emplace_back(bytes); });
  EXPECT_EQ(pieces, (std::vector<std::string>{"a", "\xE2\x82", "z", "\xFF", "\xC0", "\xE2\x8C\x80"}));
}

TEST(Utf8, KnowsTheBytesThatBeginACharacter) {
  for (char const byte : std::string("a\x7F\xC3\xFF")) EXPECT_TRUE(beginsCharacter(byte));
  for (char const byte : std::string("\x80\xBF")) EXPECT_FALSE(beginsCharacter(byte));
}

TEST(Utf8, AcceptsShortestFormsUpToTheLastCharacterOnly) {
  EXPECT_TRUE(isValidUtf8(""));
  EXPECT_TRUE(isValidUtf8("\xF4\x8F\xBF\xBF"));
  EXPECT_FALSE(isValidUtf8("\xF4\x90\x80\x80"));
  EXPECT_FALSE(isValidUtf8("\xC1\xBF"));
  EXPECT_FALSE(isValidUtf8("ab\xC3"));
}

}  // namespace

}  // namespace qvToolkit
