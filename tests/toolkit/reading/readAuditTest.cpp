#include "reading/readAudit.h"

#include <string>

#include "annotationLegacy/qvAnnotationText.h"
#include "tests/support/openTest.h"

namespace {

using namespace qvToolkit;

using ReadAuditTest = OpenTest;

/// The findings of one code as "SEVERITY ADDRESS POINTER: TEXT".
std::vector<std::string> list(Document const& document, FindingCode code) {
  std::vector<std::string> lines;
  for (Finding const& finding : select(document.m_findings, code)) {
    lines.push_back(std::string(getSeverityText(finding.m_severity)) + " " + finding.m_address + " " +
                    finding.m_place.m_jsonPointer + ": " + finding.m_text);
  }
  return lines;
}

using Lines = std::vector<std::string>;

TEST_F(ReadAuditTest, FindsNothingInAViewThatWasReadWhole) {
  for (char const* const version : {"6.22", "6.26", "6.27"}) {
    Document const document = read(makeView(
        version, std::string(R"("annotations":[{"type":"text","name":"n","lines":[[{"text":"a","bold":true}]],
                 "leaders":[{"pos":[1,2,3],"head":"arrow"}],"measures":[{"A":[0,0,0],"B":[1,0,0],"V":[0,1,0]}],
                 "metadata":{"k":1},"childs":[{"type":"raster","anchorloc":"tl","rastername":"r"}]}])") +
                     (version == std::string("6.27") ? R"(,"metadata":{})" : "")));
    EXPECT_TRUE(document.m_findings.empty()) << formatFinding(version, document.m_findings.front());
  }
}

TEST_F(ReadAuditTest, ReportsEachLostRecordWithItsReason) {
  Document const document = read(makeView(
      "6.22", R"("annotations":[7,{"type":"note","name":"n"},{"type":"text","position":[1],"name":"p"},
              {"type":"raster","sizeem":[1]},{"type":"text","name":"c","children":[{"type":"text"},5]},
              {"type":"text","children":[{"type":"text","children":[{}]},{"type":"x"}]}])"));
  EXPECT_EQ(list(document, FindingCode::RecordLost),
            (Lines{
                "error view/0 /annotations/0: the annotation without name was not read: it is no map",
                "error view/0 /annotations/1: the annotation 'n' was not read: its type is neither 'text' "
                "nor 'raster'",
                "error view/0 /annotations/2: the annotation 'p' was not read: its 'position' is no list of "
                "three numbers",
                "error view/0 /annotations/3: the annotation without name was not read: its 'sizeem' is no "
                "list of two "
                "numbers",
                "error view/0 /annotations/4: the annotation 'c' was not read: one of its sub-annotations is "
                "no map; 2 "
                "sub-annotation records went with it",
                "error view/0/annot/0/sub/0 /annotations/5/children/0/children/0: the annotation without "
                "name was not "
                "read: its type is neither 'text' nor 'raster'",
                "error view/0/annot/0 /annotations/5/children/1: the annotation without name was not read: "
                "its type is "
                "neither 'text' nor 'raster'",
            }));
}

TEST_F(ReadAuditTest, PairsTheRecordsOfTwoListsWithTheirAnnotations) {
  Document const document = read(makeView(
      "6.21",
      R"("textannotations":[5,{"leaders":[[1,2,3],4,5]}],"rasterannotations":[{"sizeem":1},{"leaders":[1]}])"));
  EXPECT_EQ(
      list(document, FindingCode::RecordLost),
      (Lines{
          "error view/0 /textannotations/0: the annotation without name was not read: it is no map",
          "error view/0/annot/0 /textannotations/1/leaders/1: 2 of 3 leaders were not read, since this one "
          "cannot be",
          "error view/0 /rasterannotations/0: the annotation without name was not read: its 'sizeem' is no "
          "list of two numbers",
          "error view/0/annot/1 /rasterannotations/1/leaders/0: 1 of 1 leaders were not read, since this one "
          "cannot be"}));
}

TEST_F(ReadAuditTest, CountsWhatWentWithARefusedView) {
  Document const document = read(makeView("6.21", R"("name":"v","textannotations":[{},{"children":[{}]}])"));
  EXPECT_EQ(list(document, FindingCode::RecordLost),
            (Lines{"error view/0 : the view 'v' was not read; 3 annotation records went with it"}));
}

