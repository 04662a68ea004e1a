#include "qvToolkit/reading/openDocument.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "tests/onStack.h"
#include "tests/support/openTest.h"

namespace {

using namespace qvToolkit;

using DocumentTest = OpenTest;

std::string const View = R"({"ver":"6.22","name":"v","annotations":[{"type":"text","text":"a"}]})";

struct BadInput {
  std::string m_content;
  FindingCode m_code;
  std::string m_line;  ///< the one line that a user reads
};

TEST_F(DocumentTest, ExplainsEachBadInputInOneLine) {
  BadInput const inputs[] = {
      {"", FindingCode::FormatUnknown,
       "f:1:1: error: the input is empty, expected JSON [input.unknown-format]"},
      {" \n", FindingCode::FormatUnknown,
       "f:2:1: error: found only blanks, expected JSON [input.unknown-format]"},
      {"\xEF\xBB\xBF", FindingCode::FormatUnknown,
       "f:1:4: error: the input is empty, expected JSON [input.unknown-format]"},
      {"hello\n", FindingCode::FormatUnknown,
       "f:1:1: error: found 'hello', expected JSON that begins with '{' or '[' [input.unknown-format]"},
      {"\n<svg/>", FindingCode::FormatUnknown,
       "f:2:1: error: found '<', expected JSON that begins with '{' or '[' [input.unknown-format]"},
      {std::string("\0\0\0\0", 4), FindingCode::FormatUnknown,
       "f:1:1: error: found '\\x00', expected JSON that begins with '{' or '[' [input.unknown-format]"},
      {"\xFF\xFE{\0", FindingCode::FormatUnknown,
       "f:1:1: error: found text of 16 or 32 bits a character, expected JSON in UTF-8 "
       "[input.unknown-format]"},
      {std::string("\0{", 2), FindingCode::FormatUnknown,
       "f:1:1: error: found text of 16 or 32 bits a character, expected JSON in UTF-8 "
       "[input.unknown-format]"},
      {"qvStream\1", FindingCode::StreamBroken,
       "f: error: byte 8: expected the stream version of 4 bytes, found 1 byte before the end of the "
       "document "
       "[stream.broken]"},
      {"{\"views\": [\n{\"ver\": \"6.2", FindingCode::JsonBroken,
       "f:2:13: error: no valid JSON: found the end of the text, expected the closing quote of the string "
       "that begins "
       "at line 2, column 9 [json.broken]"},
      {"{\"views\": []}\n]", FindingCode::JsonBroken,
       "f:2:1: error: no valid JSON: found ']', expected the end of the text [json.broken]"},
      {"{\"name\": \"a\xC3(\"}", FindingCode::JsonBroken,
       "f:1:12: error: no valid JSON: found invalid UTF-8 '\\xc3', expected UTF-8 text [json.broken]"},
      {std::string("{\"a\":1}\0", 8), FindingCode::JsonBroken,
       "f:1:8: error: no valid JSON: found '\\x00', expected the end of the text [json.broken]"},
      {"[\n1e999]", FindingCode::JsonBroken,
       "f:2:1: error: no valid JSON: found the number '1e999', expected a number of at most 1.8e308 "
       "[json.broken]"},
      {std::string(10000, '['), FindingCode::JsonTooDeep,
       "f:1:1001: error: nested too deep: found more than 1000 objects and arrays within each other, "
       "expected at most "
       "1000 [json.too-deep]"},
      {"7", FindingCode::DocumentShape,
       "f: error: found a lone value, expected a view object, an array of view objects or {\"views\": [view "
       "objects]} "
       "[document.shape]"},
      {"{\"a\":1}", FindingCode::DocumentShape,
       "f: error: found an object that has neither 'views' nor the keys of a view, expected a view object, "
       "an array of "
       "view objects or {\"views\": [view objects]} [document.shape]"},
      {"{\n\"views\":{}}", FindingCode::DocumentShape,
       "f:2:9: error: found 'views' that is no array, expected a view object, an array of view objects or "
       "{\"views\": "
       "[view objects]} [document.shape]"},
  };
  for (BadInput const& input : inputs) {
    Document const document = readDocument(input.m_content, "f");
    bool const isTooDeep = input.m_code == FindingCode::JsonTooDeep;
    EXPECT_EQ(getFailure(document), isTooDeep ? ExitLimit : ExitInputBroken) << input.m_line;
    EXPECT_TRUE(document.m_views.empty());
    ASSERT_EQ(document.m_findings.size(), 1U) << input.m_line;
    EXPECT_EQ(document.m_findings[0].m_code, input.m_code) << input.m_line;
    EXPECT_EQ(formatFinding("f", document.m_findings[0]), input.m_line);
  }
}

TEST_F(DocumentTest, TakesTheThreeShapes) {
  for (std::string const& content : {View, "[" + View + "]", "{\"views\":[" + View + "]}"}) {
    Document const document = read(content);
    EXPECT_EQ(getFailure(document), ExitDone);
    EXPECT_EQ(document.m_path, "test.json");
    ASSERT_EQ(document.m_views.size(), 1U);
    EXPECT_EQ(document.m_views[0].m_name, "v");
    EXPECT_EQ(document.m_views[0].m_version.GetPacked(), 0x60016U);
    ASSERT_NE(document.m_views[0].m_view.get(), nullptr);
    EXPECT_EQ(document.m_views[0].m_view->m_annotations.size(), 1U);
    EXPECT_TRUE(document.m_findings.empty());
  }
}

TEST_F(DocumentTest, ReportsAnElementThatIsNoViewAndKeepsTheOthersAtTheirIndex) {
  Document const document = read("[5,\n" + View + "]");
  ASSERT_EQ(document.m_views.size(), 2U);
  EXPECT_EQ(document.m_views[0].m_view.get(), nullptr);
  EXPECT_NE(document.m_views[1].m_view.get(), nullptr);
  ASSERT_EQ(document.m_findings.size(), 1U);
  EXPECT_EQ(formatFinding("f", document.m_findings[0]),
            "f:1:2: error: found a view that is no object; it was passed over [document.shape, view/0]");
}

TEST_F(DocumentTest, SaysThatADocumentHoldsNoView) {
  for (char const* const content : {"[]", "{\"views\":[]}"}) {
    Document const document = read(content);
    EXPECT_EQ(getFailure(document), ExitDone);
    EXPECT_TRUE(document.m_views.empty());
    ASSERT_EQ(document.m_findings.size(), 1U);
    EXPECT_EQ(document.m_findings[0].m_code, FindingCode::NoViews);
    EXPECT_EQ(document.m_findings[0].m_severity, Severity::Warning);
  }
}

TEST_F(DocumentTest, SaysWhichKeysBesideTheViewsAreNotRead) {
  Document const document = read("{\"views\":[" + View + "],\"made by\":1}");
  ASSERT_EQ(document.m_findings.size(), 1U);
  EXPECT_EQ(formatFinding("f", document.m_findings[0]),
            "f:1:91: info: the key 'made by' beside 'views' is not read [reader.key-ignored]");
  EXPECT_EQ(document.m_findings[0].m_place.m_jsonPointer, "/made by");
}

TEST_F(DocumentTest, KeepsTheReadersMessagesOfEachViewInOrder) {
  std::string const broken =
      R"({"ver":"6.22","name":"w","origin":1,"axis":2,"annotations":[{"type":"note"}]})";
  Document const document = read("{\"views\":[" + broken + "," + View + "," + broken + "]}");
  ASSERT_EQ(document.m_views.size(), 3U);
  std::vector<std::string> const messages = {"invalid 'origin' field", "invalid 'axis' field",
                                             "invalid annotation type"};
  EXPECT_EQ(document.m_views[0].m_messages, messages);
  EXPECT_TRUE(document.m_views[1].m_messages.empty());
  EXPECT_EQ(document.m_views[2].m_messages, messages);

  Findings const findings = select(document.m_findings, FindingCode::ReaderMessage);
  ASSERT_EQ(findings.size(), 6U);
  EXPECT_EQ(findings[0].m_text, "invalid 'origin' field");
  EXPECT_EQ(findings[0].m_severity, Severity::Error);
  EXPECT_EQ(findings[2].m_severity, Severity::Error);
  EXPECT_EQ(findings[3].m_address, "view/2");
  EXPECT_EQ(findings[3].m_place.m_jsonPointer, "/views/2");
  EXPECT_TRUE(findings[3].m_place.m_line.has_value());
}

TEST_F(DocumentTest, KnowsNameAndVersionOfARefusedView) {
  Document const document = read(R"({"ver":"6.16","name":"old"})");
  EXPECT_EQ(getFailure(document), ExitDone);
  ASSERT_EQ(document.m_views.size(), 1U);
  EXPECT_EQ(document.m_views[0].m_view.get(), nullptr);
  EXPECT_EQ(document.m_views[0].m_name, "old");
  EXPECT_EQ(document.m_views[0].m_version.GetPacked(), 0x60010U);
  EXPECT_EQ(document.m_views[0].m_messages, std::vector<std::string>{"invalid version 6.16"});
  EXPECT_EQ(getHighestSeverity(document.m_findings), Severity::Error);
}

TEST_F(DocumentTest, EqualKeysWhoseContentGoesAreAnError) {
  Document const document = read(R"({"ver":"6.22","name":"x","name":"y","annotations":[]})");
  EXPECT_EQ(document.m_views.at(0).m_name, "y");
  ASSERT_EQ(document.m_findings.size(), 1U);
  EXPECT_EQ(
      formatFinding("f", document.m_findings[0]),
      "f:1:26: error: the key 'name' appears again in the same object; the last value counts, and the one "
      "before it is lost [json.duplicate-key]");
  Document const nested = read(
      R"({"ver":"6.22","annotations":[{"type":"text","lines":[],"lines":[[{"text":"a","text":"b"}]],"lines":[]}]})");
  std::vector<Severity> severities;
  for (Finding const& finding : select(nested.m_findings, FindingCode::JsonDuplicateKey))
    severities.push_back(finding.m_severity);
  EXPECT_EQ(severities, (std::vector{Severity::Warning, Severity::Error, Severity::Error}))
      << "an empty list, a text, and the list that held it";
}

TEST_F(DocumentTest, EqualKeysOfEqualOrEmptyValuesAreAWarning) {
  Document const document = read(
      R"({"ver":"6.22","name":"y","name":"y","annotations":[],"annotations":[],"origin":null,"origin":[0,0,0]})");
  ASSERT_EQ(document.m_findings.size(), 3U);
  EXPECT_EQ(getHighestSeverity(document.m_findings), Severity::Warning);
}

std::string makeDeepView() {
  std::string text = R"({"ver":"6.22","annotations":[)";
  for (int i = 0; i < 490; ++i) text += R"({"type":"text","children":[)";
  text += R"({"type":"text"})";
  for (int i = 0; i < 490; ++i) text += "]}";
  return text + "]}";
}

TEST_F(DocumentTest, ReadsDeepSubAnnotationsWithoutRecursionOfItsOwn) {
  qvTest::runOnStack(qvTest::OrdinaryStack, [this] {
    Document const document = read(makeDeepView());
    EXPECT_EQ(getFailure(document), ExitDone);
    EXPECT_TRUE(document.m_findings.empty());
  });
}

TEST_F(DocumentTest, RefusesSubAnnotationsThatOverflowASmallStack) {
  qvTest::runOnStack(qvTest::SmallStack, [this] {
    Document const document = read(makeDeepView());
    EXPECT_EQ(getFailure(document), ExitLimit);
    ASSERT_EQ(document.m_findings.size(), 1U);
    EXPECT_EQ(document.m_findings[0].m_code, FindingCode::LimitStack);
    EXPECT_EQ(document.m_findings[0].m_options, std::vector{OptionKey::MaxStack});
  });
}

TEST_F(DocumentTest, RefusesLevelsThatTheLimitOfTheStackDoesNotHold) {
  OpenLimits limits;
  limits.m_maxStackBytes = 4096;
  qvTest::runOnStack(qvTest::OrdinaryStack, [&limits] {
    EXPECT_EQ(getFailure(readDocument("[[[[]]]]", "f", limits)), ExitDone);
    EXPECT_EQ(getFailure(readDocument("[[[[[]]]]]", "f", limits)), ExitLimit);
  });
}

TEST_F(DocumentTest, OpensAFileAndReportsOneThatIsMissing) {
  std::string const path = testing::TempDir() + "documentTest." + std::to_string(::getpid()) + ".json";
  std::ofstream(path) << View;
  Document const document = openDocument(path);
  EXPECT_EQ(document.m_path, path);
  EXPECT_EQ(document.m_views.size(), 1U);
  EXPECT_EQ(getFailure(openDocument(path, {10, 1000})), ExitLimit);
  EXPECT_EQ(getFailure(openDocument(path, {1000, 2})), ExitLimit);
  std::filesystem::remove(path);

  Document const missing = openDocument(path);
  EXPECT_EQ(getFailure(missing), ExitInputUnreadable);
  ASSERT_EQ(missing.m_findings.size(), 1U);
  EXPECT_EQ(formatFinding("f", missing.m_findings[0]),
            "f: error: cannot open: No such file or directory [input.unreadable]");
}

TEST_F(DocumentTest, SaysWhatItWasReadFrom) {
  Source const source = readDocument("{}", "a/b.json").m_source;
  EXPECT_EQ(source.m_path, "a/b.json");
  EXPECT_EQ(source.m_size, 2U);
  EXPECT_EQ(source.m_sha256, "44136fa355b3678a1146ad16f7e8649e94fb4fc21fe77e8310c060f61caaff8a");
  EXPECT_EQ(source.m_format, Format::Json);
  EXPECT_EQ(readDocument("qvStream", "a").m_source.m_format, Format::ObjectStream);
}

TEST_F(DocumentTest, SaysWhatItWasReadFromAlsoWhereThatIsNoDocument) {
  Source const unknown = readDocument("abc", "a").m_source;
  EXPECT_EQ(unknown.m_size, 3U);
  EXPECT_EQ(unknown.m_sha256, "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
  EXPECT_EQ(unknown.m_format, std::nullopt);

  Source const missing = openDocument("/no such folder/a").m_source;
  EXPECT_EQ(missing.m_path, "/no such folder/a");
  EXPECT_EQ(missing.m_size, std::nullopt);
  EXPECT_EQ(missing.m_sha256, "");
  EXPECT_EQ(missing.m_format, std::nullopt);
}

}  // namespace
