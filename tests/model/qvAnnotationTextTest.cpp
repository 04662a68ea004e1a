#include "annotationLegacy/qvAnnotationText.h"

#include <ctime>

#include "modelTest.h"

namespace {

using namespace qvLegacy;
using namespace qvLegacy::test;
using TextProperties = qvAnnotationText::TextProperties;
using TextSegment = qvAnnotationText::TextSegment;

class AnnotationText : public ModelTest {};
class AnnotationTextTrim : public ModelTest {};

/// Lines of runs as text: runs in brackets, lines separated by a bar.
std::string shape(qvAnnotationText const& annotation) {
  std::string shown;
  for (auto const& line : annotation.m_lines) {
    for (auto const& run : line) shown += '[' + std::string(run.getText()) + ']';
    shown += '|';
  }
  return shown;
}

/// A text of lines of runs.
TextPointer newLines(std::vector<std::vector<char const*>> const& lines) {
  TextPointer annotation(new qvAnnotationText);
  for (auto const& runs : lines) {
    auto& line = annotation->m_lines.emplace_back();
    for (char const* const text : runs) line.emplace_back(text, TextSegment::Normal);
  }
  return annotation;
}

TEST_F(AnnotationText, HasDefaultPropertiesAndNoLinesByDefault) {
  qvAnnotationText const text;
  EXPECT_EQ(text.m_type, 1);
  EXPECT_EQ(text.m_defaultTextProperties.m_fontName, "Arial");
  EXPECT_EQ(text.m_defaultTextProperties.m_height, 100);
  EXPECT_TRUE(text.m_lines.empty());
}

TEST_F(AnnotationText, BreaksLinesAtEveryKindOfLineBreak) {
  EXPECT_EQ(shape(*newText("a\r\nb\rc\n")), "[a]|[b]|[c]|[]|");
  EXPECT_EQ(shape(*newText("a\n\rb")), "[a]|[]|[b]|");
  EXPECT_EQ(shape(*newText("a\nb")), "[a]|[b]|");
  EXPECT_EQ(shape(*newText("")), "[]|");
  EXPECT_EQ(shape(*newText("\n\n\n")), "[]|[]|[]|[]|");
  EXPECT_EQ(shape(*newText("\r")), "[]|[]|");
}

TEST_F(AnnotationText, TakesCarriageReturnsBeforeALineFeedInOnePass) {
  EXPECT_EQ(shape(*newText("a\r\r\nb")), "[a]|[]|[b]|");
  EXPECT_EQ(shape(*newText("a\r\n\r\nb")), "[a]|[]|[b]|");
}

TEST_F(AnnotationText, EmptyPieceIsARunWithoutText) {
  TextPointer const text = newText("\n");
  for (auto const& line : text->m_lines) {
    ASSERT_EQ(line.size(), 1U);
    EXPECT_EQ(line.front().m_text, nullptr);
    EXPECT_EQ(line.front().m_length, 0);
    EXPECT_EQ(line.front().m_type, TextSegment::Normal);
    EXPECT_EQ(line.front().m_textProperties, nullptr);
  }
}

TEST_F(AnnotationText, SettingReplacesTheLinesAndKeepsTheDefaultProperties) {
  TextPointer const text = newLines({{"old", "text"}, {"line"}});
  text->m_defaultTextProperties.m_height = 250;
  text->setText("new");
  EXPECT_EQ(shape(*text), "[new]|");
  EXPECT_EQ(text->m_defaultTextProperties.m_height, 250);
}

TEST_F(AnnotationText, CutsPiecesAt65535CharactersAndKeepsZeroCharacters) {
  TextPointer const text = newText(std::string(70'000, 'x') + "\n" + std::string("a\0b", 3));
  EXPECT_EQ(text->m_lines.front().front().m_length, 65'535);
  EXPECT_EQ(text->m_lines.back().front().m_length, 3);
}

TEST_F(AnnotationText, PlainTextHasLineFeedsBetweenLinesOnly) {
  EXPECT_EQ(textOf(newLines({})), "");
  EXPECT_EQ(textOf(newLines({{"a", "b"}, {}, {"c"}})), "ab\n\nc");
  EXPECT_EQ(textOf(newText("a\r\nb\rc\n")), "a\nb\nc\n");
}

TEST_F(AnnotationText, PlainTextReplacesWhatWasThere) {
  std::string out = "before";
  newText("a")->toString(out);
  EXPECT_EQ(out, "a");
}

TEST_F(AnnotationText, PlainTextOfARunEndsAtItsFirstZeroCharacter) {
  EXPECT_EQ(textOf(newText(std::string("a\0b\nc", 5))), "a\nc");
}

/// `line` and a CR LF, `count` times.
std::string repeated(std::string const& line, int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += line + "\r\n";
  return text;
}

TEST_F(AnnotationText, LongTextsTakeLinearTime) {
  std::string const text = repeated(std::string(62, 'x'), 250'000);
  std::string const breaks = repeated("", 1'000'000);
  std::clock_t const start = std::clock();
  EXPECT_EQ(newText(text)->m_lines.size(), 250'001U);
  EXPECT_EQ(newText(breaks)->m_lines.size(), 1'000'001U);
  // Removing each carriage return in place takes minutes for either.
  EXPECT_LT(std::clock() - start, 10 * CLOCKS_PER_SEC);
}

TEST_F(AnnotationText, CopyIsDeep) {
  TextPointer const source = newLines({{"a", "b"}, {"c"}});
  source->m_defaultTextProperties = TextProperties("F", 2.0F);
  source->m_lines.front().back().setTextProperties(TextProperties("G", 3.0F));
  qvAnnotationText const copy(*source);
  source->m_lines.front().back().setText("changed");
  source->m_lines.front().back().m_textProperties->m_fontName = "changed";
  EXPECT_EQ(shape(copy), "[a][b]|[c]|");
  EXPECT_EQ(copy.m_defaultTextProperties.m_fontName, "F");
  EXPECT_EQ(copy.m_lines.front().back().m_textProperties->m_fontName, "G");
}

TEST_F(AnnotationText, AssignmentReusesLinesAndRunsElementByElement) {
  TextPointer const target = newLines({{"1", "2", "3"}, {"4"}, {"5"}});
  auto const* const line = &target->m_lines.front();
  auto const* const run = &line->front();
  *target = *newLines({{"a", "b"}, {"c", "d"}});
  EXPECT_EQ(shape(*target), "[a][b]|[c][d]|");
  EXPECT_EQ(&target->m_lines.front(), line);
  EXPECT_EQ(&target->m_lines.front().front(), run);
}

TEST_F(AnnotationText, AssignmentToItselfChangesNothing) {
  TextPointer const text = newText(std::string("a\0b", 3));
  qvAnnotationText const& same = *text;
  *text = same;
  EXPECT_EQ(text->m_lines.front().front().m_length, 3);
}

TEST_F(AnnotationTextTrim, OfTextWithoutLinesDoesNothing) {
  TextPointer const text = newLines({});
  text->trim(true, true);
  EXPECT_EQ(shape(*text), "");
}

TEST_F(AnnotationTextTrim, WithoutFlagsChangesNothing) {
  TextPointer const text = newLines({{""}, {"", "x", ""}, {}});
  text->trim(false, false);
  EXPECT_EQ(shape(*text), "[]|[][x][]||");
}

TEST_F(AnnotationTextTrim, OnBothSidesLeavesTheText) {
  TextPointer const text = newLines({{""}, {"x", ""}, {""}});
  text->trim(true, true);
  EXPECT_EQ(shape(*text), "[x]|");
}

TEST_F(AnnotationTextTrim, TrailingKeepsALeadingLineThatItEmptied) {
  TextPointer const text = newLines({{""}, {"x", ""}, {""}});
  text->trim(false, true);
  EXPECT_EQ(shape(*text), "|[x]|");
}

TEST_F(AnnotationTextTrim, LeadingKeepsATrailingLineThatItEmptied) {
  TextPointer const text = newLines({{""}, {"", "x", ""}, {""}});
  text->trim(true, false);
  EXPECT_EQ(shape(*text), "[x][]||");
}

TEST_F(AnnotationTextTrim, KeepsEmptiedLinesBetweenOthers) {
  TextPointer const text = newLines({{"a"}, {"", ""}, {}, {"", "b"}});
  text->trim(true, true);
  EXPECT_EQ(shape(*text), "[a]|||[b]|");
}

TEST_F(AnnotationTextTrim, KeepsEmptyRunsBetweenOthers) {
  TextPointer const text = newLines({{"a", "", "b"}});
  text->trim(true, true);
  EXPECT_EQ(shape(*text), "[a][][b]|");
}

TEST_F(AnnotationTextTrim, TakesRunsForEmptyWhateverTheirProperties) {
  TextPointer const text = newLines({{"", ""}});
  for (auto& run : text->m_lines.front()) run.setTextProperties(TextProperties("F", 2.0F));
  text->trim(false, true);
  EXPECT_TRUE(text->m_lines.empty());
}

TEST_F(AnnotationTextTrim, TakesARunThatBeginsWithAZeroCharacterForText) {
  TextPointer const text = newText(std::string(1, '\0'));
  text->trim(true, true);
  EXPECT_EQ(text->m_lines.size(), 1U);
}

}  // namespace
