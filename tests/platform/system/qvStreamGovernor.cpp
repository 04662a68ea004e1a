#include "qvSystem/qvStreamGovernor.h"

#include <gtest/gtest.h>

#include <memory>
#include <thread>

#include "qvSystem/qvMemoryStream.h"
#include "qvSystem/qvStreamReader.h"
#include "tests/platform/system/byteWriter.h"

namespace {

using qv::qvBaseStream;
using qv::qvBudget;
using qv::qvMemoryStream;
using qv::qvResourceLimit;
using qv::qvRttiInterface;
using qv::qvStreamGovernor;
using qv::qvStreamLimits;
using qvTest::ByteWriter;

/// Runs `work` and returns the limit that it met.
template <class Work>
std::optional<qvResourceLimit> meetLimit(Work work) {
  try {
    work();
  } catch (qvResourceLimit const& limit) {
    return limit;
  }
  return std::nullopt;
}

void readBytes(qvBaseStream& in, int count) {
  std::uint8_t byte = 0;
  for (int i = 0; i < count; ++i) in.readle(1, 1, &byte);
}

/// Reads one byte per level, as nested records do.
int descend(qvBaseStream& in, int level) {
  std::uint8_t byte = 0;
  in.readle(1, 1, &byte);
  return in.GetBytesLeft() == 0 ? level : descend(in, level + 1) + byte;
}

TEST(StreamGovernor, LetsAStreamWithoutOneReadBehindItsEndForEver) {
  qvMemoryStream in({}, 0);
  readBytes(in, 3000000);
  EXPECT_TRUE(in.hasStreamError());
}

TEST(StreamGovernor, LimitsNothingByDefault) {
  qvStreamGovernor governor{qvStreamLimits()};
  qvMemoryStream in({}, 0);
  in.SetGovernor(&governor);
  readBytes(in, 3000000);
  EXPECT_FALSE(governor.GetExceeded().has_value());
}

TEST(StreamGovernor, CountsTheReadsBehindTheEnd) {
  ByteWriter const bytes = ByteWriter().raw("abc");
  qvStreamGovernor governor{{.m_maxFailedReads = 5}};
  qvMemoryStream in(bytes.bytes(), 0);
  in.SetGovernor(&governor);
  readBytes(in, 8);
  EXPECT_FALSE(governor.GetExceeded().has_value());
  auto const limit = meetLimit([&] { readBytes(in, 1); });
  ASSERT_TRUE(limit.has_value());
  EXPECT_EQ(limit->GetBudget(), qvBudget::FailedReads);
  EXPECT_EQ(limit->GetLimit(), 5U);
  EXPECT_EQ(limit->GetOffset(), 3U);
  EXPECT_EQ(governor.GetExceeded(), qvBudget::FailedReads);
}

TEST(StreamGovernor, CountsTheReadsOfAllStreamsUnderIt) {
  qvStreamGovernor governor{{.m_maxFailedReads = 5}};
  for (int i = 0; i < 5; ++i) {
    qvMemoryStream in({}, 0);
    in.SetGovernor(&governor);
    readBytes(in, 1);
  }
  qvMemoryStream last({}, 0);
  last.SetGovernor(&governor);
  EXPECT_TRUE(meetLimit([&] { readBytes(last, 1); }).has_value());
}

TEST(StreamGovernor, RefusesEveryReadOnceABudgetIsUsedUp) {
  ByteWriter const bytes = ByteWriter().raw("abcdef");
  qvStreamGovernor governor{{.m_maxFailedReads = 0}};
  qvMemoryStream empty({}, 0);
  empty.SetGovernor(&governor);
  ASSERT_TRUE(meetLimit([&] { readBytes(empty, 1); }).has_value());
  EXPECT_TRUE(empty.hasStreamError());

  qvMemoryStream in(bytes.bytes(), 0);
  in.SetGovernor(&governor);
  EXPECT_TRUE(meetLimit([&] { readBytes(in, 1); }).has_value());
  EXPECT_EQ(in.GetBytesLeft(), 6U);
}

TEST(StreamGovernor, SeesReferencesAndMetadataToo) {
  for (int kind = 0; kind < 3; ++kind) {
    qvStreamGovernor governor{{.m_maxFailedReads = 0}};
    qvMemoryStream in({}, 0);
    in.SetGovernor(&governor);
    void* slot = nullptr;
    std::uint8_t byte = 0;
    auto const read = [&] {
      if (kind == 0) in.ReadObjectImpl(&slot, false, nullptr);
      if (kind == 1) static_cast<void>(in.ReadRaw(1, &byte));
      if (kind == 2) in.readle(8, 1000, nullptr);
    };
    EXPECT_TRUE(meetLimit(read).has_value()) << kind;
  }
}

TEST(StreamGovernor, EndsARecursionBeforeItUsesMoreStackThanItMay) {
  ByteWriter const bytes = ByteWriter().raw(std::string(1000000, '\0'));
  qvStreamGovernor governor{{.m_maxStackBytes = 64U << 10}};
  qvMemoryStream in(bytes.bytes(), 0);
  in.SetGovernor(&governor);
  auto const limit = meetLimit([&] { static_cast<void>(descend(in, 0)); });
  ASSERT_TRUE(limit.has_value());
  EXPECT_EQ(limit->GetBudget(), qvBudget::Stack);
  EXPECT_LT(in.GetPosition(), (64U << 10) / sizeof(void*));
  EXPECT_GT(in.GetPosition(), 20U);
}

TEST(StreamGovernor, MeasuresTheStackOfItsOwnThread) {
  ByteWriter const bytes = ByteWriter().raw(std::string(100, '\0'));
  std::optional<qvResourceLimit> limit;
  std::thread([&] {
    qvStreamGovernor governor{{.m_maxStackBytes = qv::GetStackBytesLeft() / 4}};
    qvMemoryStream in(bytes.bytes(), 0);
    in.SetGovernor(&governor);
    limit = meetLimit([&] { static_cast<void>(descend(in, 0)); });
  }).join();
  EXPECT_FALSE(limit.has_value());
}

TEST(StreamGovernor, LooksAtTheClockNowAndThen) {
  ByteWriter const bytes = ByteWriter().raw(std::string(10000, 'x'));
  qvStreamGovernor governor{{.m_maxMilliseconds = 20}};
  std::this_thread::sleep_for(std::chrono::milliseconds(40));
  qvMemoryStream in(bytes.bytes(), 0);
  in.SetGovernor(&governor);
  auto const limit = meetLimit([&] { readBytes(in, 10000); });
  ASSERT_TRUE(limit.has_value());
  EXPECT_EQ(limit->GetBudget(), qvBudget::Time);
  EXPECT_LE(in.GetPosition(), 4096U);
}

TEST(StreamGovernor, SaysWhichBudgetWithoutAllocating) {
  qvResourceLimit const limit(qvBudget::Stack, 7, 9);
  std::bad_alloc const& asOutOfMemory = limit;
  EXPECT_STREQ(asOutOfMemory.what(), "the stack budget is used up");
  static_assert(std::is_nothrow_copy_constructible_v<qvResourceLimit>);
}

TEST(StackBytesLeft, AreFewerTheDeeperTheCall) {
  std::uint64_t const here = qv::GetStackBytesLeft();
  EXPECT_GT(here, 10000U);
  char const room[4096] = {};
  EXPECT_LE(qv::GetStackBytesLeft() + (room[0] == 0 ? 0U : 1U), here);
}

class Greedy : public qvRttiInterface {
 public:
  static qv::qvRtti const TYPE;
  static int live;
  Greedy() { ++live; }
  ~Greedy() override { --live; }
  qv::qvRtti const& GetType() const override { return TYPE; }
  void IncrementReferences() override { ++m_references; }
  void DecrementReferences() override {
    if (--m_references == 0) delete this;
  }
  int GetReferences() const override { return m_references; }
  void Load(qvBaseStream& in) override { readBytes(in, 10); }
  void PostLink() override {}
  void Save(qvBaseStream&) const override {}
  bool Equals(qvRttiInterface const*) const override { return false; }
  bool Clone(qvRttiInterface*&) const override { return false; }

