#include "qvSceneGraph/qvInstanceMetaData.h"

#include <gtest/gtest.h>

#include "qvSystem/qvMemoryStream.h"
#include "tests/platform/system/byteWriter.h"

namespace {

using qv::qvMemoryStream;
using qv::qvVariant;
using qvTest::ByteWriter;
using Map = qv::qvVariant::qvVariantMapImpl;
using List = qv::qvVariant::qvVariantListImpl;

constexpr unsigned nullKind = 0, integerKind = 1, realKind = 2, stringKind = 3, boolKind = 4, mapKind = 10,
                   listKind = 11;

struct Loaded {
  Map m_map;
  bool m_error;
  std::uint64_t m_left;
};

Loaded load(ByteWriter const& bytes) {
  Map map{{"old", 1}};
  qvMemoryStream in(bytes.bytes(), 0x60016);
  qv::qvInstanceMetaData::LoadVariantMap(in, map);
  return {std::move(map), in.hasStreamError(), in.GetBytesLeft()};
}

TEST(VariantMapInStream, ReadsEveryKind) {
  ByteWriter bytes;
  bytes.u32(7);
  bytes.text("null").u8(nullKind);
  bytes.text("integer").u8(integerKind).number(std::int64_t{-5});
  bytes.text("real").u8(realKind).number(0.25);
  bytes.text("string").u8(stringKind).text("text");
  bytes.text("bool").u8(boolKind).u8(2);
  bytes.text("map").u8(mapKind).u32(1).text("k").u8(boolKind).u8(0);
  bytes.text("list").u8(listKind).u32(2).u8(nullKind).u8(stringKind).text("");
  auto const loaded = load(bytes.u8(0xFF));
  EXPECT_FALSE(loaded.m_error);
  EXPECT_EQ(loaded.m_left, 1U);
  EXPECT_EQ(loaded.m_map, (Map{{"null", qvVariant()},
                               {"integer", -5},
                               {"real", 0.25},
                               {"string", "text"},
                               {"bool", true},
                               {"map", Map{{"k", false}}},
                               {"list", List{qvVariant(), ""}}}));
}

TEST(VariantMapInStream, AnEmptyMapReplacesTheOldOne) {
  auto const loaded = load(ByteWriter().u32(0));
  EXPECT_TRUE(loaded.m_map.empty());
  EXPECT_FALSE(loaded.m_error);
}

TEST(VariantMapInStream, OfADoubleKeyTheLastWins) {
  auto const loaded = load(ByteWriter().u32(2).text("k").u8(boolKind).u8(1).text("k").u8(nullKind));
  EXPECT_EQ(loaded.m_map, (Map{{"k", qvVariant()}}));
}

TEST(VariantMapInStream, ANegativeStringLengthIsTheEmptyString) {
  auto const loaded = load(ByteWriter().u32(1).i32(-4).u8(stringKind).i32(-1));
  EXPECT_EQ(loaded.m_map, (Map{{"", ""}}));
  EXPECT_FALSE(loaded.m_error);
}

TEST(VariantMapInStream, AnUnknownKindEndsTheMapThere) {
  for (unsigned const kind : {5U, 9U, 12U, 255U}) {
    auto const loaded = load(ByteWriter().u32(3).text("a").u8(nullKind).text("b").u8(kind).u64(0).u64(0));
    EXPECT_TRUE(loaded.m_error);
    EXPECT_EQ(loaded.m_map, (Map{{"a", qvVariant()}}));
    EXPECT_EQ(loaded.m_left, 16U);
  }
}

TEST(VariantMapInStream, ACountThatTheBytesLeftCannotHoldEndsTheMap) {
  // Each entry takes five bytes at least: two fit, a third does not.
  ByteWriter const twoEntries = ByteWriter().text("").u8(nullKind).text("").u8(nullKind);
  EXPECT_FALSE(load(ByteWriter().u32(2).append(twoEntries)).m_error);
  for (std::uint32_t const count : {3U, 0x80000000U, 0xFFFFFFFFU}) {
    auto const loaded = load(ByteWriter().u32(count).append(twoEntries));
    EXPECT_TRUE(loaded.m_error);
    EXPECT_TRUE(loaded.m_map.empty());
    EXPECT_EQ(loaded.m_left, 10U);
  }
}

TEST(VariantMapInStream, AListCountThatTheBytesLeftCannotHoldLeavesAnEmptyList) {
  auto const loaded = load(ByteWriter().u32(1).text("l").u8(listKind).u32(3).u8(0).u8(0));
  EXPECT_TRUE(loaded.m_error);
  EXPECT_EQ(loaded.m_map, (Map{{"l", List()}}));
}

TEST(VariantMapInStream, AStringLongerThanTheBytesLeftEndsTheMap) {
  auto const loaded = load(ByteWriter().u32(1).text("k").u8(stringKind).i32(0x7FFFFFFF).raw("abc"));
  EXPECT_TRUE(loaded.m_error);
  EXPECT_TRUE(loaded.m_map.empty());
}

/// A map of `levels` maps or lists within each other, the outermost one counted.
ByteWriter nested(int levels, bool lists) {
  ByteWriter bytes;
  bytes.u32(1).text("k");
  for (int level = 2; level <= levels; ++level) {
    if (lists) {
      bytes.u8(listKind).u32(1);
    } else {
      bytes.u8(mapKind).u32(1).text("k");
    }
  }
  return bytes.u8(nullKind);
}

TEST(VariantMapInStream, SixtyFourLevelsAreReadAndTheSixtyFifthIsAnError) {
  for (bool const lists : {false, true}) {
    EXPECT_FALSE(load(nested(64, lists)).m_error);
    EXPECT_EQ(load(nested(64, lists)).m_left, 0U);
    EXPECT_TRUE(load(nested(65, lists)).m_error);
    EXPECT_TRUE(load(nested(100000, lists)).m_error);
  }
}

TEST(VariantMapInStream, WhatWasReadBeforeALevelTooDeepStays) {
  auto const loaded = load(nested(65, false));
  qvVariant const* value = &loaded.m_map.at("k");
  int level = 1;
  for (; !value->toMap().empty(); ++level) value = &value->toMap().at("k");
  EXPECT_EQ(level, 63);
  EXPECT_TRUE(value->isMap()) << "level 64 is there, and empty";
}

TEST(VariantMapInStream, EveryPrefixEndsWithAnErrorAndKeepsWhatWasRead) {
  ByteWriter bytes;
  bytes.u32(3);
  bytes.text("a").u8(integerKind).number(std::int64_t{1});
  bytes.text("b").u8(listKind).u32(2).u8(stringKind).text("xy").u8(boolKind).u8(1);
  bytes.text("c").u8(mapKind).u32(1).text("d").u8(realKind).number(2.5);
  std::size_t kept = 0;
  for (std::size_t length = 0; length < bytes.size(); ++length) {
    auto const prefix = bytes.bytes().first(length);
    std::vector<std::byte> const copy(prefix.begin(), prefix.end());
    qvMemoryStream in(copy, 0);
    Map map;
    qv::qvInstanceMetaData::LoadVariantMap(in, map);
    ASSERT_TRUE(in.hasStreamError()) << length;
    EXPECT_GE(map.size(), kept) << length;
    kept = map.size();
  }
  EXPECT_EQ(kept, 3U);
  EXPECT_FALSE(load(bytes).m_error);
}

TEST(VariantMapInStream, IsReadAlsoWhenTheStreamWasInErrorBefore) {
  ByteWriter const bytes = ByteWriter().u32(1).text("k").u8(boolKind).u8(1);
  qvMemoryStream in(bytes.bytes(), 0);
  in.setStreamError();
  Map map;
  qv::qvInstanceMetaData::LoadVariantMap(in, map);
  EXPECT_EQ(map, (Map{{"k", true}}));
}

}  // namespace
