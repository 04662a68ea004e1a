#include "qvToolkit/reports/inspection.h"

#include <string>

#include "annotationLegacy/qvAnnotationText.h"
#include "json/jsonReader.h"
#include "model/variantLookup.h"
#include "tests/support/openTest.h"
#include "text/sha256.h"

namespace {

using namespace qvToolkit;

class InspectionTest : public OpenTest {
 protected:
  static qv::qvVariant parse(std::string text) {
    JsonReading reading = readJson(text, 1000);
    EXPECT_FALSE(reading.m_isBroken) << text;
    EXPECT_TRUE(reading.m_findings.empty());
    return std::move(reading.m_value);
  }

  std::string const m_content = makeView("6.22", R"("name":"front","origin":[1,2.5,3],"annotations":[
      {"type":"text","name":"a","color":"ff8000","position":[1,-2,0.5],"text":"one\ntwo","frameshape":"circle",
       "isframelocked":true,"leaders":[{"pos":[1,2,3]},{"pos":[4,5,6]}],"metadata":{"k":1},
       "children":[{"type":"raster","name":"r","rastername":"img.png","anchorloc":"tl"},
                   {"type":"text","anchorloc":"rc","lines":[[{"text":"b","bold":true},{"text":"cd"}]],
                    "children":[{"type":"text","text":"deep"}]}]},
      {"type":"raster","name":"s","measures":[{"A":[0,0,0],"B":[1,0,0],"V":[0,1,0]}]}])");
};

TEST_F(InspectionTest, GivesEachAnnotationItsAddress) {
  Inspection const inspection = inspectDocument(read("[" + m_content + "," + m_content + "]"));
  ASSERT_EQ(inspection.m_views.size(), 2U);
  std::vector<std::string> addresses;
  for (InspectedAnnotation const& annotation : inspection.m_views[1].m_annotations) {
    addresses.push_back(annotation.m_address);
  }
  EXPECT_EQ(addresses,
            (std::vector<std::string>{"view/1/annot/0", "view/1/annot/0/sub/0", "view/1/annot/0/sub/1",
                                      "view/1/annot/0/sub/1/sub/0", "view/1/annot/1"}));
}

TEST_F(InspectionTest, CountsWhatAViewHolds) {
  Inspection const inspection = inspectDocument(read(m_content));
  LegacyCounts const& counts = inspection.m_views.at(0).m_counts;
  EXPECT_EQ(counts.m_annotations, 2U);
  EXPECT_EQ(counts.m_children, 3U);
  EXPECT_EQ(counts.m_depth, 2U);
  EXPECT_EQ(counts.m_leaders, 2U);
  EXPECT_EQ(counts.m_lines, 4U);
  EXPECT_EQ(counts.m_measures, 1U);
  EXPECT_EQ(counts.m_ownProperties, 1U);
  EXPECT_EQ(counts.m_raster, 1U);
  EXPECT_EQ(counts.m_segments, 5U);
  EXPECT_EQ(counts.m_text, 1U);
  EXPECT_EQ(counts.m_textBytes, 13U);
}

TEST_F(InspectionTest, ShowsTheFieldsOfAnAnnotation) {
  Inspection const inspection = inspectDocument(read(m_content));
  std::vector<InspectedAnnotation> const& annotations = inspection.m_views.at(0).m_annotations;
  InspectedAnnotation const& text = annotations.at(0);
  EXPECT_EQ(text.m_type, 1);
  EXPECT_EQ(text.m_name, "a");
  EXPECT_EQ(text.m_text, "one\ntwo");
  EXPECT_EQ(text.m_style, 0x8B);
  EXPECT_EQ(text.m_color, (Wm4::Vector3<unsigned char>(255, 128, 0)));
  EXPECT_EQ(text.m_position, (Wm4::Vector3<float>(1.0F, -2.0F, 0.5F)));
  EXPECT_EQ(text.m_anchor, std::nullopt);
  EXPECT_EQ(text.m_metadata, 1U);
  EXPECT_EQ(text.m_counts.m_children, 2U);
  EXPECT_EQ(annotations.at(1).m_text, "img.png");
  EXPECT_EQ(annotations.at(1).m_anchor, 4U);
  EXPECT_EQ(annotations.at(3).m_anchor, 0U);
  EXPECT_EQ(annotations.at(3).m_depth, 2U);
}

