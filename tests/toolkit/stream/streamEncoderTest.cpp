#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "tests/onStack.h"
#include "tests/support/modelComparison.h"
#include "tests/support/streamTest.h"

namespace qvStreamTest {

namespace {

using Lines = std::vector<std::string>;
using qvLegacy::qvAnnotationInterface;
using qvLegacy::qvAnnotationRaster;
using qvLegacy::qvAnnotationText;
using qvLegacy::qvAnnotationView;

class Encoder : public StreamTest {
 protected:
  Encoder() { addView(); }
  void TearDown() override {
    m_document.m_views.clear();
    StreamTest::TearDown();
  }

  qvAnnotationView& addView() {
    LoadedView loaded;
    loaded.m_view = new qvAnnotationView;
    m_document.m_views.push_back(loaded);
    return *loaded.m_view;
  }
  template <class Annotation>
  Annotation& add() {
    auto* const annotation = new Annotation;
    m_document.m_views[0].m_view->m_annotations.push_back(annotation);
    return *annotation;
  }
  Lines encodeAt(std::uint32_t version) {
    Lines lines;
    m_encoded = encode(m_document, version);
    for (Finding const& finding : m_encoded.m_findings) lines.push_back(formatFinding({}, finding));
    return lines;
  }
  std::size_t getObjectCount() const { return static_cast<unsigned char>(m_encoded.m_bytes.at(12)); }

