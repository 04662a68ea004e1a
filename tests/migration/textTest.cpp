#include <gtest/gtest.h>

#include <bit>
#include <cstdint>

#include "tests/migration/migrationFixture.h"
#include "tests/migration/statedSizeConverter.h"

namespace {

using namespace migrationTest;
using Lines = std::vector<std::vector<std::string>>;

class MigratedText : public Migration {
 protected:
  qv::text::TextArea const& areaOf(Text const& annotation) {
    lastConverterCall().reset();
    qvLegacy::qvAnnotationMigration migration(0, nullptr, nullptr, 1);
    qv::svg::Node root;
    m_done = migration.migrateTextAnnotation(&annotation, root, {1, 2, 3});
    m_children = root.editChildren();
    return lastConverterCall()->area;
  }

  static Lines linesOf(qv::text::TextArea const& area) {
    Lines lines;
    for (auto const& line : area.m_lines) {
      lines.emplace_back();
      for (auto const& segment : line) lines.back().push_back(segment.getText());
    }
    return lines;
  }

  bool m_done = false;
  qv::svg::Node::Children m_children;
};

Text::TextSegment segment(std::string const& text,
                          Text::TextSegment::SegmentType type = Text::TextSegment::Normal) {
  return {text, type};
}

TEST_F(MigratedText, SizesAreSinglePrecisionTimes3175) {
  struct Row {
    std::uint16_t height;
    std::uint32_t bits;
  };
  for (Row const& row : {Row{100, 0x404B3333}, Row{250, 0x40FE0000}, Row{53, 0x3FD76459}, Row{1, 0x3D020C49},
                         Row{0, 0x00000000}}) {
    Text text;
    text.m_defaultTextProperties.m_height = row.height;
    text.setText("x");
    EXPECT_EQ(std::bit_cast<std::uint32_t>(areaOf(text).m_defaultProperties.m_size), row.bits) << row.height;
  }
}

TEST_F(MigratedText, DefaultPropertiesAreConverted) {
  Text text;
  text.setText("x");
  text.m_defaultTextProperties.m_fontName = "Courier";
  text.m_defaultTextProperties.m_height = 250;
  text.m_defaultTextProperties.m_styleFlags = 0xFFFD;
  qv::text::TextArea const& area = areaOf(text);
  EXPECT_EQ(area.m_defaultProperties.m_fontName, "Courier");
  EXPECT_EQ(area.m_defaultProperties.m_size, 7.9375F);
  EXPECT_TRUE(area.m_defaultProperties.m_bold);
  EXPECT_FALSE(area.m_defaultProperties.m_italic);
  EXPECT_EQ(area.m_textColor, (Wm4::Vector3<unsigned char>(1, 2, 3)));
}

TEST_F(MigratedText, ARunKeepsItsOwnPropertiesAndARunWithoutHasNone) {
  Text text;
  Text::TextSegment own = segment("x");
  Text::TextProperties properties("Symbol", 2.5F);
  properties.m_styleFlags = Text::TextProperties::Bold | Text::TextProperties::Italic;
  own.setTextProperties(properties);
  text.m_lines = {{own, segment("y")}};
  qv::text::TextArea const& area = areaOf(text);
  auto const& line = area.m_lines.front();
  ASSERT_EQ(line.size(), 2U);
  ASSERT_NE(line.front().m_properties, nullptr);
  EXPECT_EQ(line.front().m_properties->m_fontName, "Symbol");
  EXPECT_EQ(line.front().m_properties->m_size, 7.9375F);
  EXPECT_TRUE(line.front().m_properties->m_bold);
  EXPECT_TRUE(line.front().m_properties->m_italic);
  EXPECT_EQ(line.back().m_properties, nullptr);
}

TEST_F(MigratedText, TypesThatAreUnknownBecomeNormal) {
  Text text;
  text.m_lines = {{segment("a"), segment("b", Text::TextSegment::Subscript),
                   segment("c", Text::TextSegment::Superscript),
                   segment("d", static_cast<Text::TextSegment::SegmentType>(7))}};
  std::vector<int> types;
  for (auto const& run : areaOf(text).m_lines.front()) types.push_back(run.m_type);
  EXPECT_EQ(types, (std::vector<int>{0, 1, 2, 0}));
}

TEST_F(MigratedText, LinesWithoutTextBetweenLinesDisappear) {
  Text text;
  text.setText("A\n\nB");
  EXPECT_EQ(linesOf(areaOf(text)), (Lines{{"A"}, {"B"}}));
  text.m_lines = {{segment("A")}, {}, {segment("B")}};
  EXPECT_EQ(linesOf(areaOf(text)), (Lines{{"A"}, {"B"}}));
  text.setText("A\n   \nB");
  EXPECT_EQ(linesOf(areaOf(text)), (Lines{{"A"}, {"B"}}));
}

TEST_F(MigratedText, BlankRunsDisappearButBlanksWithinARunStay) {
  Text text;
  text.m_lines = {{segment(" "), segment(" a "), segment("   "), segment("b")}};
  EXPECT_EQ(linesOf(areaOf(text)), (Lines{{" a ", "b"}}));
}

TEST_F(MigratedText, OnlyTheBlankIsBlank) {
  Text text;
  text.m_lines = {{segment("\t"), segment(" \xC2\xA0")}};
  EXPECT_EQ(linesOf(areaOf(text)), (Lines{{"\t", " \xC2\xA0"}}));
}

TEST_F(MigratedText, ATextOfBlanksOnlyBecomesOneBlankOfDefaultHeight) {
  Text text;
  for (std::string const blanks : {"   ", "", " \n ", "\n\n"}) {
    text.setText(blanks);
    qv::text::TextArea const& area = areaOf(text);
    EXPECT_EQ(linesOf(area), (Lines{{" "}}));
    EXPECT_EQ(area.m_lines.front().front().m_type, qv::text::TextSegment::Normal);
    EXPECT_EQ(area.m_lines.front().front().m_properties, nullptr);
  }
}

TEST_F(MigratedText, ATextWithoutLinesBecomesOneBlank) {
  EXPECT_EQ(linesOf(areaOf(Text())), (Lines{{" "}}));
}

TEST_F(MigratedText, AZeroCharacterWithinARunIsKept) {
  Text text;
  text.setText("x");
  text.m_lines.front().front().setText("a\0b", 3);
  EXPECT_EQ(linesOf(areaOf(text)), (Lines{{std::string("a\0b", 3)}}));
}

TEST_F(MigratedText, ARunOfBlanksAndAZeroCharacterIsNoBlankRun) {
  Text text;
  text.setText("x");
  text.m_lines.front().front().setText(" \0 ", 3);
  EXPECT_EQ(linesOf(areaOf(text)), (Lines{{std::string(" \0 ", 3)}}));
}

TEST_F(MigratedText, TheConverterGetsAFreshNodeNoSizeOutputAndTheName) {
  Text text;
  text.setText("x");
  areaOf(text);
  EXPECT_TRUE(lastConverterCall()->nodeWasEmpty);
  EXPECT_EQ(lastConverterCall()->nodeFill, "#010203");
  EXPECT_FALSE(lastConverterCall()->hadSizeOutput);
  EXPECT_EQ(lastConverterCall()->name, "dummyTxtBB");
}

TEST_F(MigratedText, ItsNodeIsMirroredAndAppended) {
  Text text;
  text.setText("x");
  areaOf(text);
  EXPECT_TRUE(m_done);
  ASSERT_EQ(m_children.size(), 1U);
  EXPECT_EQ(m_children[0]->m_transform, Matrix(1, 0, 0, 0, -1, 0, 0, 0, 1));
  EXPECT_EQ(m_children[0]->m_backgroundColor, "#010203");
  EXPECT_FALSE(m_children[0]->m_borderColor.has_value());
}

TEST_F(MigratedText, ALayoutThatFailsLeavesTheRootAsItWasAndWritesNoRecord) {
  Text text;
  text.setText("fail");
  areaOf(text);
  EXPECT_FALSE(m_done);
  EXPECT_TRUE(m_children.empty());
  EXPECT_EQ(m_log.texts(), Log{});
  EXPECT_EQ(migrateOne(makeText("fail")), nullptr);
  EXPECT_EQ(m_log.texts(), Log{"Fail to migrate annotation 'a' of view 'v'"});
}

TEST_F(MigratedText, ALayoutThatYieldsNothingSucceedsHere) {
  Text text;
  text.setText("none");
  areaOf(text);
  EXPECT_TRUE(m_done);
  EXPECT_EQ(m_children.size(), 1U);
}

}  // namespace
