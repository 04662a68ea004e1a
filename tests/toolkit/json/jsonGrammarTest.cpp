#include "tests/toolkit/json/jsonGrammar.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>

#include "json/jsonReader.h"

namespace {

using namespace qvToolkit;
using namespace std::string_literals;
using qvToolkit::test::JsonGrammar;

constexpr std::size_t MaxContainers = 100;

/// What has been taken for a number somewhere, and what numbers look like.
std::array const NumberTexts = {
    "0"s,
    "-0"s,
    "7"s,
    "-7"s,
    "10"s,
    "120"s,
    "0.5"s,
    "-0.25"s,
    "1.50"s,
    "1e5"s,
    "1E5"s,
    "1e+5"s,
    "1e-5"s,
    "0e0"s,
    "0E-0"s,
    "-0.0"s,
    "1.25e3"s,
    "1e0005"s,
    "1e-400"s,
    "5e-324"s,
    "1.7976931348623157e308"s,
    "9223372036854775807"s,
    "-9223372036854775808"s,
    "9223372036854775808"s,
    "-9223372036854775809"s,
    "18446744073709551615"s,
    "18446744073709551616"s,
    "123456789012345678901234567890"s,
    "0.1000000000000000055511151231257827"s,
    // Refused from here on.
    "01"s,
    "-01"s,
    "00"s,
    "-00"s,
    "007"s,
    "00.5"s,
    "01e1"s,
    "1."s,
    "-1."s,
    "1.e5"s,
    ".5"s,
    "-.5"s,
    "+1"s,
    "+0.5"s,
    "1e"s,
    "1e+"s,
    "1E-"s,
    "1e5.5"s,
    "1ee5"s,
    "1.5.5"s,
    "0x10"s,
    "0X1"s,
    "-0x1"s,
    "0x1p3"s,
    "0x1.8p1"s,
    "0b1"s,
    "0o7"s,
    "1_000"s,
    "1,5"s,
    "1'000"s,
    "1 000"s,
    "-"s,
    "--1"s,
    "- 1"s,
    "-+1"s,
    "+-1"s,
    "1-"s,
    "1-2"s,
    "1+1"s,
    "1e999"s,
    "1e400"s,
    "-1e400"s,
    "1e99999999999999999999"s,
    "NaN"s,
    "nan"s,
    "-NaN"s,
    "-nan"s,
    "nan(1)"s,
    "-nan(1)"s,
    "-nan()"s,
    "-nan(abc)"s,
    "Infinity"s,
    "infinity"s,
    "-Infinity"s,
    "-infinity"s,
    "-INFINITY"s,
    "inf"s,
    "-inf"s,
    "-INF"s,
    "-Inf"s,
    "1inf"s,
    "1nan"s,
    "1f"s,
    "1.0f"s,
    "1d"s,
    "1L"s,
    "1u"s,
    "1n"s,
    "1\""s,
    "1\"\""s,
    "1a"s,
    "12abc"s,
    "1[]"s,
    "1{}"s,
    "1:"s,
    "1:2"s,
    "1/2"s,
    "1//"s,
    "1/**/"s,
    "1#"s,
    "1;"s,
    "1$"s,
    "1%"s,
    "1)"s,
    "(1)"s,
    "1\\"s,
    "1\\u0030"s,
    "1\0"s,
    "1\0002"s,
    "\0001"s,
    "1\x01"s,
    "1\x0B"s,
    "1\x0C"s,
    "1\x1F"s,
    "1\x7F"s,
    "1\x80"s,
    "1\xA0"s,
    "1\u00A0"s,
    "1\u0660"s,
    "\u0661"s,
    "1\uFEFF"s,
    "\uFEFF1"s,
    "1\u2028"s,
    "\uFF11"s,
    "\u22121"s,
};

std::array const OtherTexts = {
    // Sound values.
    "null"s,
    "true"s,
    "false"s,
    "\"\""s,
    "\"a\\u0041\\n\\/\""s,
    "[]"s,
    "{}"s,
    "[ ]"s,
    "{\t}"s,
    "[[],[]]"s,
    "{\"a\":{}}"s,
    "{\"\":0,\"a\":1}"s,
    "\"\x7F\""s,
    "\"\u00E9\u20AC\U0001F600\""s,
    "\"\\ud83d\\ude00\""s,
    "\"\\ud83d\""s,
    "\"\\ude00x\""s,
    "\"\uFEFF\""s,
    "\"\\u0000\""s,
    "\r\n\t 1 \r\n\t"s,
    // Refused from here on.
    ""s,
    " "s,
    "nul"s,
    "nulll"s,
    "nullnull"s,
    "null1"s,
    "NULL"s,
    "Null"s,
    "tru"s,
    "truee"s,
    "truefalse"s,
    "true\""s,
    "true false"s,
    "TRUE"s,
    "fals"s,
    "falsey"s,
    "False"s,
    "undefined"s,
    "t"s,
    "n"s,
    "f"s,
    "null\0"s,
    "true\x0C"s,
    "\""s,
    "\"a"s,
    "a\""s,
    "\"a\"b"s,
    "\"a\"\"b\""s,
    "'a'"s,
    "`a`"s,
    "\"\\x41\""s,
    "\"\\u12\""s,
    "\"\\u12g4\""s,
    "\"\\u+123\""s,
    "\"\\U0041\""s,
    "\"\\'\""s,
    "\"\\0\""s,
    "\"\\\""s,
    "\"\n\""s,
    "\"\t\""s,
    "\"\x01\""s,
    "\"\x1F\""s,
    "\"\0\""s,
    "\"\\\n\""s,
    "\"\x80\""s,
    "\"\xC0\x80\""s,
    "\"\xC3\""s,
    "\"\xED\xA0\x80\""s,
    "\"\xF4\x90\x80\x80\""s,
    "\"\xFF\""s,
    "\"\\ud83d\\q\""s,
    "\xEF\xBB"s,
    "[1,]"s,
    "[,1]"s,
    "[,]"s,
    "[1,,2]"s,
    "[1 2]"s,
    "[1"s,
    "1]"s,
    "["s,
    "]"s,
    "[]]"s,
    "[[]"s,
    "[1}"s,
    "{1}"s,
    "{"s,
    "}"s,
    "{}}"s,
    "{\"a\"}"s,
    "{\"a\":}"s,
    "{\"a\":1,}"s,
    "{,}"s,
    "{\"a\":1 \"b\":2}"s,
    "{\"a\" 1}"s,
    "{\"a\"::1}"s,
    "{\"a\":1:2}"s,
    "{a:1}"s,
    "{'a':1}"s,
    "{1:1}"s,
    "{null:1}"s,
    "{\"a\":1]"s,
    "{\"a\",1}"s,
    "[\"a\":1]"s,
    "[1]x"s,
    "[1] 2"s,
    "{} {}"s,
    "{},"s,
    "[],"s,
    "/**/1"s,
    "1/**/"s,
    "// a\n1"s,
    "[1//\n]"s,
    "# a\n1"s,
    "[\uFEFF1]"s,
    "{\uFEFF}"s,
    "[1]\uFEFF"s,
    "[1]\0"s,
    "[\0]"s,
    "[1]\x1A"s,
    "[\x0B]"s,
    "[\x0C]"s,
    "[\u00A01]"s,
    "[\xA0]"s,
    "[*]"s,
    "[-]"s,
    "[.]"s,
    "[,"s,
    ":"s,
    ","s,
    "-"s,
    "[true,fals]"s,
};

/// Places where a value may stand, with 'V' for it.
constexpr char const* Places[] = {"V",
                                  " V ",
                                  "[V]",
                                  "[ V ]",
                                  "[V,1]",
                                  "[1,V]",
                                  "[[V],2]",
                                  "{\"a\":V}",
                                  "{\"a\":1,\"b\":V}",
                                  "{\"a\":[V]}",
                                  "[{\"a\": V}, 3]",
                                  "[\n\n  V\n]",
                                  "[V\n,\"x\"]"};

std::string fill(std::string_view place, std::string const& value) {
  std::string text(place);
  return text.replace(text.find('V'), 1, value);
}

std::string show(std::string const& text) {
  return testing::PrintToString(text);
}

/// The reader and the grammar agree about the text, and a refusal says where.
void checkText(std::string const& text) {
  // In front of the text, and nowhere else, the reader passes over a byte-order mark.
  JsonGrammar grammar(text.starts_with("\uFEFF") ? std::string_view(text).substr(3) : text);
  bool const isExpected = grammar.takeText() && !grammar.hasHugeNumber();
  std::string copy = text;
  JsonReading const reading = readJson(copy, MaxContainers);
  ASSERT_EQ(!reading.m_isBroken, isExpected) << show(text);
  if (isExpected) return;
  ASSERT_EQ(reading.m_findings.size(), 1U) << show(text);
  Finding const& finding = reading.m_findings[0];
  EXPECT_TRUE(finding.m_text.starts_with("no valid JSON: found ")) << show(text) << ": " << finding.m_text;
  EXPECT_TRUE(finding.m_place.m_line.has_value() && finding.m_place.m_column.has_value()) << show(text);
  EXPECT_LE(finding.m_place.m_byteOffset.value_or(text.size() + 1), text.size()) << show(text);
}

/// Numbers of a generator that is the same everywhere.
class Dice {
 public:
  std::size_t roll(std::size_t count) { return m_generator() % count; }
  template <class List>
  auto const& pick(List const& list) {
    return list[roll(std::size(list))];
  }

