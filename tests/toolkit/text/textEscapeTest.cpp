#include "qvToolkit/text/textEscape.h"

#include <gtest/gtest.h>
#include <simdjson.h>

#include <algorithm>
#include <cstdint>
#include <string>

#include "text/utf8.h"

namespace {

using namespace qvToolkit;
using namespace std::string_literals;

/// All byte strings of one and two bytes, and three and four bytes of telling values.
std::vector<std::string> makeByteStrings() {
  std::vector<std::string> strings;
  for (int a = 0; a < 256; ++a) {
    strings.push_back({static_cast<char>(a)});
    for (int b = 0; b < 256; ++b) strings.push_back({static_cast<char>(a), static_cast<char>(b)});
  }
  std::string const telling = "\x00<a\x7F\x80\x8F\x90\x9F\xA0\xBF\xC0\xC2\xDF\xE0\xED\xEF\xF0\xF4\xF5\xFF"s;
  for (char const a : telling) {
    for (char const b : telling) {
      for (char const c : telling) {
        strings.push_back({a, b, c});
        for (char const d : telling) strings.push_back({a, b, c, d});
      }
    }
  }
  return strings;
}

std::string makeUtf8(char32_t codePoint) {
  std::string text;
  appendUtf8(text, codePoint);
  return text;
}

TEST(Utf8, AgreesWithAnIndependentValidatorOnAllShortByteStrings) {
  for (std::string const& bytes : makeByteStrings()) {
    ASSERT_EQ(isValidUtf8(bytes), simdjson::validate_utf8(bytes)) << escapeTerminal(bytes);
  }
}

TEST(Utf8, DecodesWhatItEncodes) {
  for (char32_t c = 0; c <= 0x10FFFF; ++c) {
    Utf8Step const step = decodeUtf8(makeUtf8(c));
    ASSERT_EQ(step.m_isValid, c < 0xD800 || c > 0xDFFF);
    ASSERT_EQ(step.m_codePoint, c);
  }
}

TEST(RepairUtf8, KeepsValidTextAndSaysSo) {
  bool repaired = true;
  EXPECT_EQ(repairUtf8("a\t\n\r\u2300\U0001F600", &repaired), "a\t\n\r\u2300\U0001F600");
  EXPECT_FALSE(repaired);
}

TEST(RepairUtf8, ReplacesEachMaximalInvalidSequenceOnce) {
  EXPECT_EQ(repairUtf8("a\xFFz"), "a\uFFFDz");
  EXPECT_EQ(repairUtf8("\xE2\x8C(\x80"), "\uFFFD(\uFFFD");
  EXPECT_EQ(repairUtf8("\xF0\x9F\x98"), "\uFFFD");
  EXPECT_EQ(repairUtf8("\xC0\xBC"), "\uFFFD\uFFFD");
  EXPECT_EQ(repairUtf8("\xF4\x90\x80\x80"), "\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(RepairUtf8, ReplacesAnEncodedSurrogateOnce) {
  EXPECT_EQ(repairUtf8("\xED\xA0\x80"), "\uFFFD");
  EXPECT_EQ(repairUtf8("\xED\xBF\xBFz"), "\uFFFDz");
}

TEST(RepairUtf8, ReplacesControlCharactersAndNonCharacters) {
  bool repaired = false;
  EXPECT_EQ(repairUtf8("a\0b\x1B\x7F"s, &repaired), "a\uFFFDb\uFFFD\uFFFD");
  EXPECT_TRUE(repaired);
  EXPECT_EQ(repairUtf8("\u0085\uFFFE\uFFFF\uFFFD"), "\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(EscapeXml, LeavesNoMarkupAndNoCharacterThatXmlForbids) {
  EXPECT_EQ(escapeXml("<script a='1' b=\"2\">&\t\n\r"),
            "&lt;script a=&#39;1&#39; b=&quot;2&quot;&gt;&amp;&#9;&#10;&#13;");
  for (std::string const& bytes : makeByteStrings()) {
    std::string const text = escapeXml(bytes);
    ASSERT_TRUE(simdjson::validate_utf8(text));
    ASSERT_EQ(text.find_first_of("<>\"'"), std::string::npos);
    ASSERT_TRUE(std::none_of(text.begin(), text.end(), [](char c) { return c >= 0 && c < 0x20; }));
  }
}

TEST(QuoteJson, ReadsBackAsTheRepairedBytes) {
  simdjson::dom::parser parser;
  for (std::string const& bytes : makeByteStrings()) {
    std::string const json = quoteJson(bytes);
    std::string_view content;
    ASSERT_EQ(parser.parse("[" + json + "]").at(0).get(content), simdjson::SUCCESS) << json;
    if (isValidUtf8(bytes)) {
      ASSERT_EQ(content, bytes);
    } else {
      ASSERT_NE(content.find("\uFFFD"), std::string_view::npos);
    }
  }
}

TEST(QuoteJson, EscapesControlsAndLayoutControls) {
  EXPECT_EQ(quoteJson("a\"\\\b\f\n\r\t\x01\x7F"), R"("a\"\\\b\f\n\r\t\u0001\u007f")");
  EXPECT_EQ(quoteJson("\u009b\u202e\u2028\u00e9"), "\"\\u009b\\u202e\\u2028\u00e9\"");
}

TEST(EscapeTerminal, ShowsControlsAndInvalidBytesAsEscapes) {
  EXPECT_EQ(escapeTerminal("a\x1B[0m\n\x7F\xFF"), "a\\x1b[0m\\x0a\\x7f\\xff");
  EXPECT_EQ(escapeTerminal("\u009b\u202e\u2066\u200f"), "\\u009b\\u202e\\u2066\\u200f");
  EXPECT_EQ(escapeTerminal("C:\\x \u2300"), "C:\\\\x \u2300");
  EXPECT_EQ(escapeTerminal("\xED\xA0\x80"), "\\xed\\xa0\\x80");
}

TEST(ShortenText, LeavesShortTextsAsTheyAre) {
  for (std::string const& text : {std::string(), std::string("\xff\x01"), std::string(200, 'x')}) {
    EXPECT_EQ(shortenText(text), text);
  }
}

TEST(ShortenText, KeepsTheBeginningOfLongOnesAndTellsTheirSize) {
  EXPECT_EQ(shortenText(std::string(201, 'x')), std::string(200, 'x') + "... (201 bytes)");
  EXPECT_EQ(shortenText("abcdef", 4), "abcd... (6 bytes)");
}

TEST(ShortenText, CutsNoCharacterInTwo) {
  EXPECT_EQ(shortenText("ab\u2300\u2300", 4), "ab... (8 bytes)");
  EXPECT_EQ(shortenText("ab\u2300\u2300", 5), "ab\u2300... (8 bytes)");
  EXPECT_EQ(shortenText("\U0001F600\U0001F600", 3), "... (8 bytes)");
  EXPECT_EQ(shortenText("\x80\x80\x80\x80", 3), "\x80\x80\x80... (4 bytes)");
}

TEST(EscapeTerminal, LetsNoControlByteThrough) {
  for (std::string const& bytes : makeByteStrings()) {
    std::string const text = escapeTerminal(bytes);
    ASSERT_TRUE(simdjson::validate_utf8(text));
    ASSERT_TRUE(
        std::none_of(text.begin(), text.end(), [](char c) { return (c >= 0 && c < 0x20) || c == 0x7F; }));
  }
}

}  // namespace
