#include <gtest/gtest.h>

#include "annotationLegacy/qvAnnotationMetaData.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "tests/readers/binary/records.h"

namespace {

using namespace readersTest;
using MetaData = qvLegacy::qvAnnotationMetaData;
using View = qvLegacy::qvAnnotationView;
using ViewPointer = qv::qvPointer<View>;
using Link = qv::qvBaseStream::PendingLink;

/// What a stream does with a reference once all objects are loaded.
void resolve(Link const& link, qv::qvRttiInterface* object) {
  new (link.m_slot) ViewPointer(static_cast<View*>(link.m_converter(object)));
}

/// The base part, nameless.
Bytes headOfMetaData() {
  return Bytes().u32(0).u32(MetaData::MetadataTypeId);
}

TEST(MetadataRecord, ReadsOneReferenceForEachView) {
  ByteStream stream(headOfMetaData().u32(3).u32(11).u32(12).u32(13), v6_22);
  MetaData metadata;
  metadata.Load(stream);
  ASSERT_EQ(metadata.m_views.size(), 3U);
  std::vector<Link> const links = stream.TakePendingLinks();
  ASSERT_EQ(links.size(), 3U);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(links[i].m_slot, &metadata.m_views[i]);
    EXPECT_EQ(links[i].m_id, 11 + i);
    EXPECT_TRUE(links[i].m_counted);
    EXPECT_EQ(metadata.m_views[i].get(), nullptr);
  }
  EXPECT_EQ(stream.left(), 0U);
  EXPECT_FALSE(stream.hasStreamError());
}

TEST(MetadataRecord, LinksViewsOnly) {
  ByteStream stream(headOfMetaData().u32(3).u32(11).u32(12).u32(13), v6_22);
  MetaData metadata;
  metadata.Load(stream);
  std::vector<Link> const links = stream.TakePendingLinks();
  ASSERT_EQ(links.size(), 3U);
  ViewPointer const view = new View;
  qv::qvPointer<qv::qvObject> const text = new qvLegacy::qvAnnotationText;
  resolve(links[0], view.get());
  resolve(links[1], text.get());
  resolve(links[2], nullptr);
  EXPECT_EQ(metadata.m_views[0].get(), view.get());
  EXPECT_EQ(metadata.m_views[1].get(), nullptr);
  EXPECT_EQ(metadata.m_views[2].get(), nullptr);
}

TEST(MetadataRecord, HoldsAViewOnceForEachLinkToIt) {
  ByteStream stream(headOfMetaData().u32(2).u32(11).u32(11), v6_22);
  MetaData metadata;
  metadata.Load(stream);
  ViewPointer view = new View;
  for (Link const& link : stream.TakePendingLinks()) resolve(link, view.get());
  EXPECT_EQ(metadata.m_views[0].get(), metadata.m_views[1].get());
  EXPECT_EQ(view->GetReferences(), 3);
}

TEST(MetadataRecord, ReleasesTheViewsThatItHeld) {
  ViewPointer const view = new View;
  for (std::uint32_t const count : {0U, 3U}) {
    MetaData metadata;
    metadata.m_views = {view, view};
    Bytes bytes = headOfMetaData().u32(count);
    for (std::uint32_t i = 0; i < count; ++i) bytes.u32(0);
    ByteStream stream(bytes, v6_22);
    metadata.Load(stream);
    EXPECT_EQ(metadata.m_views.size(), count);
    for (ViewPointer const& entry : metadata.m_views) EXPECT_EQ(entry.get(), nullptr);
    EXPECT_EQ(view->GetReferences(), 1);
    EXPECT_EQ(stream.left(), 0U);
    EXPECT_FALSE(stream.hasStreamError());
  }
}

TEST(MetadataRecord, HasNoVersionGate) {
  for (std::uint32_t const version : {0U, v6_12, v6_13, v6_27, 0xFFFFFFFFU}) {
    ByteStream stream(headOfMetaData().u32(1).u32(0), version);
    MetaData metadata;
    metadata.Load(stream);
    EXPECT_EQ(metadata.m_views.size(), 1U);
    EXPECT_FALSE(stream.hasStreamError());
  }
}

TEST(MetadataRecord, HasNoViewsWhenTheCountCannotBeRead) {
  ByteStream stream(headOfMetaData().u8(9), v6_22);
  MetaData metadata;
  metadata.m_views = {new View};
  metadata.Load(stream);
  EXPECT_TRUE(metadata.m_views.empty());
  EXPECT_TRUE(stream.hasStreamError());
}

TEST(MetadataRecord, KeepsNullEntriesForReferencesThatAreMissing) {
  ByteStream stream(headOfMetaData().u32(4).u32(0), v6_22);
  MetaData metadata;
  metadata.Load(stream);
  EXPECT_EQ(metadata.m_views.size(), 4U);
  for (ViewPointer const& entry : metadata.m_views) EXPECT_EQ(entry.get(), nullptr);
  EXPECT_TRUE(stream.hasStreamError());
}

}  // namespace