 private:
  std::mt19937 m_generator{20260131};
};

/// Characters that mean something in JSON or in numbers of other grammars.
constexpr std::string_view Alphabet(
    "0123456789+-.eExXpPnaNIifty_ ,:[]{}\"\\/'\t\n\0\x01\x0C\x7F\x80\xC3\xA9\xEF\xBB\xBF", 52);

std::string mutate(std::string text, Dice& dice) {
  std::size_t const place = dice.roll(text.size() + 1);
  switch (dice.roll(4)) {
    case 0:
      return text.insert(place, 1, dice.pick(Alphabet));
    case 1:
      return place < text.size() ? text.replace(place, 1, 1, dice.pick(Alphabet)) : text;
    case 2:
      return text.erase(place, 1);
    default:
      return text.insert(place, dice.pick(NumberTexts));
  }
}

TEST(JsonGrammar, RefusesWhatOtherGrammarsTakeForNumbers) {
  for (char const* const text : {"-Infinity", "-inf", "-nan(1)", "01", "1.", ".5", "+1", "0x10"}) {
    EXPECT_FALSE(JsonGrammar(text).takeText()) << text;
  }
  for (char const* const text : {"-0", "1e5", "0.5", "1E-400", "[1, {\"a\": null}]"}) {
    EXPECT_TRUE(JsonGrammar(text).takeText()) << text;
  }
}

TEST(JsonReader, AgreesWithTheGrammarAboutEveryTextInEveryPlace) {
  for (char const* const place : Places) {
    for (std::string const& text : NumberTexts) checkText(fill(place, text));
    for (std::string const& text : OtherTexts) checkText(fill(place, text));
  }
}

TEST(JsonReader, AgreesWithTheGrammarAboutTheNeighboursOfNumbers) {
  for (std::string const& number : NumberTexts) {
    for (std::size_t place = 0; place <= number.size(); ++place) {
      if (place < number.size()) checkText("[" + std::string(number).erase(place, 1) + "]");
      for (char const c : Alphabet) checkText("[" + std::string(number).insert(place, 1, c) + "]");
    }
  }
}

TEST(JsonReader, AgreesWithTheGrammarAboutRandomTexts) {
  Dice dice;
  for (int round = 0; round < 40000; ++round) {
    std::string text = fill(dice.pick(Places), fill("[V,V]", dice.pick(OtherTexts)));
    text = fill(text, dice.pick(NumberTexts));
    for (std::size_t changes = dice.roll(4); changes > 0; --changes) text = mutate(std::move(text), dice);
    checkText(text);
    if (HasFailure()) return;
  }
}

/// The number is read as the C library reads it, to the last bit.
void checkNumber(std::string const& number) {
  std::string text = "[" + number + "]";
  JsonReading const reading = readJson(text, MaxContainers);
  ASSERT_FALSE(reading.m_isBroken) << number;
  qv::qvVariant const value = reading.m_value.toList().at(0);
  errno = 0;
  long long const integer = std::strtoll(number.c_str(), nullptr, 10);
  bool const isInteger = number.find_first_of(".eE") == std::string::npos && errno == 0;
  ASSERT_EQ(value.getKind(), isInteger ? qv::qvVariant::Kind::Integer : qv::qvVariant::Kind::Real) << number;
  if (isInteger) {
    EXPECT_EQ(value.toInteger(), integer) << number;
    return;
  }
  double const expected = std::strtod(number.c_str(), nullptr);
  EXPECT_EQ(std::bit_cast<std::uint64_t>(value.toReal()), std::bit_cast<std::uint64_t>(expected)) << number;
}

std::string makeDigits(Dice& dice, std::size_t count) {
  std::string digits;
  while (digits.size() < count) digits += static_cast<char>('0' + dice.roll(10));
  return digits;
}

TEST(JsonReader, ReadsEveryNumberToTheLastBit) {
  for (std::string const& number : NumberTexts) {
    JsonGrammar grammar(number);
    if (grammar.takeText() && !grammar.hasHugeNumber()) checkNumber(number);
  }
}

TEST(JsonReader, ReadsRandomNumbersOfManyDigitsToTheLastBit) {
  Dice dice;
  for (int round = 0; round < 20000; ++round) {
    std::string number = dice.roll(2) == 0 ? "-" : "";
    number += static_cast<char>('1' + dice.roll(9));
    number += makeDigits(dice, dice.roll(25));
    if (dice.roll(4) > 0) number += "." + makeDigits(dice, 1 + dice.roll(40));
    if (dice.roll(2) > 0) number += "e-" + std::to_string(dice.roll(340));
    checkNumber(number);
    if (HasFailure()) return;
  }
}

TEST(JsonReader, SaysWhereTheWordForAnInfiniteNumberStands) {
  std::string text = "[{\"x\": 1,\n  \"y\": -Infinity}]";
  JsonReading const reading = readJson(text, MaxContainers);
  ASSERT_TRUE(reading.m_isBroken);
  EXPECT_EQ(reading.m_findings[0].m_text, "no valid JSON: found 'Infinity', expected a digit");
  EXPECT_EQ(reading.m_findings[0].m_place.m_line, 2U);
  EXPECT_EQ(reading.m_findings[0].m_place.m_column, 9U);
}

}  // namespace
