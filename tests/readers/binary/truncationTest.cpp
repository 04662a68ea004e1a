#include <gtest/gtest.h>

#include "annotationLegacy/qvAnnotationMetaData.h"
#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "tests/readers/binary/records.h"

/// Broken records: what is read is unreliable, but nothing outside the bytes is, nothing is leaked, and the
/// stream says that it broke. Worth most under a sanitizer.
namespace {

using namespace readersTest;

constexpr std::uint32_t versions[] = {v6_13, v6_14, v6_15, v6_16, v6_17, v6_21, v6_22, v6_26, v6_27};

template <class Object>
void loadInto(Object& object, ByteStream& stream) {
  if constexpr (requires { object.load(stream); }) {
    object.load(stream);
  } else {
    object.Load(stream);
  }
}

/// Loads every prefix of the record: only the whole record is read without an error.
template <class Object>
void expectEveryPrefixToFail(Bytes const& record, std::uint32_t version) {
  for (std::size_t size = 0; size <= record.size(); ++size) {
    ByteStream stream(record.prefix(size), version);
    Object object;
    loadInto(object, stream);
    EXPECT_EQ(stream.hasStreamError(), size < record.size()) << "version " << version << ", prefix " << size;
  }
}

/// Loads the record with each single byte changed. A changed count may ask for much memory: that one may
/// fail.
template <class Object>
void loadEveryPatch(Bytes const& record, std::uint32_t version) {
  for (std::size_t i = 0; i < record.size(); ++i) {
    for (int const step : {1, -1}) {
      Bytes patched = record.prefix(i);
      patched.u8(static_cast<std::uint8_t>(record.get()[i] + step));
      for (std::size_t j = i + 1; j < record.size(); ++j)
        patched.u8(static_cast<std::uint8_t>(record.get()[j]));
      ByteStream stream(patched, version);
      Object object;
      loadInto(object, stream);
      EXPECT_GE(patched.size(), stream.GetReadBytes());
    }
  }
}

TEST(BrokenRecords, EveryPrefixOfATextFails) {
  for (std::uint32_t const version : versions) {
    Bytes const record =
        version < v6_15
            ? oldTextRecord(version, "note", 1)
            : textRecord(version, "note", version < v6_22 ? std::vector<Bytes>{} : childRecords(version));
    expectEveryPrefixToFail<qvLegacy::qvAnnotationText>(record, version);
  }
}

TEST(BrokenRecords, EveryPrefixOfARasterFails) {
  for (std::uint32_t const version : versions) {
    if (version < v6_15) continue;
    expectEveryPrefixToFail<qvLegacy::qvAnnotationRaster>(rasterRecord(version, "r"), version);
  }
}

TEST(BrokenRecords, EveryPrefixOfAViewFails) {
  for (std::uint32_t const version : versions) {
    expectEveryPrefixToFail<qvLegacy::qvAnnotationView>(viewRecord(version, "view"), version);
  }
}

TEST(BrokenRecords, EveryPrefixOfAMetadataObjectFails) {
  expectEveryPrefixToFail<qvLegacy::qvAnnotationMetaData>(Bytes().text("m").u32(5).u32(2).u32(1).u32(2),
                                                          v6_22);
}

TEST(BrokenRecords, EveryPrefixOfARunPropertiesLeaderAndMeasureFails) {
  for (std::uint32_t const version : versions) {
    Bytes const properties = propertiesRecord("Mono", 50, 1);
    expectEveryPrefixToFail<qvLegacy::qvAnnotationText::TextProperties>(properties, version);
    expectEveryPrefixToFail<qvLegacy::qvAnnotationText::TextSegment>(runRecord(version, "abc", 1, properties),
                                                                     version);
    expectEveryPrefixToFail<qvLegacy::qvAnnotationInterface::Leader>(leaderRecord(version, 3), version);
    expectEveryPrefixToFail<qvLegacy::qvAnnotationInterface::MeasureLeader>(measureRecord(version, 2),
                                                                            version);
  }
}

TEST(BrokenRecords, ReadNothingBeyondTheirBytesWhenAFieldIsOffByOne) {
  loadEveryPatch<qvLegacy::qvAnnotationText::TextSegment>(
      runRecord(v6_22, "abc", 1, propertiesRecord("M", 50, 1)), v6_22);
  loadEveryPatch<qvLegacy::qvAnnotationText::TextProperties>(propertiesRecord("Mono", 50, 1), v6_22);
}

TEST(BrokenRecords, ReleaseEverythingThatTheyMade) {
  std::size_t const before = qv::qvObject::GetLiveObjects();
  for (std::size_t size = 0; size <= viewRecord(v6_27, "view").size(); ++size) {
    ByteStream stream(viewRecord(v6_27, "view").prefix(size), v6_27);
    qv::qvPointer<qvLegacy::qvAnnotationView> const view = new qvLegacy::qvAnnotationView;
    view->Load(stream);
  }
  EXPECT_EQ(qv::qvObject::GetLiveObjects(), before);
}

}  // namespace
