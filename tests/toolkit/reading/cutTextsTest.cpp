#include "reading/cutTexts.h"

#include "annotationLegacy/qvAnnotationText.h"
#include "tests/support/streamTest.h"

namespace qvStreamTest {

namespace {

class CutTextsTest : public StreamTest {};

/// A view of one text with one line, as 6.15 and 6.16 have it.
std::string makeView(std::vector<std::string> const& runs) {
  Bytes bytes;
  bytes.text("v").point(0, 0, 0).point(0, 0, 1).point(1, 0, 0).u32(1).u32(0);
  bytes.text("n").u32(0).point(0, 0, 0).u8(255).u8(255).u8(255).u8(1);
  bytes.text("Arial").u32(100).u32(1).u32(static_cast<std::uint32_t>(runs.size()));
  for (std::string const& run : runs) bytes.text(run).u8(0);
  return bytes.get();
}

Document readRuns(std::vector<std::string> const& runs) {
  return read(beginDocument(0x60010, 1).raw(makeObject(2, ViewType, makeView(runs))).get());
}

/// What the reader kept of the runs.
std::vector<std::size_t> getLengths(Document const& document) {
  std::vector<std::size_t> lengths;
  auto const* const text = dynamic_cast<qvLegacy::qvAnnotationText const*>(
      document.m_views.at(0).m_view->m_annotations.at(0).get());
  for (auto const& run : text->m_lines.front()) lengths.push_back(run.m_length);
  return lengths;
}

TEST_F(CutTextsTest, AreErrorsWithTheirPlace) {
  std::string const zero("ab\0c", 4);
  Document const document = readRuns({"ab", std::string(70000, 'x'), zero});
  EXPECT_EQ(getLengths(document), (std::vector<std::size_t>{2, 65535, 2}));
  std::vector<std::string> const lines = describeFindings(document);
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(
      lines[0],
      "f: error: byte 161: object[0].text[0].line[0].run[1].text: a text of 70000 bytes was cut at 65535 "
      "[reader.record-lost, view/0]");
  EXPECT_EQ(lines[1],
            "f: error: byte 70166: object[0].text[0].line[0].run[2].text: a text of 4 bytes was cut at 2 "
            "[reader.record-lost, view/0]");
}

TEST_F(CutTextsTest, AreNoneWhereOnlyZeroCharactersAtTheEndGo) {
  Document const document = readRuns({std::string("ab\0\0", 4), std::string(65535, 'x'), ""});
  EXPECT_EQ(getLengths(document), (std::vector<std::size_t>{2, 65535, 0}));
  EXPECT_EQ(describeFindings(document), std::vector<std::string>());
}

TEST_F(CutTextsTest, AreLookedForOnlyBeforeLengthsHad16Bits) {
  std::string const bytes =
      beginDocument(0x60010, 1).raw(makeObject(2, ViewType, makeView({std::string("a\0b", 3)}))).get();
  EXPECT_EQ(findCutTexts(bytes, 0x60010).m_texts.size(), 1U);
  EXPECT_TRUE(findCutTexts(bytes, 0x60011).m_texts.empty());
}

TEST_F(CutTextsTest, AreCountedBeyondTheFirstHundred) {
  Document const document = readRuns(std::vector<std::string>(103, std::string("a\0b", 3)));
  ASSERT_EQ(document.m_findings.size(), 101U);
  EXPECT_EQ(document.m_findings.back().m_text, "3 more texts cut, which are not listed");
  EXPECT_EQ(document.m_findings.back().m_severity, Severity::Error);
}

}  // namespace

}  // namespace qvStreamTest
