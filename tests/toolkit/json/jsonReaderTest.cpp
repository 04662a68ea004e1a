#include "json/jsonReader.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <string>

#include "json/jsonFault.h"
#include "model/variantLookup.h"

namespace {

using namespace qvToolkit;
using Kind = qv::qvVariant::Kind;

constexpr std::size_t MaxContainers = 1000;

JsonReading read(std::string text) {
  return readJson(text, MaxContainers);
}

TEST(JsonReader, TellsIntegersFromReals) {
  VariantList const list =
      read("[3, 3.0, 3e0, -0, 1e2, -9223372036854775808, 9223372036854775807]").m_value.toList();
  ASSERT_EQ(list.size(), 7U);
  Kind const kinds[] = {Kind::Integer, Kind::Real,    Kind::Real,   Kind::Integer,
                        Kind::Real,    Kind::Integer, Kind::Integer};
  for (std::size_t i = 0; i < list.size(); ++i) EXPECT_EQ(list[i].getKind(), kinds[i]) << i;
  EXPECT_EQ(list[5].toInteger(), std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(list[6].toInteger(), std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(list[4].toReal(), 100.0);
}

TEST(JsonReader, ReadsEveryKind) {
  JsonReading const reading =
      read(R"({"n":null,"t":true,"f":false,"s":"\u00e9\ud83d\ude00\n","l":[[],{}],"m":{"":1}})");
  ASSERT_FALSE(reading.m_isBroken);
  EXPECT_TRUE(reading.m_findings.empty());
  VariantMap const& map = reading.m_value.toMap();
  ASSERT_EQ(map.size(), 6U);
  EXPECT_TRUE(findValue(map, "n")->isNull());
  EXPECT_EQ(*findValue(map, "t"), qv::qvVariant(true));
  EXPECT_EQ(*findValue(map, "f"), qv::qvVariant(false));
  EXPECT_EQ(*findValue(map, "s"), qv::qvVariant("\u00e9\U0001F600\n"));
  EXPECT_TRUE(findValue(map, "l")->toList().at(0).isList());
  EXPECT_TRUE(findValue(map, "l")->toList().at(1).isMap());
  EXPECT_EQ(findValue(map, "m")->toMap().begin()->second.toInteger(), 1);
}

TEST(JsonReader, ReadsHalfASurrogatePairAsAReplacementCharacterWithAWarning) {
  JsonReading const reading =
      read("{\"a\":[1,\n \"x\\udc00y\\ud800\\u0041\"],\"\\ud83dk\":2,\"z\":\"\\ud800\"}");
  ASSERT_FALSE(reading.m_isBroken);
  VariantMap const& map = reading.m_value.toMap();
  EXPECT_EQ(findValue(map, "a")->toList()[1], qv::qvVariant("x\uFFFDy\uFFFDA"));
  EXPECT_EQ(findValue(map, "\uFFFDk")->toInteger(), 2);
  EXPECT_EQ(*findValue(map, "z"), qv::qvVariant("\uFFFD"));
  ASSERT_EQ(reading.m_findings.size(), 3U);
  Finding const& first = reading.m_findings[0];
  EXPECT_EQ(first.m_code, FindingCode::TextRepaired);
  EXPECT_EQ(first.m_severity, Severity::Warning);
  EXPECT_EQ(
      first.m_text,
      "found half of a surrogate pair, '\\udc00', and 1 more in the same string; it was read as U+FFFD");
  EXPECT_EQ(first.m_place.m_line, 2U);
  EXPECT_EQ(first.m_place.m_column, 2U);
  EXPECT_EQ(first.m_place.m_jsonPointer, "/a/1");
  EXPECT_EQ(reading.m_findings[1].m_place.m_jsonPointer, "/\uFFFDk");
  EXPECT_EQ(reading.m_findings[2].m_text, "found half of a surrogate pair, '\\ud800'; it was read as U+FFFD");
}

TEST(JsonReader, RefusesAWrongEscapeBesideHalfASurrogatePair) {
  JsonReading const reading = read(R"(["\ud800\q"])");
  EXPECT_TRUE(reading.m_isBroken);
  ASSERT_EQ(reading.m_findings.size(), 1U);
  EXPECT_EQ(reading.m_findings[0].m_place.m_column, 9U);
}

TEST(JsonReader, MakesAnIntegerBeyond64BitsARealWithAWarning) {
  for (char const* const number : {"9223372036854775808", "18446744073709551616", "-9223372036854775809",
                                   "123456789012345678901234567890"}) {
    JsonReading const reading = read("{\"a\":\n[" + std::string(number) + " , 1]}");
    ASSERT_FALSE(reading.m_isBroken) << number;
    VariantList const& list = findValue(reading.m_value.toMap(), "a")->toList();
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0].getKind(), Kind::Real);
    EXPECT_EQ(list[0].toReal(), qv::qvVariant(number).toReal());
    ASSERT_EQ(reading.m_findings.size(), 1U);
    Finding const& finding = reading.m_findings[0];
    EXPECT_EQ(finding.m_code, FindingCode::JsonBigInteger);
    EXPECT_EQ(finding.m_severity, Severity::Warning);
    EXPECT_EQ(finding.m_text, "the integer " + std::string(number) +
                                  " does not fit into 64 bits; it was read as a real number");
    EXPECT_EQ(finding.m_place.m_line, 2U);
    EXPECT_EQ(finding.m_place.m_column, 2U);
    EXPECT_EQ(finding.m_place.m_jsonPointer, "/a/0");
  }
}

TEST(JsonReader, KeepsTheLastOfEqualKeysAndSaysThatContentWentWithTheOther) {
  JsonReading const reading = read("[{\"a/b\":{\"x\":1},\n \"a\\u002fb\":[2]}]");
  VariantMap const& map = reading.m_value.toList().at(0).toMap();
  ASSERT_EQ(map.size(), 1U);
  ASSERT_TRUE(map.begin()->second.isList());
  EXPECT_EQ(map.begin()->second.toList().at(0).toInteger(), 2);
  ASSERT_EQ(reading.m_findings.size(), 1U);
  Finding const& finding = reading.m_findings[0];
  EXPECT_EQ(finding.m_code, FindingCode::JsonDuplicateKey);
  EXPECT_EQ(finding.m_severity, Severity::Error);
  EXPECT_EQ(finding.m_text,
            "the key 'a/b' appears again in the same object; the last value counts, and the one before it is "
            "lost");
  EXPECT_EQ(finding.m_place.m_line, 2U);
  EXPECT_EQ(finding.m_place.m_column, 2U);
  EXPECT_EQ(finding.m_place.m_jsonPointer, "/0/a~1b");
}

TEST(JsonReader, SkipsAByteOrderMarkWithAWarning) {
  JsonReading const reading = read("\xEF\xBB\xBF{\"a\":1,\"a\":2}");
  ASSERT_FALSE(reading.m_isBroken);
  EXPECT_EQ(findValue(reading.m_value.toMap(), "a")->toInteger(), 2);
  ASSERT_EQ(reading.m_findings.size(), 2U);
  EXPECT_EQ(reading.m_findings[0].m_code, FindingCode::JsonByteOrderMark);
  EXPECT_EQ(reading.m_findings[0].m_severity, Severity::Warning);
  EXPECT_EQ(reading.m_findings[0].m_place.m_line, 1U);
  EXPECT_EQ(reading.m_findings[0].m_place.m_column, 1U);
  // Columns count bytes of the file, the mark's three included.
  EXPECT_EQ(reading.m_findings[1].m_place.m_column, 11U);
  EXPECT_EQ(reading.m_findings[1].m_place.m_byteOffset, 10U);
}

TEST(JsonReader, ExplainsABrokenTextByLineAndColumn) {
  JsonReading const reading = read("{\"views\": [\n  {\"ver\": 1e999}\n]}");
  EXPECT_TRUE(reading.m_isBroken);
  EXPECT_TRUE(reading.m_value.isNull());
  ASSERT_EQ(reading.m_findings.size(), 1U);
  Finding const& finding = reading.m_findings[0];
  EXPECT_EQ(finding.m_code, FindingCode::JsonBroken);
  EXPECT_EQ(finding.m_severity, Severity::Error);
  EXPECT_EQ(finding.m_text, "no valid JSON: found the number '1e999', expected a number of at most 1.8e308");
  EXPECT_EQ(finding.m_place.m_line, 2U);
  EXPECT_EQ(finding.m_place.m_column, 11U);
}

TEST(JsonReader, RefusesDeepNestingQuickly) {
  auto const start = std::chrono::steady_clock::now();
  for (std::size_t const depth : {1001U, 10000U, 1000000U}) {
    for (bool const isClosed : {true, false}) {
      JsonReading const reading = read(std::string(depth, '[') + (isClosed ? std::string(depth, ']') : ""));
      EXPECT_TRUE(reading.m_isBroken);
      ASSERT_EQ(reading.m_findings.size(), 1U);
      EXPECT_EQ(reading.m_findings[0].m_code, FindingCode::JsonTooDeep);
      EXPECT_EQ(reading.m_findings[0].m_place.m_line, 1U);
      EXPECT_EQ(reading.m_findings[0].m_place.m_column, 1001U);
      EXPECT_EQ(reading.m_findings[0].m_text,
                "nested too deep: found more than 1000 objects and arrays within each other, expected at "
                "most 1000");
    }
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

TEST(JsonReader, ReadsATextOfTheGreatestDepth) {
  std::string text;
  for (int i = 0; i < 500; ++i) text += "[{\"a\":";
  text += "1";
  for (int i = 0; i < 500; ++i) text += "}]";
  EXPECT_FALSE(read(text).m_isBroken);
  EXPECT_TRUE(read("[" + text + "]").m_isBroken);
}

TEST(JsonReader, TakesALoneScalarForNullAndFindsItsFaults) {
  for (char const* const text : {"1", "\"a\"", "true", " null "}) {
    JsonReading const reading = read(text);
    EXPECT_FALSE(reading.m_isBroken) << text;
    EXPECT_TRUE(reading.m_value.isNull());
    EXPECT_TRUE(reading.m_findings.empty());
  }
  EXPECT_TRUE(read("tru").m_isBroken);
  EXPECT_TRUE(read("1 2").m_isBroken);
}

/// The parser and the search for faults are two programs: they must agree on what is JSON.
TEST(JsonReader, RefusesExactlyTheTextsThatHaveAFault) {
  std::string const sound =
      R"({"views":[{"ver":"6.22","name":"a\u00e9\n","x":[1,-2.5e3,true,null,{"b":[]},"s"]},{}],"y":-0.5})";
  std::string const bytes = "{}[]\",:\\u0e9.-+ntfaE \n\x01\x80\xE2\xFF]]}}";
  std::mt19937 random(3);
  for (int i = 0; i < 60000; ++i) {
    std::string text = sound;
    for (auto n = 1 + random() % 3; n > 0; --n) {
      std::size_t const at = random() % text.size();
      switch (random() % 4) {
        case 0:
          text[at] = bytes[random() % bytes.size()];
          break;
        case 1:
          text.erase(at, 1 + random() % 3);
          break;
        case 2:
          text.insert(at, 1, bytes[random() % bytes.size()]);
          break;
        default:
          text.resize(at + 1);
          break;
      }
      if (text.empty()) text = "[";
    }
    bool const hasFault = findJsonFault(text, MaxContainers).has_value();
    JsonReading const reading = read(text);
    ASSERT_EQ(reading.m_isBroken, hasFault)
        << text << " " << (reading.m_findings.empty() ? "" : reading.m_findings.back().m_text);
    ASSERT_TRUE(!hasFault || reading.m_findings.back().m_place.m_line.has_value()) << text;
  }
}

TEST(JsonReader, RefusesEveryTruncation) {
  std::string const sound = R"({"views":[{"ver":"6.22","name":"a\u00e9","x":[1,-2.5,true,null,{}]}]})";
  for (std::size_t length = 0; length < sound.size(); ++length) {
    JsonReading const reading = read(sound.substr(0, length));
    ASSERT_TRUE(reading.m_isBroken) << length;
    ASSERT_EQ(reading.m_findings.size(), 1U);
  }
}

}  // namespace
