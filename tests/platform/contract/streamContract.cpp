#include <gtest/gtest.h>

#include <array>
#include <cstdint>

#include "platformUnderTest.h"
#include "ports/stream.h"

namespace {

using qvContract::Bytes;
using qvContract::MemoryStream;
namespace ports = qvLegacy::ports;

constexpr std::uint32_t VERSION = 0x60016;

TEST(StreamContract, TheVersionIsPackedMajorAndMinor) {
  Bytes const bytes;
  EXPECT_EQ(ports::version(MemoryStream(bytes.get(), VERSION)), VERSION);
}

TEST(StreamContract, ARawReadDeliversWhatThereIsAndTouchesNeitherErrorNorCounter) {
  Bytes const bytes = Bytes().text("abc");
  MemoryStream stream(bytes.get(), VERSION);
  std::array<char, 5> buffer{};
  EXPECT_EQ(ports::readRaw(stream, 5, buffer.data()), 3U);
  EXPECT_EQ(buffer[2], 'c');
  EXPECT_FALSE(stream.hasStreamError());
  EXPECT_EQ(stream.GetReadBytes(), 0U);
  ports::countRead(stream, 3);
  EXPECT_EQ(stream.GetReadBytes(), 3U);
}

TEST(StreamContract, ElementsAreReadLittleEndian) {
  Bytes const bytes = Bytes().text("\x01\x02\x03\x04\x05\x06");
  MemoryStream stream(bytes.get(), VERSION);
  std::uint32_t word = 0;
  stream.readle(4, 1, &word);
  EXPECT_EQ(word, 0x04030201U);
  std::uint16_t half = 0;
  stream.readle(2, 1, &half);
  EXPECT_EQ(half, 0x0605U);
  EXPECT_FALSE(stream.hasStreamError());
}

TEST(StreamContract, AShortReadOfElementsSetsTheErrorAndKeepsTheDestination) {
  Bytes const bytes = Bytes().text("\x01\x02");
  MemoryStream stream(bytes.get(), VERSION);
  std::uint32_t count = 7;
  stream.readle(4, 1, &count);
  EXPECT_EQ(count, 7U);
  EXPECT_TRUE(stream.hasStreamError());
}

TEST(StreamContract, AnErrorStaysAndDoesNotStopTheReading) {
  Bytes const bytes = Bytes().u32(5);
  MemoryStream stream(bytes.get(), VERSION);
  stream.setStreamError();
  std::uint32_t value = 0;
  stream.readle(4, 1, &value);
  EXPECT_EQ(value, 5U);
  EXPECT_TRUE(stream.hasStreamError());
}

TEST(StreamContract, AVariantMapReplacesWhatTheMapHeld) {
  Bytes const bytes = Bytes().variantMap("key", "value");
  MemoryStream stream(bytes.get(), VERSION);
  qv::qvVariant::qvVariantMapImpl map{{"old", 1}};
  qv::qvInstanceMetaData::LoadVariantMap(stream, map);
  ASSERT_EQ(map.size(), 1U);
  EXPECT_EQ(map.at("key").toString(), "value");
  EXPECT_FALSE(stream.hasStreamError());
}

TEST(StreamContract, AVariantMapThatEndsEarlySetsTheError) {
  Bytes const bytes = Bytes().u32(1);
  MemoryStream stream(bytes.get(), VERSION);
  qv::qvVariant::qvVariantMapImpl map;
  qv::qvInstanceMetaData::LoadVariantMap(stream, map);
  EXPECT_TRUE(stream.hasStreamError());
}

/// An object that is linked to one of its own class.
class Chained : public qv::qvObject {
 public:
  void Load(qv::qvBaseStream& stream) override {
    qvObject::Load(stream);
    stream.ReadObjectImpl(&m_next, true, &qv::qvBaseStream::GetLinkPointer<Chained>);
    m_wasNullAtFirst = m_next == nullptr;
  }
  void SetName(std::string const& name) override { m_name = name; }
  std::string const& GetName() const override { return m_name; }
  void PostLink() override { m_linkedTo = m_next == nullptr ? "" : m_next->m_name; }

  static qv::qvRttiInterface* Make(qv::qvBaseStream& stream) {
    auto* const object = new Chained;
    object->Load(stream);
    return object;
  }

  std::string m_name;
  std::string m_linkedTo;
  qv::qvPointer<Chained> m_next;
  bool m_wasNullAtFirst = false;
};

TEST(StreamContract, FactoriesMakeObjectsAndReferencesAreFilledInAfterLoading) {
  qv::qvRttiInterface::RegisterFactoryFunction("contract.Chained", &Chained::Make);
  {
    auto const document =
        qvContract::load(VERSION, {{1, "contract.Chained", Bytes().countedString("first").reference(2)},
                                   {2, "contract.Chained", Bytes().countedString("second").reference(0)}});
    ASSERT_EQ(document.m_objects.size(), 2U);
    auto const& first = dynamic_cast<Chained const&>(*document.m_objects[0].m_object);
    EXPECT_TRUE(first.m_wasNullAtFirst);
    EXPECT_EQ(first.m_linkedTo, "second") << "PostLink comes after the references";
    ASSERT_NE(first.m_next, nullptr);
    EXPECT_EQ(first.m_next->GetReferences(), 2) << "one of the document, one of the reference";
  }
  qv::qvRttiInterface::UnregisterFactoryFunction("contract.Chained");
  EXPECT_TRUE(qvContract::load(VERSION, {{1, "contract.Chained", Bytes()}}).m_objects.empty());
}

TEST(StreamContract, LinkConvertersGiveNullForNullAndForObjectsOfAnotherClass) {
  qv::qvPointer<qv::qvMetadataInterface> const metadata(new qv::qvMetadataInterface(5));
  qv::qvPointer<Chained> const chained(new Chained);
  EXPECT_EQ(qv::qvBaseStream::GetLinkPointer<Chained>(nullptr), nullptr);
  EXPECT_EQ(qv::qvBaseStream::GetLinkPointer<Chained>(metadata.get()), nullptr);
  EXPECT_EQ(qv::qvBaseStream::GetLinkPointer<Chained>(chained.get()), chained.get());
}

}  // namespace
