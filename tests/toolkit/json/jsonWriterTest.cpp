#include "qvToolkit/json/jsonWriter.h"

#include <gtest/gtest.h>
#include <simdjson.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

namespace {

using qvToolkit::JsonWriter;

TEST(JsonWriter, IndentsByTwoSpacesInTheOrderOfTheCalls) {
  JsonWriter json;
  json.beginObject().member("b", 1).key("a").beginArray().value("x").null().endArray();
  json.key("point").inlineArray({1.0F, -0.0F, 0.5F}).endObject();
  EXPECT_EQ(json.takeText(),
            "{\n  \"b\": 1,\n  \"a\": [\n    \"x\",\n    null\n  ],\n  \"point\": [1, 0, 0.5]\n}\n");
}

TEST(JsonWriter, ClosesEmptyContainersOnTheSameLine) {
  JsonWriter json;
  json.beginArray().beginObject().endObject().beginArray().endArray().inlineArray({}).endArray();
  EXPECT_EQ(json.takeText(), "[\n  {},\n  [],\n  []\n]\n");
}

TEST(JsonWriter, WritesNumbersThatAreNotFiniteAsNull) {
  JsonWriter json;
  json.beginArray().value(std::nanf("")).value(std::numeric_limits<double>::infinity());
  json.inlineArray({-std::numeric_limits<float>::infinity()}).endArray();
  EXPECT_EQ(json.takeText(), "[\n  null,\n  null,\n  [null]\n]\n");
}

TEST(JsonWriter, WritesTheLimitsOfIntegers) {
  JsonWriter json;
  json.beginArray()
      .value(std::numeric_limits<std::int64_t>::min())
      .value(std::numeric_limits<std::uint64_t>::max());
  json.value(7U).value(-7).value(true).value(-0.0).endArray();
  EXPECT_EQ(json.takeText(),
            "[\n  -9223372036854775808,\n  18446744073709551615,\n  7,\n  -7,\n  true,\n  0\n]\n");
}

TEST(JsonWriter, WritesLargeRealsSoThatTheyAreNotTakenForIntegers) {
  JsonWriter json;
  json.beginArray().value(0x1p62).value(-0x1p63).value(123456789012345680000.0).value(0x1p63F).endArray();
  EXPECT_EQ(json.takeText(),
            "[\n  4611686018427387904,\n  -9.223372036854776e+18,\n  1.2345678901234568e+20,\n  "
            "9.223372e+18\n]\n");
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
  for (int i = 0; i < 500; ++i) {
    JsonWriter json;
    std::vector<bool> arrays;
    json.beginArray();
    arrays.push_back(true);
    for (int step = 0; step < 100; ++step) {
      if (!arrays.back()) {
        std::string key;
        for (auto n = random() % 5; n > 0; --n) key += static_cast<char>(random() % 256);
        json.key(key);
      }
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
