#include "qvToolkit/json/jsonWriter.h"

#include <gtest/gtest.h>
#include <simdjson.h>

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <random>
#include <string>

namespace {

using qvToolkit::JsonKey;
using qvToolkit::JsonStyle;
using qvToolkit::JsonWriter;

TEST(JsonWriter, WritesNeitherBlanksNorLineBreaksUnlessAsked) {
  JsonWriter json;
  json.beginObject().member("b", 1).key("a").beginArray().value("x y").null().endArray();
  json.key("point").inlineArray({1.0F, 0.5F}).endObject();
  EXPECT_EQ(json.takeText(), "{\"b\":1,\"a\":[\"x y\",null],\"point\":[1,0.5]}\n");
}

TEST(JsonWriter, IndentsByTwoSpacesInTheOrderOfTheCalls) {
  JsonWriter json(JsonStyle::Pretty);
  json.beginObject().member("b", 1).key("a").beginArray().value("x").null().endArray();
  json.key("point").inlineArray({1.0F, 0.5F}).endObject();
  EXPECT_EQ(json.takeText(),
            "{\n  \"b\": 1,\n  \"a\": [\n    \"x\",\n    null\n  ],\n  \"point\": [1, 0.5]\n}\n");
}

TEST(JsonWriter, ClosesEmptyContainersOnTheSameLine) {
  JsonWriter json(JsonStyle::Pretty);
  json.beginArray().beginObject().endObject().beginArray().endArray().inlineArray({}).endArray();
  EXPECT_EQ(json.takeText(), "[\n  {},\n  [],\n  []\n]\n");
}

TEST(JsonWriter, FitsATextIntoAnotherOnesDepth) {
  JsonWriter json(JsonStyle::Pretty, 2);
  json.beginObject().member("a", 1).endObject();
  EXPECT_EQ(json.takeText(), "{\n      \"a\": 1\n    }");
  JsonWriter compact(JsonStyle::Compact, 1);
  compact.beginArray().endArray();
  EXPECT_EQ(compact.takeText(), "[]");
}

TEST(JsonWriter, WritesNumbersThatAreNotFiniteAsNull) {
  JsonWriter json;
  json.beginArray().value(std::nanf("")).value(std::numeric_limits<double>::infinity());
  json.inlineArray({-std::numeric_limits<float>::infinity()}).endArray();
  EXPECT_EQ(json.takeText(), "[null,null,[null]]\n");
}

TEST(JsonWriter, WritesTheLimitsOfIntegers) {
  JsonWriter json;
  json.beginArray()
      .value(std::numeric_limits<std::int64_t>::min())
      .value(std::numeric_limits<std::uint64_t>::max());
  json.value(7U).value(-7).value(true).endArray();
  EXPECT_EQ(json.takeText(), "[-9223372036854775808,18446744073709551615,7,-7,true]\n");
}

TEST(JsonWriter, KeepsTheSignOfZero) {
  JsonWriter json;
  json.beginArray().value(0.0).value(-0.0).value(-0.0F).inlineArray({0.0F, -0.0F}).value(0).endArray();
  EXPECT_EQ(json.takeText(), "[0,-0.0,-0.0,[0,-0.0],0]\n");
}

TEST(JsonWriter, WritesLargeRealsSoThatTheyAreNotTakenForIntegers) {
  JsonWriter json;
  json.beginArray().value(0x1p62).value(-0x1p63).value(123456789012345680000.0).value(0x1p63F).endArray();
  EXPECT_EQ(json.takeText(),
            "[4611686018427387904,-9.223372036854776e+18,1.2345678901234568e+20,9.223372e+18]\n");
}

TEST(JsonWriter, WritesWholeNumbersAsShortAsAllOthers) {
  for (float const number : {1.0F, -7.0F, 99999.0F, -99999.0F, 100000.0F, 100001.0F, 1e7F, 16777216.0F}) {
    std::array<char, 64> digits;
    auto const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    JsonWriter json;
    json.value(number);
    EXPECT_EQ(json.takeText(), std::string(digits.data(), end) + '\n');
  }
}

TEST(JsonWriter, HasTheBytesOfInvalidTextBesideIt) {
  JsonWriter json;
  json.beginObject().bytes("name", "a\xFFz").bytes("text", "\u00E9\n").noBytes("other").endObject();
  EXPECT_EQ(json.takeText(),
            "{\"name\":\"a\uFFFDz\",\"nameHex\":\"61ff7a\",\"text\":\"\u00E9\\n\",\"textHex\":null,"
            "\"other\":null,\"otherHex\":null}\n");
}

TEST(JsonWriter, WritesNullWhereThereIsNothing) {
  JsonWriter json;
  json.beginObject().member("line", std::optional<std::uint64_t>()).textOrNull("address", "");
  json.member("column", std::optional<std::uint64_t>(3)).textOrNull("option", "x").endObject();
  EXPECT_EQ(json.takeText(), "{\"line\":null,\"address\":null,\"column\":3,\"option\":\"x\"}\n");
}

TEST(JsonWriter, StartsAnewAfterItsTextWasTaken) {
  JsonWriter json;
  json.beginObject().endObject();
  EXPECT_EQ(json.takeText(), "{}\n");
  json.value("x");
  EXPECT_EQ(json.takeText(), "\"x\"\n");
}

TEST(JsonWriter, WritesDoublesThatReadBackToTheSameBits) {
  std::mt19937_64 random(1);
  simdjson::dom::parser parser;
  for (int i = 0; i < 20000; ++i) {
    auto const number = std::bit_cast<double>(random());
    if (!std::isfinite(number) || number == 0.0) continue;
    JsonWriter json;
    json.beginArray().value(number).endArray();
    double read = 0.0;
    ASSERT_EQ(parser.parse(json.takeText()).at(0).get(read), simdjson::SUCCESS);
    ASSERT_EQ(read, number);
  }
}

TEST(JsonWriter, WritesRandomTreesThatParse) {
  std::mt19937 random(2);
  simdjson::dom::parser parser;
  std::array<JsonKey, 3> const keys = {"a", "camelCase2", "z"};
  for (int i = 0; i < 500; ++i) {
    JsonWriter json(i % 2 == 0 ? JsonStyle::Compact : JsonStyle::Pretty);
    std::vector<bool> arrays;
    json.beginArray();
    arrays.push_back(true);
    for (int step = 0; step < 100; ++step) {
      if (!arrays.back()) json.key(keys[random() % keys.size()]);
      switch (random() % 6) {
        case 0:
          json.beginArray();
          arrays.push_back(true);
          continue;
        case 1:
          json.beginObject();
          arrays.push_back(false);
          continue;
        case 2:
          json.value(static_cast<float>(random()) / 3.0F);
          break;
        case 3:
          json.value(std::string{static_cast<char>(random() % 256), '"'});
          break;
        case 4:
          json.null();
          break;
        default:
          json.inlineArray({1.5F, 2.0F});
          break;
      }
      if (random() % 4 != 0 || arrays.size() == 1) continue;
      arrays.back() ? json.endArray() : json.endObject();
      arrays.pop_back();
    }
    for (; !arrays.empty(); arrays.pop_back()) arrays.back() ? json.endArray() : json.endObject();
    std::string const text = json.takeText();
    ASSERT_EQ(parser.parse(text).error(), simdjson::SUCCESS) << text;
  }
}

}  // namespace
