#include "json/jsonFault.h"

#include <gtest/gtest.h>

#include <string>

#include "json/jsonNumber.h"

namespace {

using namespace qvToolkit;
using namespace std::string_literals;

constexpr std::size_t MaxContainers = 1000;

struct Case {
  std::string m_text;
  std::size_t m_offset;
  std::string m_found;
  std::string m_expected;
};

TEST(JsonFault, IsNotFoundInSoundText) {
  for (char const* const text : {"{}",
                                 "[]",
                                 " [ ] ",
                                 "1",
                                 "-0",
                                 "-0.5e-3",
                                 "1E+2",
                                 "\"\"",
                                 "\"\\u00e9\\ud83d\\ude00\\/\"",
                                 "null",
                                 "\"\\ud800\"",
                                 "\"\\ud800\\u0041\"",
                                 "\"\\udc00\"",
                                 "true",
                                 "false",
                                 "[1,2,[{}],{\"a\":[],\"b\":{}}]",
                                 "\n\t[\r1]\n",
                                 "1e-999",
                                 "0e99999999999999999999",
                                 "\"\xC3\xA9\"",
                                 "0.000000000000000000000000000001e300"}) {
    std::optional<JsonFault> const fault = findJsonFault(text, MaxContainers);
    EXPECT_FALSE(fault.has_value()) << text << ": "
                                    << (fault ? fault->m_found + " / " + fault->m_expected : "");
  }
}

TEST(JsonFault, SaysWhereItIsWhatWasFoundAndWhatWasExpected) {
  std::string const End = "the end of the text";
  Case const cases[] = {
      {"", 0, End, "a value"},
      {"hello", 0, "'hello'", "a value"},
      {"[1 2]", 3, "'2'", "',' or ']' of the array that begins at line 1, column 1"},
      {"[\n {\"a\":1 ]", 10, "']'", "',' or '}' of the object that begins at line 2, column 2"},
      {"[1", 2, End, "',' or ']' of the array that begins at line 1, column 1"},
      {"[1,]", 3, "']'", "a value"},
      {"{\"a\":1,}", 7, "'}'", "a key in double quotes"},
      {"{a:1}", 1, "'a'", "a key in double quotes"},
      {"{\"a\" 1}", 5, "'1'", "':' after a key"},
      {"{\"a\":", 5, End, "a value"},
      {"[tru]", 1, "'tru'", "true"},
      {"[falsey]", 1, "'falsey'", "false"},
      {"[NaN]", 1, "'NaN'", "a value"},
      {"[01]", 1, "'01'", "a number without leading zeros"},
      {"[-]", 2, "']'", "a digit"},
      {"[1.]", 3, "']'", "a digit"},
      {"[1e+]", 4, "']'", "a digit"},
      {"[.5]", 1, "'.'", "a value"},
      {"[+1]", 1, "'+'", "a value"},
      {"[1x]", 2, "'x'", "',' or the end of the number's object or array"},
      {"[1e999]", 1, "the number '1e999'", "a number of at most 1.8e308"},
      {"[-1e309]", 1, "the number '-1e309'", "a number of at most 1.8e308"},
      {"{} x", 3, "'x'", End},
      {"{}}", 2, "'}'", End},
      {"\"abc", 4, End, "the closing quote of the string that begins at line 1, column 1"},
      {"\"a\nb\"", 2, "the control character '\n' in a string",
       "its escape, or the closing quote of the string that begins at line 1, column 1"},
      {"\"\xFF\"", 1, "invalid UTF-8 '\xFF'", "UTF-8 text"},
      {"\"\xE2\x8C\"", 1, "invalid UTF-8 '\xE2\x8C'", "UTF-8 text"},
      {"\"\\x\"", 1, "'\\x'", "one of the escapes \\\" \\\\ \\/ \\b \\f \\n \\r \\t \\uXXXX"},
      {"\"\\", 2, End, "one of the escapes \\\" \\\\ \\/ \\b \\f \\n \\r \\t \\uXXXX"},
      {"\"\\u12g4\"", 1, "'\\u12g4'", "four hexadecimal digits after \\u"},
      {"[1,\0]"s, 3, "'\0'"s, "a value"},
      {"[1] \0"s, 4, "'\0'"s, End},
      {"[/*1*/]", 1, "'/'", "a value"},
      {"['a']", 1, "'''", "a value"},
  };
  for (Case const& expected : cases) {
    std::optional<JsonFault> const fault = findJsonFault(expected.m_text, MaxContainers);
    ASSERT_TRUE(fault.has_value()) << expected.m_text;
    EXPECT_EQ(fault->m_offset, expected.m_offset) << expected.m_text;
    EXPECT_EQ(fault->m_found, expected.m_found) << expected.m_text;
    EXPECT_EQ(fault->m_expected, expected.m_expected) << expected.m_text;
    EXPECT_FALSE(fault->m_isTooDeep);
  }
}

TEST(JsonFault, ShowsTheBeginningOfALongWord) {
  std::optional<JsonFault> const fault = findJsonFault(std::string(1000, 'a'), MaxContainers);
  ASSERT_TRUE(fault.has_value());
  EXPECT_EQ(fault->m_found, "'" + std::string(40, 'a') + "...'");
}

TEST(JsonFault, AllowsExactlyTheStatedNumberOfContainers) {
  EXPECT_FALSE(findJsonFault(std::string(1000, '[') + std::string(1000, ']'), 1000).has_value());
  std::optional<JsonFault> const fault = findJsonFault(std::string(1001, '[') + std::string(1001, ']'), 1000);
  ASSERT_TRUE(fault.has_value());
  EXPECT_TRUE(fault->m_isTooDeep);
  EXPECT_EQ(fault->m_offset, 1000U);
}

TEST(JsonNumber, IsBeyondADoubleOnlyAtTheLargeEnd) {
  EXPECT_FALSE(readReal("1e999").has_value());
  EXPECT_FALSE(readReal("-1e999").has_value());
  EXPECT_FALSE(readReal("1e99999999999999999999").has_value());
  EXPECT_FALSE(readReal("1" + std::string(400, '0')).has_value());
  EXPECT_FALSE(readReal("0." + std::string(400, '0') + "1e800").has_value());
  EXPECT_TRUE(readReal("1e-999").has_value());
  EXPECT_TRUE(readReal("1e-99999999999999999999").has_value());
  EXPECT_TRUE(readReal("0." + std::string(400, '0') + "1").has_value());
  EXPECT_TRUE(readReal("1" + std::string(400, '0') + "e-800").has_value());
  EXPECT_TRUE(readReal("1.7976931348623157e308").has_value());
}

}  // namespace
