#include <algorithm>

#include "annotationLegacy/qvAnnotationText.h"
#include "qvToolkit/migration/migrationSession.h"
#include "tests/support/modelGenerator.h"
#include "tests/support/streamTest.h"

namespace qvStreamTest {

namespace {

using Lines = std::vector<std::string>;

class OpenStream : public StreamTest {
 protected:
  /// Names of the views in the order in which the document shows them.
  static Lines names(Document const& document) {
    Lines result;
    for (LoadedView const& view : document.m_views) result.push_back(view.m_name);
    return result;
  }

  std::string const m_a = makeObject(2, ViewType, makeEmptyView("a"));
  std::string const m_b = makeObject(3, ViewType, makeEmptyView("b"));
};

std::string join(std::uint32_t version, std::vector<std::string> const& objects) {
  Bytes bytes = beginDocument(version, static_cast<std::uint32_t>(objects.size()));
  for (std::string const& object : objects) bytes.raw(object);
  return bytes.get();
}

std::string join(std::vector<std::string> const& objects) {
  return join(0x60016, objects);
}

TEST_F(OpenStream, ShowsTheViewsInTheOrderOfTheMetadataObject) {
  Document const document = read(join({m_a, m_b, makeObject(1, MetadataType, makeMetadata({3, 2}))}));
  EXPECT_EQ(document.m_format, Format::ObjectStream);
  EXPECT_EQ(getFailure(document), ExitDone);
  EXPECT_EQ(names(document), Lines({"b", "a"}));
  EXPECT_EQ(describeFindings(document), Lines());
  EXPECT_EQ(document.m_views[0].m_version.GetPacked(), 0x60016U);
}

TEST_F(OpenStream, KnowsBothSpellingsOfTheMetadataType) {
  for (char const* const type : {"qvCore.qvAnnotationMetadata", "qvCore.qvAnnotationMetaData"}) {
    Document const document = read(join({makeObject(1, type, makeMetadata({3, 2})), m_a, m_b}));
    EXPECT_EQ(names(document), Lines({"b", "a"})) << type;
    EXPECT_EQ(describeFindings(document), Lines()) << type;
  }
}

TEST_F(OpenStream, TakesAFileOfViewsOnly) {
  Document const document = read(join({m_b, m_a}));
  EXPECT_EQ(names(document), Lines({"b", "a"}));
  EXPECT_EQ(describeFindings(document), Lines());
}

TEST_F(OpenStream, ShowsEachViewOnceHoweverOftenItIsLinked) {
  std::vector<std::uint32_t> const links(100000, 2);
  Document const document = read(join({makeObject(1, MetadataType, makeMetadata(links)), m_a}));
  EXPECT_EQ(names(document), Lines({"a"}));
  EXPECT_EQ(
      describeFindings(document),
      Lines({"f: info: object 1 (qvCore.qvAnnotationMetadata), byte 75: found 99999 links to views that "
             "are listed before; each is shown once [stream.link]"}));
  EXPECT_EQ(MigrationSession({}).migrate(document).size(), 1U);
}

TEST_F(OpenStream, PutsTheViewsOfSeveralMetadataObjectsInARow) {
  Document const document = read(join({makeObject(1, MetadataType, makeMetadata({3})), m_a, m_b,
                                       makeObject(4, MetadataType, makeMetadata({3, 2}))}));
  EXPECT_EQ(names(document), Lines({"b", "a"}));
  ASSERT_EQ(document.m_findings.size(), 1U);
  EXPECT_EQ(document.m_findings[0].m_severity, Severity::Info);
}

TEST_F(OpenStream, AddsViewsThatNobodyLists) {
  Document const document = read(join({m_a, makeObject(1, MetadataType, makeMetadata({3})), m_b}));
  EXPECT_EQ(names(document), Lines({"b", "a"}));
  EXPECT_EQ(
      describeFindings(document),
      Lines({"f: info: object 2 (qvCore.qvAnnotationView), byte 55: no metadata object lists this view; "
             "it follows those that are listed [stream.unlisted-view, view/1]"}));
}

TEST_F(OpenStream, TellsOfLinksThatLeadToNoView) {
  std::string const skipped = makeObject(9, "qvCore.qvMesh", "1234");
  Document const document =
      read(join({makeObject(1, MetadataType, makeMetadata({0, 1, 7, 9, 2, 0})), m_a, skipped}));
  EXPECT_EQ(names(document), Lines({"a"}));
  std::string const of = "object 1 (qvCore.qvAnnotationMetadata), byte ";
  EXPECT_EQ(describeFindings(document),
            Lines({"f: warning: " + of + "71: expected 2 links to views, found none [stream.link]",
                   "f: warning: object 9 (qvCore.qvMesh), byte 183: unknown type; object of 4 bytes skipped "
                   "[stream.unknown-type]",
                   "f: error: " + of +
                       "75: expected a link to an object of another type, found object 1 of type "
                       "'qvCore.qvAnnotationMetadata' [stream.link]",
                   "f: error: " + of + "79: expected a link to an object, found id 7 of none [stream.link]",
                   "f: error: " + of +
                       "83: expected a link to an object, found id 9 of a skipped one of type "
                       "'qvCore.qvMesh' [stream.link]"}));
}

TEST_F(OpenStream, TellsOfIdsThatAreTakenOrNone) {
  Document const document = read(
      join({m_a, makeObject(2, ViewType, makeEmptyView("c")), makeObject(0, ViewType, makeEmptyView("d"))}));
  EXPECT_EQ(names(document), Lines({"a", "d"}));
  EXPECT_EQ(
      describeFindings(document),
      Lines({"f: error: object 2 (qvCore.qvAnnotationView), byte 104: expected a new object id, found one "
             "that is taken; the first object keeps it [stream.object-id]",
             "f: error: object 0 (qvCore.qvAnnotationView), byte 192: expected an object id, found 0, "
             "which no link can name [stream.object-id]"}));
}

TEST_F(OpenStream, TellsOfPayloadThatIsLeftOverAndOfBytesBehindTheLastObject) {
  std::string const content = join({makeObject(2, ViewType, makeEmptyView("a") + "xyz")}) + "??";
  Document const document = read(content);
  EXPECT_EQ(names(document), Lines({"a"}));
  EXPECT_EQ(
      describeFindings(document),
      Lines({"f: warning: object 2 (qvCore.qvAnnotationView), byte 104: expected the end of the payload, "
             "found 3 bytes more [stream.under-read, view/0]",
             "f: warning: byte 107: expected the end of the document, found 2 bytes more "
             "[stream.trailing-bytes]"}));
}

/// A view that announces two texts, with less than the first of them.
std::string makeCutView() {
  return Bytes().text("cut").point(1, 2, 3).point(0, 0, 1).point(1, 0, 0).u32(2).u32(0).text("note").get();
}

TEST_F(OpenStream, ShowsAViewAsFarAsItCouldBeRead) {
  Document const document = read(
      join({makeObject(1, MetadataType, makeMetadata({2, 3})), makeObject(2, ViewType, makeCutView()), m_b}));
  EXPECT_EQ(names(document), Lines({"cut", "b"}));
  auto const& view = document.m_views[0].m_view;
  ASSERT_NE(view, nullptr);
  EXPECT_EQ(view->m_planeOrigin.Y(), 2);
  ASSERT_EQ(view->m_annotations.size(), 2U);
  EXPECT_EQ(view->m_annotations[0]->m_name, "note");
  EXPECT_EQ(describeFindings(document),
            Lines({"f: error: object 2 (qvCore.qvAnnotationView), byte 177: expected 4 bytes, found 0 bytes "
                   "before the end of the payload [stream.over-read, view/0]"}));
}

TEST_F(OpenStream, TellsWhereAChildIsOfAnUnknownKind) {
  std::string const text = Bytes()
                               .text("")
                               .u32(0)
                               .u32(0)
                               .point(0, 0, 0)
                               .raw("\xff\xff\xff")
                               .u8(1)
                               .u32(1)
                               .u8(1)
                               .u8(7)
                               .text("Arial")
                               .u32(100)
                               .u32(0)
                               .get();
  std::string const view =
      Bytes().text("v").point(0, 0, 0).point(0, 0, 1).point(1, 0, 0).u32(1).u32(0).raw(text).get();
  Document const document = read(join({makeObject(2, ViewType, view)}));
  EXPECT_EQ(describeFindings(document),
            Lines({"f: error: object 2 (qvCore.qvAnnotationView), byte 138: expected a version and record "
                   "kinds that the type's reader knows [stream.refused, view/0]"}));
  EXPECT_EQ(document.m_views[0].m_view->m_annotations.size(), 1U);
}

TEST_F(OpenStream, ShowsAViewOfATooOldVersionAsNotRead) {
  Document const document = read(join(0x6000C, {makeObject(1, MetadataType, makeMetadata({2})), m_a}));
  ASSERT_EQ(document.m_views.size(), 1U);
  EXPECT_EQ(document.m_views[0].m_view, nullptr);
  EXPECT_EQ(document.m_views[0].m_version.toString(), "6.12");
  ASSERT_EQ(document.m_findings.size(), 1U);
  EXPECT_EQ(document.m_findings[0].m_code, FindingCode::StreamRefused);
  EXPECT_EQ(document.m_findings[0].m_address, "view/0");
}

TEST_F(OpenStream, WarnsOfVersionsBeyondTheKnownOnes) {
  std::string const view =
      makeObject(2, ViewType, Bytes().raw(makeEmptyView("a")).u32(0).get());  // with its metadata
  EXPECT_EQ(describeFindings(read(join(0x6001C, {view}))), Lines());
  EXPECT_EQ(describeFindings(read(join(0x6FFFF, {view}))), Lines());
  EXPECT_EQ(describeFindings(read(join(0x70000, {view}))),
            Lines({"f: warning: byte 8: the stream version 7.0 is newer than every known one; it is read as "
                   "6.27 [stream.version]"}));
  Document const document = read(join(0xFFFFFFFF, {view}));
  EXPECT_EQ(document.m_findings.size(), 1U);
  EXPECT_EQ(names(document), Lines({"a"}));
}

TEST_F(OpenStream, SaysThatADocumentWithoutViewsHoldsNone) {
  for (std::string const& content : {join({}), join({makeObject(1, MetadataType, makeMetadata({}))})}) {
    Document const document = read(content);
    EXPECT_EQ(getFailure(document), ExitDone);
    EXPECT_EQ(describeFindings(document),
              Lines({"f: warning: the document holds no view [document.no-views]"}));
  }
}

TEST_F(OpenStream, CallsADocumentBrokenThatEndsBeforeItsFirstView) {
  std::string const longName = beginDocument(0x60016, 1).u32(1).u32(257).get();
  std::string const giant = beginDocument(0x60016, 0xFFFFFFFF).get();
  for (std::string const& content : {std::string("qvStream"), longName, giant}) {
    Document const document = read(content);
    EXPECT_EQ(getFailure(document), ExitInputBroken);
    ASSERT_EQ(document.m_findings.size(), 1U);
    EXPECT_EQ(document.m_findings[0].m_code, FindingCode::StreamBroken);
    EXPECT_EQ(document.m_findings[0].m_severity, Severity::Error);
    EXPECT_TRUE(document.m_findings[0].m_place.m_byteOffset.has_value());
  }
}

TEST_F(OpenStream, IsToldByContentAndNotByTheName) {
  Document const document = readDocument(join({m_a}), "drawing.json");
  EXPECT_EQ(document.m_format, Format::ObjectStream);
  EXPECT_EQ(readDocument("{\"views\":[]}", "drawing.qvs").m_format, Format::Json);
}

TEST_F(OpenStream, ReadsEveryPrefixOfADocumentWithAnErrorThatNamesItsPlace) {
  std::string const whole = encode(generateDocument(7), 0x6001B).m_bytes;
  for (std::size_t length = 8; length < whole.size(); ++length) {
    Document const document = read(whole.substr(0, length));
    auto const isError = [](Finding const& finding) { return finding.m_severity == Severity::Error; };
    auto const error = std::find_if(document.m_findings.begin(), document.m_findings.end(), isError);
    ASSERT_NE(error, document.m_findings.end()) << length;
    ASSERT_TRUE(error->m_place.m_byteOffset.has_value()) << length;
    ASSERT_LE(*error->m_place.m_byteOffset, length);
  }
}

}  // namespace

}  // namespace qvStreamTest
