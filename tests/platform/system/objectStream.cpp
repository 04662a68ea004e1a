#include <gtest/gtest.h>

#include <array>
#include <new>

#include "qvSystem/qvBaseStream.h"
#include "qvSystem/qvStreamReader.h"
#include "tests/platform/system/byteWriter.h"

namespace {

using qv::LoadObjectStream;
using qv::qvBaseStream;
using qv::qvRttiInterface;
using Severity = qv::qvStreamProblem::Severity;
using qvTest::ByteWriter;
using qvTest::document;
using qvTest::object;

constexpr std::uint32_t version = 0x60016;

/// A stream object with a value, a counted and a plain link to objects of its own class.
class Item : public qvRttiInterface {
 public:
  static qv::qvRtti const TYPE;
  static int live;
  static std::vector<std::uint32_t> linked;  ///< values of the items in the order of their PostLink

  Item() { ++live; }
  ~Item() override {
    --live;
    if (m_counted != nullptr && m_counted != this) m_counted->DecrementReferences();
  }
  qv::qvRtti const& GetType() const override { return TYPE; }
  void IncrementReferences() override { ++m_references; }
  void DecrementReferences() override {
    if (--m_references == 0) delete this;
  }
  int GetReferences() const override { return m_references; }
  void Load(qvBaseStream& in) override {
    m_version = in.GetVersion();
    in.readle(4, 1, &m_value);
    in.ReadObjectImpl(&m_counted, true, &qvBaseStream::GetLinkPointer<Item>);
    in.ReadObjectImpl(&m_plain, false, &qvBaseStream::GetLinkPointer<Item>);
  }
  void PostLink() override { linked.push_back(m_value); }
  void Save(qvBaseStream&) const override {}
  bool Equals(qvRttiInterface const*) const override { return false; }
  bool Clone(qvRttiInterface*&) const override { return false; }

  std::uint32_t m_value = 0;
  std::uint32_t m_version = 0;
  Item* m_counted = nullptr;
  Item* m_plain = nullptr;