TEST_F(ReadAuditTest, ReportsAnnotationsInTheListsOfTheOtherForm) {
  Document const older = read(
      makeView("6.21", R"("textannotations":[],"rasterannotations":[],"annotations":[{"children":[{}]}])"));
  EXPECT_EQ(
      list(older, FindingCode::KeyIgnored),
      (Lines{"error view/0 /annotations: the key 'annotations' of views is not read here at version 6.21; 2 "
             "annotation records went with it"}));
  Document const newer =
      read(makeView("6.22", R"("annotations":[],"textannotations":[],"rasterannotations":[{}])"));
  EXPECT_EQ(
      list(newer, FindingCode::KeyIgnored),
      (Lines{
          "error view/0 /rasterannotations: the key 'rasterannotations' of views is not read here at version "
          "6.22; 1 annotation record went with it",
          "info view/0 /textannotations: the key 'textannotations' of views is not read here at version "
          "6.22"}));
}

TEST_F(ReadAuditTest, ReportsMetadataThatIsTooOldToBeRead) {
  Document const view = read(makeView("6.26", R"("annotations":[],"metadata":{"k":1})"));
  EXPECT_EQ(
      list(view, FindingCode::KeyIgnored),
      (Lines{"warning view/0 /metadata: the key 'metadata' of views is not read here at version 6.26"}));
  Document const empty = read(makeView("6.26", R"("annotations":[],"metadata":{})"));
  EXPECT_EQ(list(empty, FindingCode::KeyIgnored),
            (Lines{"info view/0 /metadata: the key 'metadata' of views is not read here at version 6.26"}));
  Document const annotation = read(makeView(
      "6.21", R"("textannotations":[{"metadata":{"k":1}},{"metadata":{"k":1}}],"rasterannotations":[])"));
  EXPECT_EQ(list(annotation, FindingCode::KeyIgnored),
            (Lines{"warning view/0 /textannotations/0/metadata: the key 'metadata' of text annotations is "
                   "not read here "
                   "at version 6.21 (2 times, first here)"}));
}

TEST_F(ReadAuditTest, ReportsChildrenThatTheReaderNeverLooksAt) {
  Document const older = read(makeView(
      "6.21", R"("textannotations":[{"children":[{"childs":[{}]}]}],"rasterannotations":[{"childs":[{}]}])"));
  EXPECT_EQ(list(older, FindingCode::KeyIgnored), (Lines{"error view/0 /textannotations/0/children: the key "
                                                         "'children' of text annotations is not read here at "
                                                         "version 6.21; 2 annotation records went with it",
                                                         "error view/0 /rasterannotations/0/childs: the key "
                                                         "'childs' of raster annotations is not read here at "
                                                         "version 6.21; 1 annotation record went with it"}));
  Document const both =
      read(makeView("6.22", R"("annotations":[{"type":"text","children":"x","childs":[{"type":"text"}]}])"));
  EXPECT_EQ(list(both, FindingCode::KeyIgnored),
            (Lines{"error view/0 /annotations/0/childs: the key 'childs' of text annotations is not read "
                   "beside 'children'; 1 annotation record went with it"}));
  EXPECT_EQ(list(both, FindingCode::RecordLost),
            (Lines{"error view/0/annot/0 /annotations/0/children: 'children' is no list, so no "
                   "sub-annotation was read"}));
}

TEST_F(ReadAuditTest, GathersUnknownKeysByKindOfRecord) {
  Document const document = read(makeView(
      "6.22", R"("z":1,"annotations":[{"type":"text","colour":1,"rastername":2,"defaulttextprop":{"size":1},
              "lines":[[{"text":"a","colour":1}]],"leaders":[{"pos":[1,2,3],"tip":1}]},{"type":"text","colour":1},
              {"type":"raster","text":1}])"));
  EXPECT_EQ(
      list(document, FindingCode::KeyIgnored),
      (Lines{"info view/0 /z: the key 'z' of views is not read",
             "info view/0 /annotations/0/colour: the key 'colour' of text annotations is not read (2 times, "
             "first "
             "here)",
             "info view/0 /annotations/0/rastername: the key 'rastername' of text annotations is not read",
             "info view/0 /annotations/2/text: the key 'text' of raster annotations is not read",
             "info view/0 /annotations/0/defaulttextprop/size: the key 'size' of text properties is not read",
             "info view/0 /annotations/0/lines/0/0/colour: the key 'colour' of text runs is not read",
             "info view/0 /annotations/0/leaders/0/tip: the key 'tip' of leaders is not read"}));
}

