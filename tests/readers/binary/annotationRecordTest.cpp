#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "tests/readers/binary/records.h"

namespace {

using namespace readersTest;
using Annotation = qvLegacy::qvAnnotationInterface;
using Vector = Wm4::Vector3<float>;
using Color = Wm4::Vector3<unsigned char>;

void expectDefaults(Annotation const& annotation) {
  EXPECT_EQ(annotation.m_name, "");
  EXPECT_TRUE(annotation.m_leaders.empty());
  EXPECT_TRUE(annotation.m_measures.empty());
  EXPECT_EQ(annotation.m_position, Vector(0, 0, 0));
  EXPECT_EQ(annotation.m_color, Color(255, 255, 255));
  EXPECT_EQ(annotation.m_style, 1);
  EXPECT_EQ(annotation.m_subAnnots, nullptr);
  EXPECT_TRUE(annotation.m_metadata.empty());
}

std::vector<std::uint32_t> anchorsOf(Annotation const& annotation) {
  std::vector<std::uint32_t> anchors;
  for (auto const& node : *annotation.m_subAnnots) anchors.push_back(node.m_anchor);
  return anchors;
}

bool allChildrenAreNull(Annotation const& annotation) {
  return std::all_of(annotation.m_subAnnots->begin(), annotation.m_subAnnots->end(),
                     [](auto const& node) { return node.m_annot.get() == nullptr; });
}

/// Name, no leaders, no measures, position, colour and style of a 6.22 record, up to the child count.
Bytes headOfRecord() {
  return Bytes().u32(0).u32(0).u32(0).point(4, 5, 6).u8(10).u8(20).u8(30).u8(0x25);
}

TEST(AnnotationRecord, ReadsEveryFieldInOrder) {
  ByteStream stream(baseRecord(v6_22, "name"), v6_22);
  Annotation annotation(Annotation::Unknown);
  annotation.load(stream);
  EXPECT_EQ(annotation.m_name, "name");
  ASSERT_EQ(annotation.m_leaders.size(), 2U);
  EXPECT_EQ(annotation.m_leaders[0].m_position, Vector(1, 2, 3));
  EXPECT_EQ(annotation.m_leaders[0].m_head, 3);
  EXPECT_EQ(annotation.m_leaders[1].m_head, 6);
  ASSERT_EQ(annotation.m_measures.size(), 1U);
  EXPECT_EQ(annotation.m_measures[0].m_pointA, Vector(1, 0, 0));
  EXPECT_EQ(annotation.m_measures[0].m_pointB, Vector(0, 1, 0));
  EXPECT_EQ(annotation.m_measures[0].m_offset, Vector(0, 0, 1));
  EXPECT_EQ(annotation.m_measures[0].m_arrowDir, 2);
  EXPECT_EQ(annotation.m_position, Vector(4, 5, 6));
  EXPECT_EQ(annotation.m_color, Color(10, 20, 30));
  EXPECT_EQ(annotation.m_style, 0x25);
  EXPECT_EQ(annotation.m_subAnnots, nullptr);
  ASSERT_EQ(annotation.m_metadata.size(), 1U);
  EXPECT_EQ(annotation.m_metadata.begin()->first, "k");
  EXPECT_EQ(annotation.m_metadata.begin()->second, qv::qvVariant(7));
  EXPECT_EQ(stream.left(), 0U);
  EXPECT_FALSE(stream.hasStreamError());
}

TEST(AnnotationRecord, ReadsNothingBefore6_15) {
  for (std::uint32_t const version : {0U, v6_12, v6_13, v6_14}) {
    Bytes const bytes = baseRecord(v6_22, "name");
    ByteStream stream(bytes, version);
    Annotation annotation(Annotation::Unknown);
    annotation.load(stream);
    expectDefaults(annotation);
    EXPECT_EQ(stream.left(), bytes.size());
    EXPECT_TRUE(stream.reads().empty());
    EXPECT_FALSE(stream.hasStreamError());
  }
}

TEST(AnnotationRecord, ReadsTheNewestLayoutAtEveryLaterVersion) {
  for (std::uint32_t const version : {v6_22, v6_26, v6_27, 0x70000U, 0xFFFFFFFFU}) {
    ByteStream stream(baseRecord(v6_22, "name"), version);
    Annotation annotation(Annotation::Unknown);
    annotation.load(stream);
    EXPECT_EQ(annotation.m_metadata.size(), 1U);
    EXPECT_EQ(stream.left(), 0U);
    EXPECT_FALSE(stream.hasStreamError());
  }
}

TEST(AnnotationRecord, ClearsTheNameForALengthBelowOne) {
  for (std::uint32_t const length : {0U, 0xFFFFFFFFU, 0x80000000U}) {
    ByteStream stream(Bytes().u32(length).u32(0).point(1, 2, 3).u8(4).u8(5).u8(6).u8(7), v6_15);
    Annotation annotation(Annotation::Unknown);
    annotation.m_name = "old";
    annotation.load(stream);
    EXPECT_EQ(annotation.m_name, "");
    EXPECT_EQ(annotation.m_position, Vector(1, 2, 3));
    EXPECT_EQ(annotation.m_style, 7);
    EXPECT_EQ(stream.left(), 0U);
    EXPECT_FALSE(stream.hasStreamError());
  }
}

TEST(AnnotationRecord, KeepsZeroBytesInTheName) {
  ByteStream stream(Bytes().u32(3).u8('a').u8(0).u8('b').u32(0).point(0, 0, 0).u32(0), v6_15);
  Annotation annotation(Annotation::Unknown);
  annotation.load(stream);
  EXPECT_EQ(annotation.m_name, std::string("a\0b", 3));
}

TEST(AnnotationRecord, KeepsTheOlderCharactersWhereAShortNameHasNoneAndGoesOn) {
  ByteStream stream(Bytes("0A 00 00 00 41 42 43"), v6_15);
  Annotation annotation(Annotation::Unknown);
  annotation.m_name = "an older and longer name";
  annotation.load(stream);
  EXPECT_EQ(annotation.m_name, "ABColder a");
  annotation.m_name.clear();
  expectDefaults(annotation);
  EXPECT_TRUE(stream.hasStreamError());
  EXPECT_EQ(stream.GetReadBytes(), 4U);
}

TEST(AnnotationRecord, HasZerosWhereAShortNameIsLongerThanTheOlderOne) {
  for (std::string const& older : {std::string(), std::string("abcde")}) {
    ByteStream stream(Bytes("07 00 00 00 41 42 43"), v6_15);
    Annotation annotation(Annotation::Unknown);
    annotation.m_name = older;
    annotation.load(stream);
    std::string const rest = older.empty() ? std::string(4, '\0') : std::string("de\0\0", 4);
    EXPECT_EQ(annotation.m_name, "ABC" + rest);
  }
}

TEST(AnnotationRecord, HasNoNameWhenItsLengthIsNotWhole) {
  ByteStream stream(Bytes("07 00 00"), v6_15);
  Annotation annotation(Annotation::Unknown);
  annotation.m_name = "older";
  annotation.load(stream);
  EXPECT_EQ(annotation.m_name, "");
}

TEST(AnnotationRecord, CountsEachFullRawReadAndReadsTheColourByteByByte) {
  Bytes const bytes = Bytes().text("ab").u32(0).point(1, 2, 3).u8(10).u8(20).u8(30).u8(0x25);
  ByteStream stream(bytes, v6_15);
  Annotation annotation(Annotation::Unknown);
  annotation.load(stream);
  EXPECT_EQ(stream.reads(), (std::vector<std::size_t>{4, 2, 4, 12, 1, 1, 1, 1}));
  EXPECT_EQ(stream.GetReadBytes(), bytes.size());
}

TEST(AnnotationRecord, DoesNotCountAShortRawRead) {
  // The colour's last byte and the style are missing.
  ByteStream stream(Bytes().u32(0).u32(0).point(1, 2, 3).u8(10).u8(20), v6_15);
  Annotation annotation(Annotation::Unknown);
  annotation.load(stream);
  EXPECT_EQ(annotation.m_color, Color(10, 20, 255));
  EXPECT_EQ(annotation.m_style, 1);
  EXPECT_EQ(stream.GetReadBytes(), 22U);
  EXPECT_TRUE(stream.hasStreamError());
}

TEST(AnnotationRecord, HasNoMeasuresBefore6_17) {
  Bytes const bytes = Bytes().u32(0).u32(0).point(4, 5, 6).u8(10).u8(20).u8(30).u8(0x25);
  ByteStream stream(bytes, v6_16);
  Annotation annotation(Annotation::Unknown);
  annotation.m_measures.resize(2);
  annotation.load(stream);
  EXPECT_EQ(annotation.m_measures.size(), 2U);
  EXPECT_EQ(annotation.m_position, Vector(4, 5, 6));
  EXPECT_EQ(annotation.m_color, Color(10, 20, 30));
  EXPECT_EQ(stream.left(), 0U);
  EXPECT_FALSE(stream.hasStreamError());
}

TEST(AnnotationRecord, KeepsHeadsDirectionsChildrenAndMetadataBefore6_22) {
  ByteStream stream(baseRecord(v6_21, "n"), v6_21);
  Annotation annotation(Annotation::Unknown);
  annotation.m_leaders.resize(1);
  annotation.m_leaders[0].m_head = 5;
  annotation.m_measures.resize(1);
  annotation.m_measures[0].m_arrowDir = 3;
  annotation.m_metadata["old"] = 1;
  annotation.editSubAnnots().emplace_back();
  annotation.load(stream);
  ASSERT_EQ(annotation.m_leaders.size(), 2U);
  EXPECT_EQ(annotation.m_leaders[0].m_head, 5);
  EXPECT_EQ(annotation.m_leaders[0].m_position, Vector(1, 2, 3));
  EXPECT_EQ(annotation.m_leaders[1].m_head, 0);
  EXPECT_EQ(annotation.m_measures[0].m_arrowDir, 3);
  EXPECT_EQ(annotation.m_measures[0].m_pointA, Vector(1, 0, 0));
  EXPECT_EQ(annotation.getSubAnnotsCount(), 1U);
  EXPECT_EQ(annotation.m_metadata.count("old"), 1U);
  EXPECT_EQ(stream.left(), 0U);
  EXPECT_FALSE(stream.hasStreamError());
}

TEST(AnnotationRecord, ResizesLeadersAndMeasuresToTheirCounts) {
  ByteStream stream(Bytes().u32(0).u32(1).point(1, 2, 3).u32(0).point(0, 0, 0).u32(0), v6_17);
  Annotation annotation(Annotation::Unknown);
  annotation.m_leaders.resize(3);
  annotation.m_measures.resize(3);
  annotation.load(stream);
  EXPECT_EQ(annotation.m_leaders.size(), 1U);
  EXPECT_TRUE(annotation.m_measures.empty());
}

TEST(AnnotationRecord, KeepsTheDefaultsOfLeadersThatTheStreamDoesNotReach) {
  ByteStream stream(Bytes().u32(0).u32(3).point(1, 2, 3).u8(4).point(5, 6, 7), v6_22);
  Annotation annotation(Annotation::Unknown);
  annotation.load(stream);
  ASSERT_EQ(annotation.m_leaders.size(), 3U);
  EXPECT_EQ(annotation.m_leaders[0].m_head, 4);
  EXPECT_EQ(annotation.m_leaders[1].m_position, Vector(5, 6, 7));
  EXPECT_EQ(annotation.m_leaders[1].m_head, 0);
  EXPECT_EQ(annotation.m_leaders[2].m_position, Vector(0, 0, 0));
  EXPECT_TRUE(stream.hasStreamError());
}

TEST(AnnotationRecord, KeepsBytesOutsideTheEnumerations) {
  Bytes bytes;
  bytes.u32(0).u32(1).point(1, 2, 3).u8(200).u32(1).append(Bytes(pointsHex)).u8(201);
  bytes.point(0, 0, 0).u8(0).u8(0).u8(0).u8(0xFF).u32(1).u8(250).u8(0).u32(0);
  ByteStream stream(bytes, v6_22);
  Annotation annotation(Annotation::Unknown);
  annotation.load(stream);
  EXPECT_EQ(annotation.m_leaders[0].m_head, 200);
  EXPECT_EQ(annotation.m_measures[0].m_arrowDir, 201);
  EXPECT_EQ(annotation.m_style, 0xFF);
  EXPECT_EQ(anchorsOf(annotation), std::vector<std::uint32_t>{250});
  EXPECT_FALSE(stream.hasStreamError());
}

TEST(AnnotationRecord, KeepsNumbersThatAreNotFinite) {
  constexpr float infinity = std::numeric_limits<float>::infinity();
  Bytes bytes;
  bytes.u32(0).u32(0).f32(std::numeric_limits<float>::quiet_NaN()).f32(infinity).f32(-infinity).u32(0);
  ByteStream stream(bytes, v6_15);
  Annotation annotation(Annotation::Unknown);
  annotation.load(stream);
  EXPECT_TRUE(std::isnan(annotation.m_position.X()));
  EXPECT_EQ(annotation.m_position.Y(), infinity);
  EXPECT_EQ(annotation.m_position.Z(), -infinity);
  EXPECT_FALSE(stream.hasStreamError());
}

TEST(AnnotationRecord, ReadsChildrenOfEveryKindWithTheirOwnChildren) {
  ByteStream stream(baseRecord(v6_22, "parent", childRecords(v6_22)), v6_22);
  Annotation annotation(Annotation::Unknown);
  annotation.load(stream);
  EXPECT_EQ(anchorsOf(annotation), (std::vector<std::uint32_t>{3, 5, 12}));
  auto node = annotation.m_subAnnots->begin();
  auto const* const raster = dynamic_cast<qvLegacy::qvAnnotationRaster const*>(node->m_annot.get());
  ASSERT_NE(raster, nullptr);
  EXPECT_EQ(raster->m_name, "raster child");
  EXPECT_EQ(raster->m_rasterName, "logo");
  EXPECT_EQ(raster->GetReferences(), 1);
  ++node;
  EXPECT_EQ(node->m_annot.get(), nullptr);
  ++node;
  auto const* const text = dynamic_cast<qvLegacy::qvAnnotationText const*>(node->m_annot.get());
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(text->m_lines.size(), 2U);
  EXPECT_EQ(text->m_subAnnots->front().m_annot->m_name, "grandchild");
  EXPECT_EQ(text->m_subAnnots->front().m_anchor, 9U);
  EXPECT_EQ(annotation.m_metadata.size(), 1U);
  EXPECT_EQ(stream.left(), 0U);
  EXPECT_FALSE(stream.hasStreamError());
}

TEST(AnnotationRecord, ReadsTheMetadataAfterAnOnlyChildOfKindZero) {
  ByteStream stream(headOfRecord().u32(1).u8(5).u8(0).append(metadataRecord("k")), v6_22);
  Annotation annotation(Annotation::Unknown);
  annotation.load(stream);
  EXPECT_EQ(anchorsOf(annotation), std::vector<std::uint32_t>{5});
  EXPECT_TRUE(allChildrenAreNull(annotation));
  EXPECT_EQ(annotation.m_metadata.size(), 1U);
  EXPECT_EQ(stream.left(), 0U);
  EXPECT_FALSE(stream.hasStreamError());
}

TEST(AnnotationRecord, EndsAtAnUnknownChildKind) {
  Bytes bytes("00 00 00 00 | 01 00 00 00");
  bytes.point(1, 2, 3).u8(3).u32(1).append(Bytes(pointsHex)).u8(2).point(4, 5, 6);
  bytes.append(Bytes("0A 14 1E 25 | 03 00 00 00 | 05 00 | 0C 07"));
  ASSERT_EQ(bytes.size(), 86U);
  ByteStream stream(bytes, v6_22);
  Annotation annotation(Annotation::Unknown);
  annotation.m_metadata["old"] = 1;
  annotation.load(stream);
  EXPECT_EQ(annotation.m_leaders[0].m_head, 3);
  EXPECT_EQ(annotation.m_measures[0].m_arrowDir, 2);
  EXPECT_EQ(anchorsOf(annotation), (std::vector<std::uint32_t>{5, 12, 1}));
  EXPECT_TRUE(allChildrenAreNull(annotation));
  EXPECT_EQ(annotation.m_metadata.count("old"), 1U);
  EXPECT_TRUE(stream.hasStreamError());
  EXPECT_EQ(stream.left(), 0U);
}

TEST(AnnotationRecord, LeavesTheBytesAfterAnUnknownChildKind) {
  ByteStream stream(headOfRecord().u32(1).u8(5).u8(7).append(metadataRecord("k")), v6_22);
  Annotation annotation(Annotation::Unknown);
  annotation.load(stream);
  EXPECT_TRUE(annotation.m_metadata.empty());
  EXPECT_TRUE(stream.hasStreamError());
  EXPECT_EQ(stream.left(), metadataRecord("k").size());
}

TEST(AnnotationRecord, TreatsEveryOtherChildKindAsUnknown) {
  for (unsigned kind = 3; kind < 256; ++kind) {
    ByteStream stream(headOfRecord().u32(1).u8(5).u8(static_cast<std::uint8_t>(kind)).u32(0), v6_22);
    Annotation annotation(Annotation::Unknown);
    annotation.load(stream);
    EXPECT_TRUE(stream.hasStreamError()) << kind;
    EXPECT_EQ(stream.left(), 4U) << kind;
  }
}

TEST(AnnotationRecord, RemovesExistingChildrenForACountOfZero) {
  ByteStream stream(headOfRecord().u32(0).u32(0), v6_22);
  Annotation annotation(Annotation::Unknown);
  annotation.editSubAnnots().emplace_back();
  annotation.load(stream);
  EXPECT_EQ(annotation.m_subAnnots, nullptr);
  EXPECT_FALSE(stream.hasStreamError());
}

TEST(AnnotationRecord, RemovesExistingChildrenWhenTheCountCannotBeRead) {
  ByteStream stream(headOfRecord(), v6_22);
  Annotation annotation(Annotation::Unknown);
  annotation.editSubAnnots().emplace_back();
  annotation.load(stream);
  EXPECT_EQ(annotation.m_subAnnots, nullptr);
  EXPECT_TRUE(stream.hasStreamError());
}

TEST(AnnotationRecord, ReadsMissingAnchorAndKindBytesAsZero) {
  ByteStream stream(headOfRecord().u32(3).u8(5).u8(0).u8(12), v6_22);
  Annotation annotation(Annotation::Unknown);
  annotation.load(stream);
  EXPECT_EQ(anchorsOf(annotation), (std::vector<std::uint32_t>{5, 12, 0}));
  EXPECT_TRUE(allChildrenAreNull(annotation));
  EXPECT_TRUE(stream.hasStreamError());
}

TEST(AnnotationRecord, KeepsEarlierChildrenWhenALaterOneIsUnknown) {
  Bytes bytes = headOfRecord();
  bytes.u32(3).u8(1).u8(2).append(rasterRecord(v6_22, "r")).u8(2).u8(9);
  ByteStream stream(bytes, v6_22);
  Annotation annotation(Annotation::Unknown);
  annotation.load(stream);
  EXPECT_EQ(annotation.m_subAnnots->front().m_annot->m_name, "r");
  EXPECT_EQ(anchorsOf(annotation), (std::vector<std::uint32_t>{1, 2, 1}));
}

TEST(LeaderRecord, ReadsTheHeadFrom6_22On) {
  Annotation::Leader leader;
  leader.m_head = 5;
  ByteStream before(leaderRecord(v6_21, 3), v6_21);
  leader.load(before);
  EXPECT_EQ(leader.m_head, 5);
  EXPECT_EQ(leader.m_position, Vector(1, 2, 3));
  EXPECT_EQ(before.left(), 0U);
  ByteStream since(leaderRecord(v6_22, 3), v6_22);
  leader.load(since);
  EXPECT_EQ(leader.m_head, 3);
  EXPECT_EQ(since.left(), 0U);
}

TEST(LeaderRecord, LeavesTheHeadWhenItsByteIsMissing) {
  Annotation::Leader leader;
  leader.m_head = 5;
  ByteStream stream(Bytes().point(1, 2, 3), v6_22);
  leader.load(stream);
  EXPECT_EQ(leader.m_head, 5);
  EXPECT_TRUE(stream.hasStreamError());
}

TEST(MeasureLeaderRecord, ReadsTheArrowDirectionFrom6_22On) {
  Annotation::MeasureLeader measure;
  measure.m_arrowDir = 3;
  ByteStream before(measureRecord(v6_21, 2), v6_21);
  measure.load(before);
  EXPECT_EQ(measure.m_arrowDir, 3);
  EXPECT_EQ(before.left(), 0U);
  ByteStream since(measureRecord(v6_22, 2), v6_22);
  measure.load(since);
  EXPECT_EQ(measure.m_arrowDir, 2);
  EXPECT_EQ(measure.m_offset, Vector(0, 0, 1));
  EXPECT_EQ(since.left(), 0U);
}

TEST(MeasureLeaderRecord, LeavesAVectorThatIsNotWholeAndTheArrowDirection) {
  Annotation::MeasureLeader measure;
  measure.m_arrowDir = 3;
  ByteStream stream(Bytes().point(1, 2, 3).f32(4), v6_22);
  measure.load(stream);
  EXPECT_EQ(measure.m_pointA, Vector(1, 2, 3));
  EXPECT_EQ(measure.m_pointB, Vector(0, 0, 0));
  EXPECT_EQ(measure.m_offset, Vector(1, 0, 0));
  EXPECT_EQ(measure.m_arrowDir, 3);
  EXPECT_TRUE(stream.hasStreamError());
}

}  // namespace