TEST_F(InspectionTest, PrintsAnAlignedTable) {
  EXPECT_EQ(formatInspection(inspectDocument(read(m_content))),
            "test.json: 1 view\n"
            "  view/0 'front', version 6.22\n"
            "    plane: origin (1, 2.5, 3), normal (0, 0, 1), X axis (1, 0, 0)\n"
            "    2 annotations (1 text, 1 raster), 3 sub-annotations on 2 levels, 2 leaders, 1 measure "
            "leader, 4 lines of "
            "5 runs, 13 bytes of text\n"
            "    ADDRESS                     KIND    ANCHOR  FRAME                COLOUR   POSITION      "
            "LEADERS  MEASURES "
            " SUBS  NAME  TEXT\n"
            "    view/0/annot/0              text    -       circle frame-locked  #FF8000  (1, -2, 0.5)  2   "
            "     0        "
            " 2     a     one\u21B5two\n"
            "    view/0/annot/0/sub/0        raster  tl      rectangle            #FFFFFF  (0, 0, 0)     0   "
            "     0        "
            " 0     r     img.png\n"
            "    view/0/annot/0/sub/1        text    rc      rectangle            #FFFFFF  (0, 0, 0)     0   "
            "     0        "
            " 1           bcd\n"
            "    view/0/annot/0/sub/1/sub/0  text    none    rectangle            #FFFFFF  (0, 0, 0)     0   "
            "     0        "
            " 0           deep\n"
            "    view/0/annot/1              raster  -       rectangle            #FFFFFF  (0, 0, 0)     0   "
            "     1        "
            " 0     s\n");
}