TEST_F(ReadAuditTest, ReportsWhatChangesWithoutAMessageOfTheReaders) {
  Document const document = read(makeView(
      "6.22",
      R"("annotations":[{"type":"text","lines":5,"text":"t","leaders":[{"pos":[1,2]}],"metadata":3}])"));
  EXPECT_EQ(
      list(document, FindingCode::RecordLost),
      (Lines{
          "error view/0/annot/0 /annotations/0/lines: 'lines' is no list; the text was taken from 'text'"}));
  EXPECT_EQ(
      list(document, FindingCode::ValueInexact),
      (Lines{"error view/0/annot/0 /annotations/0/leaders/0/pos: 'pos' of leaders is [1, 2], expected a "
             "list of 3 numbers; (0, 0, 0) was taken",
             "warning view/0/annot/0 /annotations/0/metadata: 'metadata' of text annotations is 3, "
             "expected a map; an empty one was taken"}));
}

TEST_F(ReadAuditTest, TellsALeaderWithoutEndFromOneWhoseEndIsLost) {
  Document const document =
      read(makeView("6.22", R"("annotations":[{"type":"text","leaders":[{},{"pos":null},{"pos":5}]}])"));
  EXPECT_EQ(list(document, FindingCode::RecordLost),
            (Lines{"warning view/0/annot/0 /annotations/0/leaders/0: the leader has no 'pos'; it runs to the "
                   "origin",
                   "warning view/0/annot/0 /annotations/0/leaders/1: the leader has no 'pos'; it runs to the "
                   "origin"}));
  EXPECT_EQ(
      list(document, FindingCode::ValueInexact),
      (Lines{"error view/0/annot/0 /annotations/0/leaders/2/pos: 'pos' of leaders is 5, expected a list "
             "of 3 numbers; (0, 0, 0) was taken"}));
}

TEST_F(ReadAuditTest, ReportsColorsThatAreNotSixHexadecimalDigits) {
  Document const document = read(
      makeView("6.22", R"("annotations":[{"type":"text","color":"12GGGG"},{"type":"text","color":"00GGGG"},
              {"type":"text","color":"00ff0a"},{"type":"text","color":"000000"},{"type":"text","color":123456},
              {"type":"text","color":"F"}])"));
  std::string const expected = ", expected six hexadecimal digits; ";
  EXPECT_EQ(list(document, FindingCode::ValueInexact),
            (Lines{"warning view/0/annot/0 /annotations/0/color: 'color' of text annotations is '12GGGG'" +
                       expected + "#000012 was taken",
                   "warning view/0/annot/1 /annotations/1/color: 'color' of text annotations is '00GGGG'" +
                       expected + "#FFFFFF was taken",
                   "warning view/0/annot/5 /annotations/5/color: 'color' of text annotations is 'F'" +
                       expected + "#FFFFFF was taken"}));
  EXPECT_EQ(select(document.m_findings, FindingCode::ReaderMessage).size(), 2U) << "the reader tells of two";
}

TEST_F(ReadAuditTest, SaysWhereARecordHadAPartOfAnotherKind) {
  Document const document = read(makeView(
      "6.22",
      R"("annotations":[{"type":"text"},{"type":"text","defaulttextprop":[],"lines":[[{"text":"a"},7],"b",[7,{}]],
              "leaders":{},"measures":1}])"));
  EXPECT_EQ(
      list(document, FindingCode::RecordLost),
      (Lines{
          "error view/0/annot/1 /annotations/1/leaders: 'leaders' is no list, so none of them was read",
          "error view/0/annot/1 /annotations/1/lines/1: 1 line not read, since no list",
          "error view/0/annot/1 /annotations/1/lines/0/1: 2 runs not read, since no map (first here)",
          "error view/0/annot/1 /annotations/1/measures: 'measures' is no list, so none of them was read"}));
  EXPECT_EQ(list(document, FindingCode::ValueInexact),
            (Lines{"warning view/0/annot/1 /annotations/1/defaulttextprop: 'defaulttextprop' of text "
                   "annotations is [], expected a map; Arial of 1 em was taken"}));
}