  Document m_document;
  EncodedDocument m_encoded;
};

/// A text of one run. Copies of runs end at a zero character, so it is made in its place.
void setRun(qvAnnotationText& text, std::string_view content, std::uint8_t type = 0) {
  auto& run = text.m_lines.emplace_back().emplace_back();
  run.m_type = static_cast<qvAnnotationText::TextSegment::SegmentType>(type);
  run.setText(content.data(), content.size());
}

TEST_F(Encoder, WritesContainerMetadataAndViewsByteForByte) {
  qvAnnotationView& view = *m_document.m_views[0].m_view;
  view.m_name = "v";
  auto& text = add<qvAnnotationText>();
  text.m_name = "n";
  text.m_style = 0x21;
  setRun(text, "ab", 2);
  std::string const payload = Bytes()
                                  .text("v")
                                  .point(0, 0, 0)
                                  .point(0, 0, 1)
                                  .point(1, 0, 0)
                                  .u32(1)
                                  .u32(0)
                                  .text("n")
                                  .u32(0)
                                  .u32(0)
                                  .point(0, 0, 0)
                                  .raw("\xff\xff\xff\x21")
                                  .u32(0)
                                  .u32(0)
                                  .text("Arial")
                                  .u16(100)
                                  .u16(0)
                                  .u32(1)
                                  .u32(1)
                                  .u16(2)
                                  .raw("ab")
                                  .u8(2)
                                  .u8(0)
                                  .get();
  EXPECT_EQ(encodeAt(0x60016), Lines());
  EXPECT_EQ(m_encoded.m_bytes, beginDocument(0x60016, 2)
                                   .raw(makeObject(1, MetadataType, makeMetadata({2})))
                                   .raw(makeObject(2, ViewType, payload))
                                   .get());
  EXPECT_EQ(encode(m_document, 0x60016, true).m_bytes,
            beginDocument(0x60016, 1).raw(makeObject(2, ViewType, payload)).get());
}

TEST_F(Encoder, WritesTheOldTextInItsOwnOrder) {
  auto& text = add<qvAnnotationText>();
  text.m_style = 0x0B;
  text.m_name = "n";
  text.m_leaders.emplace_back(Wm4::Vector3<float>(1, 2, 3));
  setRun(text, "ab");
  auto const record = [](bool hasName, std::uint8_t last) {
    Bytes bytes;
    bytes.text("").point(0, 0, 0).point(0, 0, 1).point(1, 0, 0).u32(1);
    if (hasName) bytes.text("n");
    bytes.text("Arial").u32(100).u32(1).point(1, 2, 3).u32(1).u32(1).text("ab").u8(0);
    return bytes.point(0, 0, 0).raw("\xff\xff\xff").u8(last).get();
  };
  EXPECT_EQ(encode(m_document, 0x6000D, true).m_bytes,
            beginDocument(0x6000D, 1).raw(makeObject(2, ViewType, record(false, 1))).get());
  EXPECT_EQ(encode(m_document, 0x6000E, true).m_bytes,
            beginDocument(0x6000E, 1).raw(makeObject(2, ViewType, record(true, 0x0B))).get());
}

TEST_F(Encoder, RefusesVersionsThatItCannotWrite) {
  for (std::uint32_t const version : {0U, 0x6000CU, 0x6001CU, 0x70000U}) {
    EncodedDocument const encoded = encode(m_document, version);
    EXPECT_EQ(encoded.m_bytes, "");
    ASSERT_EQ(encoded.m_findings.size(), 1U);
    EXPECT_EQ(encoded.m_findings[0].m_code, FindingCode::StreamVersion);
    EXPECT_EQ(encoded.m_findings[0].m_severity, Severity::Error);
  }
}

TEST_F(Encoder, NamesWhatATextLosesAtTheOldestVersion) {
  auto& text = add<qvAnnotationText>();
  text.m_name = "n";
  text.m_style = 0x0B;
  text.m_leaders.resize(3);
  text.m_leaders[1].m_head = 2;
  text.m_measures.resize(2);
  text.m_metadata["k"] = 1;
  setRun(text, std::string_view("a\0b", 3), 2);
  text.editSubAnnots().emplace_back().m_annot = new qvAnnotationText;
  m_document.m_views[0].m_view->m_metadata["k"] = 1;
  std::string const has = ": stream version 6.13 has no ";
  std::string const at = " [encoding.loss, view/0/annot/0]";
  EXPECT_EQ(encodeAt(0x6000D),
            Lines({"warning: the metadata is lost" + has +
                       "view metadata, they came with 6.27 [encoding.loss, view/0]",
                   "warning: the name is lost" + has + "names of text annotations, they came with 6.14" + at,
                   "warning: the frame becomes a plain rectangle" + has +
                       "frame shapes and flags, they came with 6.14" + at,
                   "error: 1 sub-annotation left out, with everything below" + has +
                       "sub-annotations, they came with 6.22" + at,
                   "warning: the metadata is lost" + has + "annotation metadata, they came with 6.22" + at,
                   "warning: 1 leader head lost" + has + "leader heads, they came with 6.22" + at,
                   "error: 2 measure leaders left out" + has + "measure leaders, they came with 6.17" + at,
                   "warning: 1 run lowered or raised no more" + has +
                       "run types and 16-bit lengths, they came with 6.17" + at,
                   "error: 1 run cut at the first zero character" + has +
                       "run types and 16-bit lengths, they came with 6.17" + at}));
}

TEST_F(Encoder, NamesALostRasterOnceWithAllThatItHolds) {
  auto& raster = add<qvAnnotationRaster>();
  raster.m_measures.resize(1);
  raster.editSubAnnots().emplace_back().m_annot = new qvAnnotationText;
  EXPECT_EQ(encodeAt(0x6000E),
            Lines({"error: the raster is left out, with everything below: stream version "
                   "6.14 has no rasters, they came with 6.15 [encoding.loss, view/0/annot/0]"}));
  EXPECT_EQ(encodeAt(0x60016), Lines());
}

TEST_F(Encoder, SaysThatTheOrderOfAMixedListChanges) {
  add<qvAnnotationText>();
  add<qvAnnotationRaster>();
  EXPECT_EQ(encodeAt(0x60016), Lines());
  add<qvAnnotationText>().m_name = "last";
  Lines const lines = encodeAt(0x60016);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_TRUE(lines[0].starts_with("info: ")) << lines[0];
  EXPECT_EQ(m_encoded.m_findings[0].m_code, FindingCode::EncodingOrder);
  EXPECT_EQ(m_encoded.m_findings[0].m_address, "view/0");
  Document const back = read(m_encoded.m_bytes);
  EXPECT_EQ(back.m_views[0].m_view->m_annotations[1]->m_name, "last");
}

TEST_F(Encoder, NamesEntriesForWhichThereIsNoRecord) {
  auto& view = *m_document.m_views[0].m_view;
  view.m_annotations.push_back({});
  view.m_annotations.push_back(new qvAnnotationInterface(qvAnnotationInterface::Text));
  auto& text = add<qvAnnotationText>();
  text.editSubAnnots().emplace_back().m_anchor = 300;
  text.editSubAnnots().emplace_back().m_annot = new qvAnnotationInterface(qvAnnotationInterface::Unknown);
  EXPECT_EQ(
      encodeAt(0x60016),
      Lines({"warning: the empty entry is left out: an object stream has none among the annotations of a "
             "view [encoding.loss, view/0/annot/0]",
             "error: the annotation is left out, with everything below: it is neither a text nor a raster "
             "[encoding.loss, view/0/annot/1]",
             "warning: the anchor 300 does not fit into its byte; 0 is written "
             "[encoding.loss, view/0/annot/2/sub/0]",
             "error: the annotation is left out, with everything below: it is neither a text nor a raster "
             "[encoding.loss, view/0/annot/2/sub/1]"}));
  Document const back = read(m_encoded.m_bytes);
  EXPECT_EQ(describeFindings(back), Lines());
  ASSERT_EQ(back.m_views[0].m_view->m_annotations.size(), 1U);
  auto const& children = back.m_views[0].m_view->m_annotations[0]->getSubAnnots();
  ASSERT_EQ(children.size(), 2U);
  EXPECT_EQ(children.front().m_anchor, 0U);
  EXPECT_EQ(children.back().m_annot, nullptr);
}

TEST_F(Encoder, LeavesOutViewsThatWereNotReadAndSaysSo) {
  m_document.m_views.insert(m_document.m_views.begin(), LoadedView());
  EXPECT_EQ(encodeAt(0x60016),
            Lines({"error: the view was not read and is left out [encoding.loss, view/0]"}));
  EXPECT_EQ(getObjectCount(), 2U);
}

TEST_F(Encoder, WritesAViewThatIsListedTwiceOnce) {
  m_document.m_views.push_back(m_document.m_views[0]);
  addView();
  EXPECT_EQ(encodeAt(0x60016), Lines());
  EXPECT_EQ(getObjectCount(), 3U);
  EXPECT_NE(m_encoded.m_bytes.find(makeMetadata({2, 2, 3})), std::string::npos);
}

TEST_F(Encoder, CutsMetadataThatIsNestedTooDeep) {
  qv::qvVariant::qvVariantMapImpl& metadata = m_document.m_views[0].m_view->m_metadata;
  qv::qvVariant value;
  for (int i = 0; i < 63; ++i) {
    qv::qvVariant::qvVariantListImpl list;
    list.push_back(std::move(value));
    value = std::move(list);
  }
  metadata["k"] = value;
  EXPECT_EQ(encodeAt(0x6001B), Lines());
  Document const back = read(m_encoded.m_bytes);
  EXPECT_EQ(describeFindings(back), Lines());
  EXPECT_EQ(findDifference(*back.m_views[0].m_view, *m_document.m_views[0].m_view), "");

  metadata["k"].editList().push_back({});
  qv::qvVariant::qvVariantListImpl outer;
  outer.push_back(metadata["k"]);
  outer.push_back(1);
  metadata["k"] = outer;
  EXPECT_EQ(encodeAt(0x6001B),
            Lines({"warning: 1 map or list of the metadata written as null: an object stream "
                   "nests them 64 deep [encoding.loss, view/0]"}));
  EXPECT_EQ(describeFindings(read(m_encoded.m_bytes)), Lines());
}

TEST_F(Encoder, WritesAndReadsDeepTreesWithoutCallStack) {
  qvAnnotationInterface* annotation = &add<qvAnnotationText>();
  for (int level = 0; level < 1000; ++level) {
    auto* const child = new qvAnnotationText;
    annotation->editSubAnnots().emplace_back().m_annot = child;
    annotation = child;
  }
  annotation->m_name = "deepest";
  EXPECT_EQ(encodeAt(0x60016), Lines());
  qvTest::runOnStack(qvTest::OrdinaryStack, [this] {
    Document const back = read(m_encoded.m_bytes);
    ASSERT_EQ(describeFindings(back), Lines());
    qvAnnotationInterface const* deepest = back.m_views[0].m_view->m_annotations[0].get();
    while (deepest->getSubAnnotsCount() > 0) deepest = deepest->getSubAnnots().front().m_annot.get();
    EXPECT_EQ(deepest->m_name, "deepest");
  });
}

}  // namespace

}  // namespace qvStreamTest
