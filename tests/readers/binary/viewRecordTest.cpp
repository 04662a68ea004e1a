#include <gtest/gtest.h>

#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "annotationLegacy/qvAnnotationView.h"
#include "tests/readers/binary/records.h"

namespace {

using namespace readersTest;
using Raster = qvLegacy::qvAnnotationRaster;
using Text = qvLegacy::qvAnnotationText;
using Vector = Wm4::Vector3<float>;
using View = qvLegacy::qvAnnotationView;

/// Name and plane of a view record.
Bytes headOfView() {
  return Bytes().text("v").point(0, 0, 0).point(0, 0, 1).point(1, 0, 0);
}

std::vector<std::string> namesOf(View const& view) {
  std::vector<std::string> names;
  for (auto const& annotation : view.m_annotations) names.push_back(annotation->m_name);
  return names;
}

TEST(ViewRecord, ReadsEveryFieldInOrder) {
  ByteStream stream(viewRecord(v6_27, "view"), v6_27);
  View view;
  view.Load(stream);
  EXPECT_EQ(view.m_name, "view");
  EXPECT_EQ(view.m_planeOrigin, Vector(7, 8, 9));
  EXPECT_EQ(view.m_planeNormal, Vector(0, 1, 0));
  EXPECT_EQ(view.m_planeXAxis, Vector(0, 0, 1));
  EXPECT_EQ(namesOf(view), (std::vector<std::string>{"t1", "t2", "r1"}));
  EXPECT_NE(dynamic_cast<Text const*>(view.m_annotations[1].get()), nullptr);
  EXPECT_NE(dynamic_cast<Raster const*>(view.m_annotations[2].get()), nullptr);
  for (auto const& annotation : view.m_annotations) EXPECT_EQ(annotation->GetReferences(), 1);
  EXPECT_EQ(view.m_metadata.size(), 1U);
  EXPECT_EQ(stream.left(), 0U);
  EXPECT_FALSE(stream.hasStreamError());
}

TEST(ViewRecord, ReadsToItsLastByteAtEveryVersion) {
  for (std::uint32_t const version :
       {v6_13, v6_14, v6_15, v6_16, v6_17, v6_21, v6_22, v6_26, v6_27, 0x6001CU, 0x70000U, 0xFFFFFFFFU}) {
    ByteStream stream(viewRecord(version, "view"), version);
    View view;
    view.Load(stream);
    EXPECT_EQ(view.m_annotations.size(), version >= v6_15 ? 3U : 2U) << version;
    EXPECT_EQ(stream.left(), 0U) << version;
    EXPECT_FALSE(stream.hasStreamError()) << version;
  }
}

TEST(ViewRecord, IsAStreamErrorBefore6_13) {
  for (std::uint32_t const version : {0U, 0x50020U, v6_12}) {
    ByteStream stream(viewRecord(v6_13, "view"), version);
    View view;
    view.Load(stream);
    EXPECT_EQ(view.m_name, "");
    EXPECT_EQ(view.m_planeNormal, Vector(0, 0, 1));
    EXPECT_TRUE(view.m_annotations.empty());
    EXPECT_TRUE(stream.reads().empty());
    EXPECT_TRUE(stream.hasStreamError());
  }
}

TEST(ViewRecord, HasARasterCountFrom6_15On) {
  ByteStream before(headOfView().u32(1).append(oldTextRecord(v6_14, "t", 1)), v6_14);
  View oldView;
  oldView.Load(before);
  EXPECT_EQ(namesOf(oldView), std::vector<std::string>{"t"});
  EXPECT_EQ(before.left(), 0U);
  EXPECT_FALSE(before.hasStreamError());

  ByteStream since(headOfView().u32(1).u32(0).append(textRecord(v6_15, "t")), v6_15);
  View view;
  view.Load(since);
  EXPECT_EQ(namesOf(view), std::vector<std::string>{"t"});
  EXPECT_EQ(since.left(), 0U);
  EXPECT_FALSE(since.hasStreamError());
}

TEST(ViewRecord, HasMetadataFrom6_27On) {
  for (std::uint32_t const version : {v6_26, v6_27}) {
    ByteStream stream(headOfView().u32(0).u32(0).append(metadataRecord("k")), version);
    View view;
    view.m_metadata["old"] = 1;
    view.Load(stream);
    EXPECT_TRUE(view.m_annotations.empty());
    EXPECT_EQ(view.m_metadata.count("old"), version == v6_26 ? 1U : 0U);
    EXPECT_EQ(view.m_metadata.count("k"), version == v6_26 ? 0U : 1U);
    EXPECT_EQ(stream.left(), version == v6_26 ? metadataRecord("k").size() : 0U);
    EXPECT_FALSE(stream.hasStreamError());
  }
}

TEST(ViewRecord, AppendsToTheAnnotationsThatAreThere) {
  ByteStream stream(viewRecord(v6_22, "view"), v6_22);
  View view;
  view.m_annotations.emplace_back(new Raster);
  view.Load(stream);
  EXPECT_EQ(namesOf(view), (std::vector<std::string>{"", "t1", "t2", "r1"}));
}

TEST(ViewRecord, AppendsEveryAnnouncedAnnotationAfterAnError) {
  ByteStream stream(headOfView().u32(5).u32(0).append(textRecord(v6_22, "first")), v6_22);
  View view;
  view.Load(stream);
  EXPECT_EQ(namesOf(view), (std::vector<std::string>{"first", "", "", "", ""}));
  EXPECT_TRUE(stream.hasStreamError());
}

TEST(ViewRecord, HasNoAnnotationsWhenItsCountsCannotBeRead) {
  for (Bytes const& counts : {Bytes(), Bytes("01 00 00")}) {
    ByteStream stream(headOfView().append(counts), v6_22);
    View view;
    view.Load(stream);
    EXPECT_TRUE(view.m_annotations.empty());
    EXPECT_TRUE(stream.hasStreamError());
  }
}

TEST(ViewRecord, ReadsTheTextsWhenTheRasterCountIsMissing) {
  ByteStream stream(headOfView().u32(2), v6_22);
  View view;
  view.Load(stream);
  EXPECT_EQ(view.m_annotations.size(), 2U);
  EXPECT_TRUE(stream.hasStreamError());
}

TEST(ViewRecord, TakesItsNameFromTheBaseRecord) {
  ByteStream stream(Bytes().u32(0xFFFFFFFF).point(1, 2, 3).point(0, 0, 1).point(1, 0, 0).u32(0), v6_13);
  View view;
  view.m_name = "old";
  view.Load(stream);
  EXPECT_EQ(view.m_name, "");
  EXPECT_EQ(view.m_planeOrigin, Vector(1, 2, 3));
  EXPECT_EQ(stream.left(), 0U);
  EXPECT_FALSE(stream.hasStreamError());
}

}  // namespace