TEST_F(ReadAuditTest, ReportsTextHeightsThatWereCut) {
  Document const document = read(makeView(
      "6.22",
      R"("annotations":[{"type":"text","defaulttextprop":{"heightem":700},"lines":[[{"text":"a","heightem":1e300},
              {"text":"b","heightem":655.35},{"text":"c","heightem":3},{"text":"d","heightem":-1}]]}])"));
  EXPECT_EQ(
      list(document, FindingCode::ValueInexact),
      (Lines{
          "warning view/0/annot/0 /annotations/0/defaulttextprop/heightem: 'heightem' of text properties is "
          "700, expected a number of ems from 0 to 655.34; 655.34 was taken",
          "warning view/0/annot/0 /annotations/0/lines/0/0/heightem: 'heightem' of text runs is 1e+300, "
          "expected a number of ems from 0 to 655.34; 655.34 was taken",
          "warning view/0/annot/0 /annotations/0/lines/0/3/heightem: 'heightem' of text runs is -1, "
          "expected a number of ems from 0 to 655.34; 0 was taken"}));
}

TEST_F(ReadAuditTest, TellsOnceThatHeightsAreCutToHundredths) {
  std::string const view =
      makeView("6.22", R"("annotations":[{"type":"text","lines":[[{"text":"a","heightem":12.345},
              {"text":"b","heightem":0.53},{"text":"c","heightem":2.5}]]}])");
  Document const document = read("[" + view + "," + view + "]");
  EXPECT_EQ(list(document, FindingCode::ValueRounded),
            (Lines{"info view/0/annot/0 : 4 text heights cut to hundredths "
                   "of an em, first 12.345 as 12.34"}));
  EXPECT_TRUE(select(document.m_findings, FindingCode::ValueInexact).empty());
}

TEST_F(ReadAuditTest, ReportsNumbersThatSinglePrecisionDoesNotHold) {
  Document const document =
      read(makeView("6.22", R"("origin":[1e300,0,0],"annotations":[{"type":"text","position":[0,1e39,0],
              "leaders":[{"pos":[0,0,-1e300]}]},{"type":"raster","sizeem":[1e300,"x"]},
              {"type":"raster","sizeem":["2","3.5"],"position":[0.1,3e38,16777217]}])"));
  std::string const expected = ", expected numbers of single precision, up to 3.4e38; infinity was taken";
  EXPECT_EQ(list(document, FindingCode::ValueInexact),
            (Lines{"error view/0 /origin: 'origin' of views is [1e+300, 0, 0]" + expected,
                   "error view/0/annot/0 /annotations/0/leaders/0/pos: 'pos' of leaders is [0, 0, -1e+300]" +
                       expected,
                   "error view/0/annot/0 /annotations/0/position: 'position' of text annotations is "
                   "[0, 1e+39, 0]" +
                       expected,
                   "error view/0/annot/1 /annotations/1/sizeem: 'sizeem' of raster annotations is "
                   "[1e+300, 'x'], expected a list of 2 numbers; 0 for what is no number was taken"}));
}

TEST_F(ReadAuditTest, ConversionsFromWhichTheValueCanBeToldAgainAreExact) {
  Document const exact = read(makeView(
      "6.22", R"("name":5,"annotations":[{"type":"text","name":true,"isframelocked":1,"isscalelocked":"true",
              "isignoreztest":"0","defaulttextprop":{"heightem":"2.5","bold":0,"font":7}}])"));
  EXPECT_TRUE(exact.m_findings.empty()) << exact.m_findings.front().m_text;
  Document const changed = read(makeView(
      "6.22", R"("annotations":[{"type":"text","isframelocked":5,"isscalelocked":"yes","isignoreztest":[],
              "defaulttextprop":{"heightem":"2 em"}}])"));
  std::string const place = "warning view/0/annot/0 /annotations/0/";
  EXPECT_EQ(
      list(changed, FindingCode::ValueInexact),
      (Lines{place + "defaulttextprop/heightem: 'heightem' of text properties is '2 em', expected a "
                     "number of ems from 0 to 655.34; 0 was taken",
             place + "isframelocked: 'isframelocked' of text annotations is 5, expected true or false; "
                     "true was taken",
             place + "isignoreztest: 'isignoreztest' of text annotations is [], expected true or false; "
                     "false was taken",
             place + "isscalelocked: 'isscalelocked' of text annotations is 'yes', expected true or "
                     "false; false was taken"}));
}

