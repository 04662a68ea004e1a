#include "json/jsonString.h"

#include <gtest/gtest.h>

namespace {

using namespace qvToolkit;

TEST(JsonString, IsReadUpToItsClosingQuote) {
  EXPECT_EQ(readJsonString(R"("abc" "d")")->m_text, "abc");
  EXPECT_EQ(readJsonString(R"("")")->m_text, "");
  EXPECT_EQ(readJsonString(R"("\"\\\/\b\f\n\r\t")")->m_text, "\"\\/\b\f\n\r\t");
  EXPECT_EQ(readJsonString("\"\\u00E9\\u2300\\uD83d\\uDe00\"")->m_text, "\u00E9\u2300\U0001F600");
}

TEST(JsonString, CountsHalvesOfSurrogatePairs) {
  JsonString const string = *readJsonString(R"("a\uDC00\ud800\ud83d\ude00\ud800")");
  EXPECT_EQ(string.m_text, "a\uFFFD\uFFFD\U0001F600\uFFFD");
  EXPECT_EQ(string.m_firstHalf, "\\uDC00");
  EXPECT_EQ(string.m_halves, 3U);
  EXPECT_EQ(readJsonString(R"("\ud83d\ude00")")->m_halves, 0U);
}

TEST(JsonString, IsNoneWithoutClosingQuoteOrWithAnUnknownEscape) {
  for (char const* const text :
       {"\"", "\"abc", "\"\\", "\"\\q\"", "\"\\u12\"", "\"\\u12g4\"", "\"\\ud800\\u\"", ""}) {
    EXPECT_FALSE(readJsonString(text).has_value()) << text;
  }
}

}  // namespace