 private:
  int m_references = 0;
};

qv::qvRtti const Greedy::TYPE("test.greedy", &qvRttiInterface::TYPE);
int Greedy::live = 0;

qvRttiInterface* makeGreedy(qvBaseStream& in) {
  auto object = std::make_unique<Greedy>();
  object->Load(in);
  return object.release();
}

class GovernedDocument : public ::testing::Test {
 protected:
  GovernedDocument() { qvRttiInterface::RegisterFactoryFunction("test.greedy", &makeGreedy); }
  ~GovernedDocument() override { qvRttiInterface::UnregisterFactoryFunction("test.greedy"); }
  void TearDown() override { EXPECT_EQ(Greedy::live, 0); }

  ByteWriter m_bytes = qvTest::document(0x60016, 2)
                           .append(qvTest::object(1, "test.greedy", ByteWriter().raw("0123456789")))
                           .append(qvTest::object(2, "test.greedy", ByteWriter().raw("01")));
};

TEST_F(GovernedDocument, IsLoadedWithinItsLimits) {
  EXPECT_EQ(qv::LoadObjectStream(m_bytes.bytes(), {.m_maxFailedReads = 8}).m_objects.size(), 2U);
  EXPECT_EQ(qv::LoadObjectStream(m_bytes.bytes()).m_objects.size(), 2U);
}

TEST_F(GovernedDocument, LeavesNoObjectBehindWhenALimitIsReached) {
  auto const limit =
      meetLimit([&] { static_cast<void>(qv::LoadObjectStream(m_bytes.bytes(), {.m_maxFailedReads = 7})); });
  ASSERT_TRUE(limit.has_value());
  EXPECT_EQ(limit->GetBudget(), qvBudget::FailedReads);
  EXPECT_EQ(limit->GetOffset(), m_bytes.size()) << "counted from the start of the document";
}

TEST_F(GovernedDocument, MayNotBeLargerThanItsLimit) {
  auto const limit = meetLimit(
      [&] { static_cast<void>(qv::LoadObjectStream(m_bytes.bytes(), {.m_maxBytes = m_bytes.size() - 1})); });
  ASSERT_TRUE(limit.has_value());
  EXPECT_EQ(limit->GetBudget(), qvBudget::Bytes);
  EXPECT_EQ(qv::LoadObjectStream(m_bytes.bytes(), {.m_maxBytes = m_bytes.size()}).m_objects.size(), 2U);
}

}  // namespace