TEST_F(ReadAuditTest, WordsForWhatIsNotFiniteAreNoNumbers) {
  Document const document =
      read(makeView("6.22", R"("annotations":[{"type":"text","defaulttextprop":{"heightem":"inf"}},
              {"type":"raster","sizeem":["nan",1]}])"));
  EXPECT_EQ(
      list(document, FindingCode::ValueInexact),
      (Lines{
          "warning view/0/annot/0 /annotations/0/defaulttextprop/heightem: 'heightem' of text properties is "
          "'inf', expected a number of ems from 0 to 655.34; 0 was taken",
          "error view/0/annot/1 /annotations/1/sizeem: 'sizeem' of raster annotations is ['nan', 1], "
          "expected a list of 2 numbers; 0 for what is no number was taken"}));
}

TEST_F(ReadAuditTest, NullLosesNothingWhereAnAbsentKeyGivesTheSame) {
  Document const document = read(makeView(
      "6.22",
      R"("name":null,"origin":null,"annotations":[{"type":"text","name":null,"color":null,"leaders":null,
              "measures":null,"children":null,"metadata":null,"defaulttextprop":null,"lines":null,"text":null,
              "isframelocked":null,"frameshape":null},{"type":"text","lines":[[{"text":null,"bold":null,"type":null}]]}])"));
  Lines messages;
  for (Finding const& finding : document.m_findings) {
    EXPECT_EQ(finding.m_code, FindingCode::ReaderMessage) << finding.m_text;
    EXPECT_EQ(finding.m_severity, Severity::Info) << finding.m_text;
    messages.push_back(finding.m_text);
  }
  EXPECT_EQ(messages, (Lines{"invalid 'origin' field", "invalid 'color' field", "invalid 'leaders' field",
                             "invalid 'measures' field", "invalid 'defaulttextprop' field"}));
}

TEST_F(ReadAuditTest, NullIsALossWhereAnAbsentKeyGivesSomethingElse) {
  Document const document =
      read(makeView("6.22", R"("annotations":[{"type":"text","defaulttextprop":{"bold":true,"font":null},
              "lines":[[{"text":"a","bold":null,"heightem":null,"font":null}]]}])"));
  std::string const expected = " is null, expected another kind of value, or no such key; ";
  EXPECT_EQ(list(document, FindingCode::ValueInexact),
            (Lines{"warning view/0/annot/0 /annotations/0/defaulttextprop/font: 'font' of text properties" +
                       expected + "an empty one was taken",
                   "warning view/0/annot/0 /annotations/0/lines/0/0/bold: 'bold' of text runs" + expected +
                       "false was taken",
                   "warning view/0/annot/0 /annotations/0/lines/0/0/heightem: 'heightem' of text runs" +
                       expected + "0 was taken"}));
}

TEST_F(ReadAuditTest, ListsAHundredValuesOfAFieldAndCountsTheRest) {
  std::string records;
  for (int i = 0; i < 250; ++i) records += std::string(i > 0 ? "," : "") + R"({"type":"text","color":"x"})";
  Document const document = read(makeView("6.22", "\"annotations\":[" + records + "]"));
  Lines const lines = list(document, FindingCode::ValueInexact);
  ASSERT_EQ(lines.size(), 101U);
  EXPECT_EQ(lines.back(),
            "warning view/0 : 150 more values of 'color' of text annotations not read as they stand");
}

TEST_F(ReadAuditTest, AnAnchorIsReadOfChildrenAlone) {
  Document const document = read(makeView(
      "6.22",
      R"("annotations":[{"type":"text","anchorloc":"zz","children":[{"type":"text","anchorloc":"tl"}]}])"));
  ASSERT_EQ(document.m_findings.size(), 1U);
  EXPECT_EQ(
      list(document, FindingCode::KeyIgnored),
      (Lines{"info view/0 /annotations/0/anchorloc: the key 'anchorloc' of text annotations is not read "
             "of annotations without a parent"}));
}