 private:
  int m_references = 0;
};

qv::qvRtti const Item::TYPE("test.item", &qvRttiInterface::TYPE);
int Item::live = 0;
std::vector<std::uint32_t> Item::linked;

template <class T>
qvRttiInterface* make(qvBaseStream& in) {
  auto item = std::make_unique<T>();
  item->Load(in);
  return item.release();
}

/// Reads its version byte and refuses it.
qvRttiInterface* makeRefusing(qvBaseStream& in) {
  auto item = std::make_unique<Item>();
  std::uint8_t byte = 0;
  in.readle(1, 1, &byte);
  in.setStreamError();
  in.readle(4, 1, &item->m_value);
  return item.release();
}

qvRttiInterface* makeThrowing(qvBaseStream& in) {
  delete make<Item>(in);
  throw std::bad_alloc();
}

qvRttiInterface* makeNothing(qvBaseStream&) {
  return nullptr;
}

void* toNothing(qvRttiInterface*) {
  return nullptr;
}

/// Accepts no object at all as the target of its link.
qvRttiInterface* makeChoosy(qvBaseStream& in) {
  auto item = std::make_unique<Item>();
  in.ReadObjectImpl(&item->m_plain, false, &toNothing);
  return item.release();
}

struct Registration {
  char const* m_name;
  qvRttiInterface::FactoryFunction m_factory;
};

constexpr std::array<Registration, 5> registrations{{{"test.item", &make<Item>},
                                                     {"test.refusing", &makeRefusing},
                                                     {"test.throwing", &makeThrowing},
                                                     {"test.nothing", &makeNothing},
                                                     {"test.choosy", &makeChoosy}}};

class ObjectStream : public ::testing::Test {
 protected:
  ObjectStream() {
    for (auto const& [name, factory] : registrations) qvRttiInterface::RegisterFactoryFunction(name, factory);
    Item::linked.clear();
  }
  ~ObjectStream() override {
    for (auto const& [name, factory] : registrations) qvRttiInterface::UnregisterFactoryFunction(name);
  }
  void TearDown() override { EXPECT_EQ(Item::live, 0); }
};

ByteWriter item(std::uint32_t value, std::uint32_t counted, std::uint32_t plain) {
  return ByteWriter().u32(value).u32(counted).u32(plain);
}

Item const& itemOf(qv::qvLoadedDocument const& loaded, std::size_t index) {
  return dynamic_cast<Item const&>(*loaded.m_objects[index].m_object);
}

void expectProblem(qv::qvStreamProblem const& problem, Severity severity, std::uint32_t id,
                   std::string const& typeName, std::uint64_t offset, std::string const& text) {
  EXPECT_EQ(problem.m_severity, severity);
  EXPECT_EQ(problem.m_objectId, id);
  EXPECT_EQ(problem.m_typeName, typeName);
  EXPECT_EQ(problem.m_offset, offset);
  EXPECT_EQ(problem.m_text, text);
}

TEST_F(ObjectStream, LoadsObjectsInOrderAndLinksForwardAndBackward) {
  ByteWriter bytes = document(version, 2);
  bytes.append(object(7, "test.item", item(70, 9, 9))).append(object(9, "test.item", item(90, 0, 7)));
  auto const loaded = LoadObjectStream(bytes.bytes());
  EXPECT_TRUE(loaded.m_problems.empty());
  EXPECT_EQ(loaded.m_version, version);
  ASSERT_EQ(loaded.m_objects.size(), 2U);
  EXPECT_EQ(loaded.m_objects[0].m_id, 7U);
  EXPECT_EQ(loaded.m_objects[1].m_typeName, "test.item");
  EXPECT_EQ(loaded.m_objects[0].m_offset, 16U + 4 + 4 + 9 + 8);
  EXPECT_EQ(loaded.m_objects[0].m_size, 12U);
  Item const& first = itemOf(loaded, 0);
  Item const& second = itemOf(loaded, 1);
  EXPECT_EQ(first.m_version, version);
  EXPECT_EQ(first.m_counted, &second);
  EXPECT_EQ(first.m_plain, &second);
  EXPECT_EQ(second.m_counted, nullptr);
  EXPECT_EQ(second.m_plain, &first);
  EXPECT_EQ(first.GetReferences(), 1) << "only the document's";
  EXPECT_EQ(second.GetReferences(), 2) << "the document's and the counted link's";
  EXPECT_EQ(Item::linked, (std::vector<std::uint32_t>{70, 90}));
}

TEST_F(ObjectStream, AnObjectOutlivesItsDocumentWhereItIsReferredTo) {
  ByteWriter bytes = document(version, 2);
  bytes.append(object(1, "test.item", item(10, 2, 0))).append(object(2, "test.item", item(20, 0, 0)));
  auto loaded = LoadObjectStream(bytes.bytes());
  qv::qvObjectHandle const first = std::move(loaded.m_objects[0].m_object);
  loaded.m_objects.clear();
  EXPECT_EQ(Item::live, 2);
  EXPECT_EQ(dynamic_cast<Item const&>(*first).m_counted->m_value, 20U);
}

TEST_F(ObjectStream, AnObjectMayLinkToItself) {
  ByteWriter bytes = document(version, 1);
  bytes.append(object(1, "test.item", item(1, 0, 1)));
  auto const loaded = LoadObjectStream(bytes.bytes());
  EXPECT_TRUE(loaded.m_problems.empty());
  EXPECT_EQ(itemOf(loaded, 0).m_plain, &itemOf(loaded, 0));
}

TEST_F(ObjectStream, AnEmptyDocumentHasNoObjectsAndNoProblems) {
  auto const loaded = LoadObjectStream(document(version, 0).bytes());
  EXPECT_TRUE(loaded.m_objects.empty());
  EXPECT_TRUE(loaded.m_problems.empty());
}

TEST_F(ObjectStream, SkipsAnUnknownTypeAndGoesOn) {
  ByteWriter bytes = document(version, 2);
  bytes.append(object(1, "test.unknown", ByteWriter().raw("whatever")));
  bytes.append(object(2, "test.item", item(20, 1, 0)));
  auto const loaded = LoadObjectStream(bytes.bytes());
  ASSERT_EQ(loaded.m_objects.size(), 1U);
  ASSERT_EQ(loaded.m_problems.size(), 2U);
  expectProblem(loaded.m_problems[0], Severity::Warning, 1, "test.unknown", 16,
                "unknown type; object of 8 bytes skipped");
  expectProblem(loaded.m_problems[1], Severity::Error, 2, "test.item", loaded.m_objects[0].m_offset + 4,
                "expected a link to an object, found id 1 of a skipped one of type 'test.unknown'");
  EXPECT_EQ(itemOf(loaded, 0).m_counted, nullptr);
}

TEST_F(ObjectStream, ALinkToNothingStaysNull) {
  ByteWriter bytes = document(version, 1);
  bytes.append(object(1, "test.item", item(10, 0, 5)));
  auto const loaded = LoadObjectStream(bytes.bytes());
  ASSERT_EQ(loaded.m_problems.size(), 1U);
  expectProblem(loaded.m_problems[0], Severity::Error, 1, "test.item", loaded.m_objects[0].m_offset + 8,
                "expected a link to an object, found id 5 of none");
  EXPECT_EQ(itemOf(loaded, 0).m_plain, nullptr);
}

TEST_F(ObjectStream, ALinkToAnObjectOfAnotherTypeStaysNull) {
  ByteWriter bytes = document(version, 2);
  bytes.append(object(1, "test.item", item(10, 0, 0))).append(object(2, "test.choosy", ByteWriter().u32(1)));
  auto const loaded = LoadObjectStream(bytes.bytes());
  ASSERT_EQ(loaded.m_problems.size(), 1U);
  expectProblem(loaded.m_problems[0], Severity::Error, 2, "test.choosy", loaded.m_objects[1].m_offset,
                "expected a link to an object of another type, found object 1 of type 'test.item'");
  EXPECT_EQ(itemOf(loaded, 1).m_plain, nullptr);
  EXPECT_EQ(itemOf(loaded, 0).GetReferences(), 1);
}

TEST_F(ObjectStream, OfTwoObjectsWithOneIdTheFirstWins) {
  ByteWriter bytes = document(version, 3);
  bytes.append(object(1, "test.item", item(10, 0, 0)));
  auto const second = bytes.size();
  bytes.append(object(1, "test.item", item(11, 0, 0))).append(object(2, "test.item", item(20, 0, 1)));
  auto const loaded = LoadObjectStream(bytes.bytes());
  ASSERT_EQ(loaded.m_objects.size(), 2U);
  EXPECT_EQ(itemOf(loaded, 1).m_plain->m_value, 10U);
  ASSERT_EQ(loaded.m_problems.size(), 1U);
  expectProblem(loaded.m_problems[0], Severity::Error, 1, "test.item", second,
                "expected a new object id, found one that is taken; the first object keeps it");
}

TEST_F(ObjectStream, AnObjectWithIdZeroIsLoadedWithAnError) {
  ByteWriter bytes = document(version, 2);
  bytes.append(object(0, "test.item", item(10, 0, 0))).append(object(0, "test.item", item(11, 0, 0)));
  auto const loaded = LoadObjectStream(bytes.bytes());
  EXPECT_EQ(loaded.m_objects.size(), 2U);
  ASSERT_EQ(loaded.m_problems.size(), 2U);
  expectProblem(loaded.m_problems[0], Severity::Error, 0, "test.item", 16,
                "expected an object id, found 0, which no link can name");
}

TEST_F(ObjectStream, APayloadBoundsWhatItsObjectReads) {
  ByteWriter bytes = document(version, 2);
  bytes.append(object(1, "test.item", ByteWriter().u32(10).raw("\1\2")));
  bytes.append(object(2, "test.item", item(20, 0, 0)));
  auto const loaded = LoadObjectStream(bytes.bytes());
  ASSERT_EQ(loaded.m_objects.size(), 2U);
  EXPECT_EQ(itemOf(loaded, 0).m_value, 10U);
  EXPECT_EQ(itemOf(loaded, 1).m_value, 20U);
  ASSERT_EQ(loaded.m_problems.size(), 1U);
  expectProblem(loaded.m_problems[0], Severity::Error, 1, "test.item", loaded.m_objects[0].m_offset + 4,
                "expected 4 bytes, found 2 bytes before the end of the payload");
}

TEST_F(ObjectStream, WarnsOfPayloadThatIsLeftOver) {
  ByteWriter bytes = document(version, 1);
  bytes.append(object(1, "test.item", item(10, 0, 0).u8(0)));
  auto const loaded = LoadObjectStream(bytes.bytes());
  ASSERT_EQ(loaded.m_problems.size(), 1U);
  expectProblem(loaded.m_problems[0], Severity::Warning, 1, "test.item", loaded.m_objects[0].m_offset + 12,
                "expected the end of the payload, found 1 byte more");
}

TEST_F(ObjectStream, TellsWhereAReaderRefusedItsContent) {
  ByteWriter bytes = document(version, 1);
  bytes.append(object(1, "test.refusing", ByteWriter().u8(9)));
  auto const loaded = LoadObjectStream(bytes.bytes());
  ASSERT_EQ(loaded.m_objects.size(), 1U);
  ASSERT_EQ(loaded.m_problems.size(), 1U);
  expectProblem(loaded.m_problems[0], Severity::Error, 1, "test.refusing", loaded.m_objects[0].m_offset + 1,
                "expected a version and record kinds that the type's reader knows");
}

TEST_F(ObjectStream, WarnsOfBytesBehindTheLastObject) {
  ByteWriter bytes = document(version, 1);
  bytes.append(object(1, "test.item", item(10, 0, 0)));
  auto const end = bytes.size();
  auto const loaded = LoadObjectStream(bytes.raw("xyz").bytes());
  ASSERT_EQ(loaded.m_problems.size(), 1U);
  expectProblem(loaded.m_problems[0], Severity::Warning, 0, "", end,
                "expected the end of the document, found 3 bytes more");
}

TEST_F(ObjectStream, AFactoryThatMakesNothingIsAnError) {
  ByteWriter bytes = document(version, 1);
  bytes.append(object(1, "test.nothing", ByteWriter()));
  auto const loaded = LoadObjectStream(bytes.bytes());
  EXPECT_TRUE(loaded.m_objects.empty());
  ASSERT_EQ(loaded.m_problems.size(), 1U);
  EXPECT_EQ(loaded.m_problems[0].m_text, "the type's factory made no object");
}

TEST_F(ObjectStream, AnExceptionReleasesEveryObjectAndWritesNoLink) {
  ByteWriter bytes = document(version, 2);
  bytes.append(object(1, "test.item", item(10, 1, 1))).append(object(2, "test.throwing", item(20, 1, 1)));
  EXPECT_THROW((void)LoadObjectStream(bytes.bytes()), std::bad_alloc);
  EXPECT_EQ(Item::live, 0);
  EXPECT_TRUE(Item::linked.empty());
}

TEST_F(ObjectStream, RefusesWhatIsNoObjectStream) {
  ByteWriter const bytes = ByteWriter().raw("qvstream").u32(version).u32(0);
  EXPECT_FALSE(qv::IsObjectStream(bytes.bytes()));
  auto const loaded = LoadObjectStream(bytes.bytes());
  ASSERT_EQ(loaded.m_problems.size(), 1U);
  expectProblem(loaded.m_problems[0], Severity::Error, 0, "", 0,
                "expected the 8 bytes 'qvStream' of an object stream");
}

TEST_F(ObjectStream, IsToldByItsFirstEightBytesAlone) {
  EXPECT_TRUE(qv::IsObjectStream(ByteWriter().raw("qvStream").bytes()));
  EXPECT_FALSE(qv::IsObjectStream(ByteWriter().raw("qvStrea").bytes()));
  EXPECT_FALSE(qv::IsObjectStream({}));
}

TEST_F(ObjectStream, ATypeNameMayHave256BytesAndNoMore) {
  std::string const longest(256, 'n');
  qvRttiInterface::RegisterFactoryFunction(longest, &make<Item>);
  ByteWriter fits = document(version, 1);
  EXPECT_EQ(LoadObjectStream(fits.append(object(1, longest, item(1, 0, 0))).bytes()).m_objects.size(), 1U);
  qvRttiInterface::UnregisterFactoryFunction(longest);

  ByteWriter tooLong = document(version, 1);
  auto const loaded = LoadObjectStream(tooLong.append(object(1, longest + 'n', item(1, 0, 0))).bytes());
  ASSERT_EQ(loaded.m_problems.size(), 1U);
  expectProblem(loaded.m_problems[0], Severity::Error, 0, "", 24,
                "expected a type name of at most 256 bytes, found one of 257");
}

TEST_F(ObjectStream, AGiantTypeNameLengthCostsNothing) {
  ByteWriter bytes = document(version, 1);
  bytes.u32(1).u32(0x7FFFFFFF).raw("x");
  EXPECT_EQ(LoadObjectStream(bytes.bytes()).m_problems.at(0).m_text,
            "expected a type name of at most 256 bytes, found one of 2147483647");
}

TEST_F(ObjectStream, AnEmptyTypeNameIsAnUnknownType) {
  for (std::int32_t const length : {0, -1}) {
    ByteWriter bytes = document(version, 1);
    bytes.u32(1).i32(length).u64(0);
    auto const loaded = LoadObjectStream(bytes.bytes());
    ASSERT_EQ(loaded.m_problems.size(), 1U);
    EXPECT_EQ(loaded.m_problems[0].m_text, "unknown type; object of 0 bytes skipped");
  }
}

TEST_F(ObjectStream, AGiantPayloadSizeIsHeldAgainstTheDocument) {
  for (std::uint64_t const size : {std::uint64_t{13}, std::uint64_t{1} << 32, ~std::uint64_t{0}}) {
    ByteWriter bytes = document(version, 2);
    bytes.u32(1).text("test.item").u64(size).append(item(10, 0, 0));
    auto const loaded = LoadObjectStream(bytes.bytes());
    ASSERT_EQ(loaded.m_objects.size(), 1U) << "what is there is loaded";
    EXPECT_EQ(itemOf(loaded, 0).m_value, 10U);
    ASSERT_EQ(loaded.m_problems.size(), 1U);
    expectProblem(loaded.m_problems[0], Severity::Error, 1, "test.item", 16 + 4 + 4 + 9 + 8,
                  "expected a payload of " + std::to_string(size) +
                      " bytes, found 12 bytes before the end of the document");
  }
}

TEST_F(ObjectStream, AGiantObjectCountEndsWithTheDocument) {
  ByteWriter bytes = document(version, 0xFFFFFFFF);
  bytes.append(object(1, "test.item", item(10, 0, 0)));
  auto const loaded = LoadObjectStream(bytes.bytes());
  EXPECT_EQ(loaded.m_objects.size(), 1U);
  ASSERT_EQ(loaded.m_problems.size(), 1U);
  expectProblem(loaded.m_problems[0], Severity::Error, 0, "", bytes.size(),
                "expected an object's id of 4 bytes, found 0 bytes before the end of the document");
}

TEST_F(ObjectStream, EveryPrefixOfADocumentIsReadWithAnError) {
  ByteWriter bytes = document(version, 2);
  bytes.append(object(1, "test.item", item(10, 2, 2))).append(object(2, "test.item", item(20, 0, 1)));
  for (std::size_t length = 0; length < bytes.size(); ++length) {
    auto const prefix = bytes.bytes().first(length);
    std::vector<std::byte> const copy(prefix.begin(), prefix.end());
    auto const loaded = LoadObjectStream(copy);
    ASSERT_FALSE(loaded.m_problems.empty()) << length;
    EXPECT_EQ(loaded.m_problems.front().m_severity, Severity::Error);
    EXPECT_LE(loaded.m_problems.front().m_offset, length);
  }
}

TEST_F(ObjectStream, TheListOfProblemsIsBoundedAndSaysSo) {
  ByteWriter bytes = document(version, 3000);
  for (std::uint32_t i = 0; i < 3000; ++i) bytes.append(object(i + 1, "test.item", item(i, 9999, 0)));
  auto const loaded = LoadObjectStream(bytes.bytes());
  EXPECT_EQ(loaded.m_objects.size(), 3000U);
  ASSERT_EQ(loaded.m_problems.size(), 1000U);
  expectProblem(loaded.m_problems.back(), Severity::Error, 0, "", bytes.size(), "2001 more problems");
}

}  // namespace
