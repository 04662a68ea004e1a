#include "qvSystem/qvBaseStream.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <limits>
#include <numeric>

#include "qvSystem/qvMemoryStream.h"
#include "tests/platform/system/byteWriter.h"

namespace {

using qv::qvMemoryStream;
using qvTest::ByteWriter;

TEST(MemoryStream, HasTheVersionItIsGiven) {
  qvMemoryStream in({}, 0x60016);
  EXPECT_EQ(in.GetVersion(), 0x60016U);
  in.SetVersion(0x6000D);
  EXPECT_EQ(in.GetVersion(), 0x6000DU);
}

TEST(MemoryStream, ReadsLittleEndianElementsOfEverySize) {
  ByteWriter bytes;
  bytes.u8(0xFE).raw("\x34\x12").raw("\x78\x56\x34\x12").u64(0x0102030405060708U).number(1.5F).number(-2.5F);
  qvMemoryStream in(bytes.bytes(), 0);
  std::uint8_t one = 0;
  std::uint16_t two = 0;
  std::uint32_t four = 0;
  std::uint64_t eight = 0;
  std::array<float, 2> reals{};
  in.readle(1, 1, &one);
  in.readle(2, 1, &two);
  in.readle(4, 1, &four);
  in.readle(8, 1, &eight);
  in.readle(4, 2, reals.data());
  EXPECT_EQ(one, 0xFE);
  EXPECT_EQ(two, 0x1234);
  EXPECT_EQ(four, 0x12345678U);
  EXPECT_EQ(eight, 0x0102030405060708U);
  EXPECT_EQ(reals, (std::array{1.5F, -2.5F}));
  EXPECT_FALSE(in.hasStreamError());
  EXPECT_EQ(in.GetReadBytes(), 23U);
  EXPECT_EQ(in.GetBytesLeft(), 0U);
}

TEST(BaseStream, AShortElementReadLeavesTheDestinationAndConsumesTheRest) {
  ByteWriter const bytes = ByteWriter().raw("abcdefghij");
  qvMemoryStream in(bytes.bytes(), 0);
  std::array<std::uint32_t, 3> values{1, 2, 3};
  in.readle(4, 3, values.data());
  EXPECT_EQ(values, (std::array<std::uint32_t, 3>{1, 2, 3}));
  EXPECT_TRUE(in.hasStreamError());
  EXPECT_EQ(in.GetBytesLeft(), 0U);
  EXPECT_EQ(in.GetReadBytes(), 0U);
}

TEST(BaseStream, ReadsManyElementsAndNoticesOneMissingByte) {
  std::vector<std::uint32_t> written(50000);
  std::iota(written.begin(), written.end(), 1U);
  ByteWriter bytes;
  for (std::uint32_t const value : written) bytes.u32(value);
  std::vector<std::uint32_t> values(written.size(), 0);

  qvMemoryStream whole(bytes.bytes(), 0);
  whole.readle(4, static_cast<int>(values.size()), values.data());
  EXPECT_EQ(values, written);
  EXPECT_EQ(whole.GetReadBytes(), 200000U);

  values.assign(values.size(), 9);
  qvMemoryStream cut(bytes.bytes().first(199999), 0);
  cut.readle(4, static_cast<int>(values.size()), values.data());
  EXPECT_EQ(values, std::vector<std::uint32_t>(values.size(), 9));
  EXPECT_TRUE(cut.hasStreamError());
  EXPECT_EQ(cut.GetBytesLeft(), 0U);
}

TEST(BaseStream, AnAnnouncedGiantReadCostsNoMoreThanTheStreamHolds) {
  ByteWriter const bytes = ByteWriter().raw("tiny");
  qvMemoryStream in(bytes.bytes(), 0);
  std::uint64_t untouched = 42;
  in.readle(8, std::numeric_limits<int>::max(), &untouched);
  EXPECT_EQ(untouched, 42U);
  EXPECT_TRUE(in.hasStreamError());
}

TEST(BaseStream, NoElementsAreReadFromTheEndWithoutError) {
  qvMemoryStream in({}, 0);
  in.readle(4, 0, nullptr);
  EXPECT_FALSE(in.hasStreamError());
}

TEST(BaseStream, AnElementSizeOrCountThatMakesNoSenseIsAnErrorThatReadsNothing) {
  ByteWriter const bytes = ByteWriter().raw("abcdefgh");
  std::uint64_t value = 0;
  for (auto const& [size, count] : {std::pair{3, 1}, {0, 1}, {-4, 1}, {16, 1}, {4, -1}}) {
    qvMemoryStream in(bytes.bytes(), 0);
    in.readle(size, count, &value);
    EXPECT_TRUE(in.hasStreamError()) << size << ' ' << count;
    EXPECT_EQ(in.GetBytesLeft(), 8U);
  }
}

TEST(MemoryStream, ARawReadDeliversWhatThereIsAndTouchesNeitherErrorNorCounter) {
  ByteWriter const bytes = ByteWriter().raw("abc");
  qvMemoryStream in(bytes.bytes(), 0);
  std::array<char, 6> text{'-', '-', '-', '-', '-', '-'};
  EXPECT_EQ(in.ReadRaw(2, text.data()), 2U);
  EXPECT_EQ(in.ReadRaw(4, text.data() + 2), 1U);
  EXPECT_EQ(in.ReadRaw(1, text.data()), 0U);
  EXPECT_EQ(std::string(text.data(), 6), "abc---");
  EXPECT_FALSE(in.hasStreamError());
  EXPECT_EQ(in.GetReadBytes(), 0U);
  EXPECT_EQ(in.GetPosition(), 3U);
}

TEST(MemoryStream, RemembersTheFirstShortRead) {
  ByteWriter const bytes = ByteWriter().raw("abcde");
  qvMemoryStream in(bytes.bytes(), 0);
  std::uint32_t value = 0;
  in.readle(4, 1, &value);
  EXPECT_EQ(in.GetShortRead().m_wanted, 0U);
  in.readle(4, 1, &value);
  in.readle(8, 1, &value);
  EXPECT_EQ(in.GetShortRead().m_offset, 4U);
  EXPECT_EQ(in.GetShortRead().m_wanted, 4U);
  EXPECT_EQ(in.GetShortRead().m_delivered, 1U);
}

TEST(BaseStream, TheErrorStateSticksAndKnowsWhereItBegan) {
  ByteWriter const bytes = ByteWriter().raw("abcdefgh");
  qvMemoryStream in(bytes.bytes(), 0);
  std::uint32_t value = 0;
  in.readle(4, 1, &value);
  in.setStreamError();
  in.readle(4, 1, &value);
  in.setStreamError();
  EXPECT_TRUE(in.hasStreamError());
  EXPECT_EQ(in.GetErrorOffset(), 4U);
  EXPECT_EQ(in.GetReadBytes(), 8U);
}

/// A host's stream, which does not know its length.
class OneByteStream : public qv::qvBaseStream {
 public:
  OneByteStream() : qvBaseStream(0) {}
  std::size_t ReadRaw(std::size_t count, void* destination) override {
    std::memset(destination, 7, count);
    return count;
  }
};

TEST(BaseStream, AStreamThatDoesNotKnowItsLengthHasTheLargest) {
  OneByteStream in;
  std::uint16_t value = 0;
  in.readle(2, 1, &value);
  EXPECT_EQ(value, 0x0707);
  EXPECT_EQ(in.GetBytesLeft(), std::numeric_limits<std::uint64_t>::max());
}

void* keepAddress(qv::qvRttiInterface* object) {
  return object;
}

TEST(BaseStream, AReferenceLeavesANullSlotAndAPendingLink) {
  ByteWriter const bytes = ByteWriter().u32(5).u32(0).u32(9);
  qvMemoryStream in(bytes.bytes(), 0);
  std::array<void*, 3> slots{&in, &in, &in};
  for (void*& slot : slots) in.ReadObjectImpl(&slot, false, keepAddress);
  EXPECT_EQ(slots, (std::array<void*, 3>{}));
  auto const links = in.TakePendingLinks();
  ASSERT_EQ(links.size(), 2U);
  EXPECT_EQ(links[0].m_id, 5U);
  EXPECT_EQ(links[0].m_offset, 0U);
  EXPECT_EQ(links[1].m_id, 9U);
  EXPECT_EQ(links[1].m_offset, 8U);
  EXPECT_EQ(links[1].m_slot, &slots[2]);
  EXPECT_TRUE(in.TakePendingLinks().empty());
}

TEST(BaseStream, AReferenceCutOffIsNullAndAnError) {
  ByteWriter const bytes = ByteWriter().raw("\1\0\0");
  qvMemoryStream in(bytes.bytes(), 0);
  void* slot = &in;
  in.ReadObjectImpl(&slot, false, keepAddress);
  EXPECT_EQ(slot, nullptr);
  EXPECT_TRUE(in.hasStreamError());
  EXPECT_TRUE(in.TakePendingLinks().empty());
}

}  // namespace