TEST_F(ReadAuditTest, ReportsTextsThatWereCut) {
  std::string const longText(70000, 'x');
  Document const runs = read(makeView(
      "6.22", R"("annotations":[{"type":"text","lines":[[{"text":"a"},{"text":")" + longText + R"("}]]}])"));
  EXPECT_EQ(
      list(runs, FindingCode::RecordLost),
      (Lines{"error view/0/annot/0 /annotations/0/lines/0/1/text: a text of 70000 bytes was cut at 65535"}));
  std::string const fitting(65535, 'x');
  Document const plain = read(makeView("6.22", R"("annotations":[{"type":"text","text":")" + fitting + "\\n" +
                                                   longText + "\\r" + fitting + R"("}])"));
  EXPECT_EQ(list(plain, FindingCode::RecordLost),
            (Lines{"error view/0/annot/0 /annotations/0/text: a text of 70000 bytes was cut at 65535"}));
}

TEST_F(ReadAuditTest, TellsArrowDirectionsThatAreTooOldToBeRead) {
  Document const document = read(makeView(
      "6.21", R"("textannotations":[{"measures":[{"A":[0,0,0],"B":[1,0,0],"V":[0,1,0],"arrowdir":"zz"}]}],
              "rasterannotations":[])"));
  EXPECT_EQ(document.m_findings.size(), 1U);
  EXPECT_EQ(list(document, FindingCode::KeyIgnored),
            (Lines{"warning view/0 /textannotations/0/measures/0/arrowdir: the key 'arrowdir' of measure "
                   "leaders is not "
                   "read here at version 6.21"}));
}

TEST_F(ReadAuditTest, ReportsValuesThatTheReaderDoesNotKnow) {
  Document const document = read(makeView(
      "6.22", R"("annotations":[{"type":"text","frameshape":"Circle","leaders":[{"pos":[1,2,3],"head":"dot"}],
              "measures":[{"A":[0,0,0],"B":[1,0,0],"V":[0,1,0],"arrowdir":7}],
              "lines":[[{"text":"a","type":"SUB"},{"text":"b","type":"normal"}]],
              "children":[{"type":"text","anchorloc":"top"},{"type":"text","anchorloc":"rb","frameshape":""}]}])"));
  EXPECT_EQ(
      list(document, FindingCode::ValueUnknown),
      (Lines{
          "warning view/0/annot/0 /annotations/0/frameshape: 'frameshape' of text annotations is 'Circle', "
          "expected rectangle, square, diamond, triangle, flagright, flagleft, flagboth, parallelogram, "
          "hexagon, pentagon, circle, oblong, oblongleft, oblongright or noframe; 'rectangle' was taken",
          "warning view/0/annot/0 /annotations/0/leaders/0/head: 'head' of leaders is 'dot', expected "
          "square, circle, arrow, plus, cross, triangle or none; 'none' was taken",
          "warning view/0/annot/0 /annotations/0/lines/0/0/type: 'type' of text runs is 'SUB', expected "
          "sub, sup or normal; 'normal' was taken",
          "warning view/0/annot/0 /annotations/0/measures/0/arrowdir: 'arrowdir' of measure leaders is 7, "
          "expected outout, inout, outin or none; 'none' was taken",
          "warning view/0/annot/0/sub/0 /annotations/0/children/0/anchorloc: 'anchorloc' of text "
          "annotations is 'top', expected rt, rc, rb, lt, lc, lb, tr, tc, tl, br, bc, bl or none; 'none' "
          "was taken"}));
}

TEST_F(ReadAuditTest, ReportsTextsThatAreNone) {
  Document const document = read(
      makeView("6.22",
               R"("name":{},"annotations":[{"type":"text","name":[1],"text":{"a":1},"frameshape":["circle"]},
              {"type":"text","defaulttextprop":{"font":{}},"lines":[[{"text":["b"]},{"text":3}]]}])"));
  EXPECT_EQ(
      list(document, FindingCode::ValueInexact),
      (Lines{"error view/0 /name: 'name' of views is a map, expected a text; an empty one was taken",
             "error view/0/annot/0 /annotations/0/name: 'name' of text annotations is [1], expected a "
             "text; an empty one was taken",
             "error view/0/annot/0 /annotations/0/text: 'text' of text annotations is a map, expected a "
             "text; an empty one was taken",
             "warning view/0/annot/1 /annotations/1/defaulttextprop/font: 'font' of text properties is "
             "a map, expected a text; an empty one was taken",
             "error view/0/annot/1 /annotations/1/lines/0/0/text: 'text' of text runs is ['b'], "
             "expected a text; an empty one was taken"}));
  EXPECT_EQ(select(document.m_findings, FindingCode::ValueUnknown).size(), 1U);
}