TEST_F(InspectionTest, PrintsMessagesAndNothingThatATerminalObeys) {
  Document const document = readDocument(
      makeView(
          "6.22",
          R"("name":"\u001b[2J","axis":1,"annotations":[{"type":"text","name":"\u202e","text":"\u0007"}])"),
      "a\nb");
  std::string const text = formatInspection(inspectDocument(document));
  EXPECT_NE(text.find("a\\x0ab: 1 view\n"), std::string::npos);
  EXPECT_NE(text.find("'\\x1b[2J'"), std::string::npos);
  EXPECT_NE(text.find("    message: invalid 'axis' field\n"), std::string::npos);
  EXPECT_NE(text.find("\\u202e  \\x07\n"), std::string::npos);
  for (char const c : text) EXPECT_TRUE(c == '\n' || (c >= ' ' && c != 0x7F)) << text;
}

TEST_F(InspectionTest, PrintsTheBeginningOfALongText) {
  std::string const content =
      makeView("6.22", R"("annotations":[{"type":"text","text":")" + std::string(61, 'x') + R"("}])");
  std::string const text = formatInspection(inspectDocument(read(content)));
  EXPECT_NE(text.find(" " + std::string(60, 'x') + "...\n"), std::string::npos);
}

TEST_F(InspectionTest, SaysThatADocumentOrAViewWasNotRead) {
  EXPECT_EQ(formatInspection(inspectDocument(read("x"))), "test.json: not read\n");
  EXPECT_EQ(formatInspection(inspectDocument(read(R"({"ver":"6.1","name":"v"})"))),
            "test.json: 1 view\n  view/0 'v', version 6.1, not read\n    message: invalid version 6.1\n");
}

TEST_F(InspectionTest, WritesTheSameAsJson) {
  qv::qvVariant const value = parse(formatInspectionsJson({inspectDocument(read(m_content))}));
  VariantMap const& file = findList(value.toMap(), "files")->at(0).toMap();
  VariantMap const& source = findValue(file, "source")->toMap();
  EXPECT_EQ(findText(source, "path"), "test.json");
  EXPECT_EQ(findText(source, "size"), std::to_string(m_content.size()));
  EXPECT_EQ(findText(source, "sha256"), hashSha256(m_content));
  EXPECT_EQ(findText(source, "encoding"), "json");
  EXPECT_TRUE(findValue(file, "readable")->toBool());
  EXPECT_TRUE(findList(file, "findings")->empty());
  VariantMap const& view = findList(file, "views")->at(0).toMap();
  EXPECT_EQ(findText(view, "name"), "front");
  EXPECT_EQ(findText(view, "version"), "6.22");
  EXPECT_EQ(findValue(view, "versionNumber")->toInteger(), 0x60016);
  EXPECT_EQ(findValue(findValue(view, "counts")->toMap(), "ownProperties")->toInteger(), 1);
  VariantList const& annotations = *findList(view, "annotations");
  ASSERT_EQ(annotations.size(), 5U);
  VariantMap const& raster = annotations[1].toMap();
  EXPECT_EQ(findText(raster, "address"), "view/0/annot/0/sub/0");
  EXPECT_EQ(findText(raster, "kind"), "raster");
  EXPECT_EQ(findText(raster, "text"), "img.png");
  EXPECT_EQ(findText(raster, "anchor"), "tl");
  EXPECT_EQ(findValue(raster, "anchorNumber")->toInteger(), 4);
  EXPECT_TRUE(findValue(annotations[0].toMap(), "anchor")->isNull());
  EXPECT_EQ(findText(annotations[0].toMap(), "frameShape"), "circle");
  EXPECT_EQ(findText(annotations[0].toMap(), "color"), "#FF8000");
}

TEST_F(InspectionTest, SaysNothingOfTheContentOfAViewThatWasNotRead) {
  Document const document = read(R"({"ver":"6.16","name":"old"})");
  qv::qvVariant const value = parse(formatInspectionsJson({inspectDocument(document)}));
  VariantMap const& file = findList(value.toMap(), "files")->at(0).toMap();
  VariantMap const& view = findList(file, "views")->at(0).toMap();
  EXPECT_FALSE(findValue(view, "readable")->toBool());
  for (char const* const key : {"plane", "metadataEntries", "counts", "annotations"}) {
    EXPECT_TRUE(findValue(view, key)->isNull()) << key;
  }
}

TEST_F(InspectionTest, WritesFindingsWithTheirPlace) {
  qv::qvVariant const value = parse(formatInspectionsJson({inspectDocument(read("[1e999]"))}));
  VariantMap const& file = findList(value.toMap(), "files")->at(0).toMap();
  EXPECT_FALSE(findValue(file, "readable")->toBool());
  VariantMap const& finding = findList(file, "findings")->at(0).toMap();
  EXPECT_EQ(findText(finding, "code"), "json.broken");
  EXPECT_EQ(findText(finding, "severity"), "error");
  EXPECT_EQ(findText(finding, "line"), "1");
  EXPECT_EQ(findText(finding, "column"), "2");
  EXPECT_EQ(findText(finding, "byteOffset"), "1");
  for (char const* const key : {"address", "jsonPointer", "option", "textHex"}) {
    EXPECT_TRUE(findValue(finding, key)->isNull()) << key;
  }
}

TEST_F(InspectionTest, HasTheBytesOfInvalidTextBesideIt) {
  Document const document = read(m_content);
  document.m_views.at(0).m_view->m_annotations.at(0)->m_name = "a\xFF";
  qv::qvVariant const value = parse(formatInspectionsJson({inspectDocument(document)}));
  VariantMap const& view = findList(findList(value.toMap(), "files")->at(0).toMap(), "views")->at(0).toMap();
  VariantMap const& annotation = findList(view, "annotations")->at(0).toMap();
  EXPECT_EQ(findText(annotation, "name"), "a\uFFFD");
  EXPECT_EQ(findText(annotation, "nameHex"), "61ff");
  EXPECT_TRUE(findValue(annotation, "textHex")->isNull());
}

TEST_F(InspectionTest, CountsEmptyEntriesInTheAddresses) {
  Document const document = read(m_content);
  qvLegacy::qvAnnotationView& view = *document.m_views.at(0).m_view;
  view.m_annotations.insert(view.m_annotations.begin(), nullptr);
  view.m_annotations.at(1)->editSubAnnots().emplace_front();
  Inspection const inspection = inspectDocument(document);
  std::vector<InspectedAnnotation> const& annotations = inspection.m_views.at(0).m_annotations;
  ASSERT_EQ(annotations.size(), 7U);
  EXPECT_EQ(annotations[0].m_type, 0);
  EXPECT_EQ(annotations[2].m_address, "view/0/annot/1/sub/0");
  EXPECT_EQ(annotations[2].m_anchor, 1U);
  EXPECT_EQ(annotations[3].m_text, "img.png");
}

}  // namespace