TEST_F(ReadAuditTest, ReportsRecordsBesideTheViews) {
  Document const document = read(
      R"({"views":[],"annotations":[{"type":"text","children":[{}]}],"textannotations":[],"other":[1]})");
  EXPECT_EQ(
      list(document, FindingCode::KeyIgnored),
      (Lines{"error  /annotations: the key 'annotations' beside 'views' is not read; 2 annotation records "
             "went with it",
             "info  /other: the key 'other' beside 'views' is not read",
             "info  /textannotations: the key 'textannotations' beside 'views' is not read"}));
}

TEST_F(ReadAuditTest, OnlyCountsWhenTheViewDoesNotMatchItsMap) {
  std::string text = R"({"ver":"6.22","annotations":[{"type":"text"},{"type":"text","zzz":1}]})";
  Document const document = read(text);
  VariantMap map;
  map["annotations"] = VariantList(2, VariantMap{{"type", "text"}, {"zzz", 1}});
  qvLegacy::qvAnnotationView& view = *document.m_views.at(0).m_view;
  view.m_annotations.pop_back();
  Findings findings;
  static_cast<void>(
      ReadAudit().audit({map, &view, qv::qvStreamVersion(6, 22), Address::ofView(0), ""}, findings));
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].m_text, "of 2 annotation records 1 were read");
}

/// Builds random records and lets the readers judge: whatever they drop must be reported, and nothing else.
TEST_F(ReadAuditTest, AgreesWithTheReadersOnWhatIsLost) {
  char const* const parts[] = {R"("position":[1,2,3])", R"("position":[1,2])",    R"("type":"text")",
                               R"("type":"raster")",    R"("type":"Text")",       R"("sizeem":[1,2])",
                               R"("sizeem":[1])",       R"("sizeem":3)",          R"("children":[])",
                               R"("childs":[5])",       R"("children":[{}])",     R"("color":"x")",
                               R"("children":5)",       R"("position":[1,2,"3"])"};
  unsigned int state = 1;
  auto const next = [&state](unsigned int count) {
    state = state * 1664525U + 1013904223U;
    return (state >> 16U) % count;
  };
  for (int i = 0; i < 3000; ++i) {
    std::string records;
    unsigned int const count = 1 + next(4);
    for (unsigned int n = 0; n < count; ++n) {
      std::string record = R"("name":"r")";
      for (unsigned int m = next(4); m > 0; --m) record += std::string(",") + parts[next(std::size(parts))];
      records += (n > 0 ? ",{" : "{") + record + "}";
    }
    Document const document = read(makeView("6.22", "\"annotations\":[" + records + "]"));
    std::size_t lost = 0;
    for (Finding const& finding : select(document.m_findings, FindingCode::RecordLost)) {
      lost += finding.m_address == "view/0" ? 1U : 0U;
      ASSERT_FALSE(finding.m_text.starts_with("of ")) << records;
    }
    ASSERT_EQ(lost, count - document.m_views.at(0).m_view->m_annotations.size()) << records;
  }
}

TEST_F(ReadAuditTest, MessagesOfTheReadersWeighWhatTheyCost) {
  Document const document = read(makeView(
      "6.27", R"("axis":1,"annotations":[{"type":"text","color":"x","leaders":1,"defaulttextprop":1}])"));
  Lines messages;
  for (Finding const& finding : select(document.m_findings, FindingCode::ReaderMessage)) {
    messages.push_back(std::string(getSeverityText(finding.m_severity)) + " " + finding.m_text);
  }
  EXPECT_EQ(messages, (Lines{"error invalid 'axis' field", "warning invalid 'metadata' field",
                             "warning invalid 'color' field", "error invalid 'leaders' field",
                             "warning invalid 'defaulttextprop' field"}));
}

}  // namespace
