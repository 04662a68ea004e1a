#include <gtest/gtest.h>

#include "tests/support/exportSupport.h"

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationText;
using qvTest::select;
using Text = qv::qvPointer<qvAnnotationText>;
using Run = qvAnnotationText::TextSegment;

/// A text of one line.
Text makeLine(std::vector<std::string> const& runs) {
  Text text = qvTest::makeLegacyText("");
  text->m_defaultTextProperties.m_fontName = "Liberation Sans";
  text->m_lines.front().clear();
  for (std::string const& run : runs) text->m_lines.front().emplace_back(run, Run::Normal);
  return text;
}

Findings find(Text const& text, FindingCode code) {
  auto const view = qvTest::makeLegacyView();
  view->m_annotations.push_back(text.get());
  qvTest::Migrated const migrated = qvTest::migrate(view);
  EXPECT_NE(migrated.m_view, nullptr);
  return select(migrated.m_findings, code);
}

void setHeight(Run& run, std::uint16_t height) {
  qvAnnotationText::TextProperties properties;
  properties.m_height = height;
  run.setTextProperties(properties);
}

TEST(TextFindings, CountTheCharactersWithoutHeight) {
  Text const text = makeLine({"a\u00F6 b", "cd"});
  text->m_defaultTextProperties.m_height = 0;
  setHeight(text->m_lines.front().back(), 1);
  Findings const found = find(text, FindingCode::TextNoHeight);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].m_severity, Severity::Error);
  EXPECT_EQ(found[0].m_address, "view/0/annot/0");
  EXPECT_EQ(found[0].m_text,
            "3 characters of height 0 not drawn; a height below 0.01, or one that is no number, counts as 0");
  setHeight(text->m_lines.front().back(), 0);
  EXPECT_TRUE(find(text, FindingCode::TextNoHeight).at(0).m_text.starts_with("5 characters "));
}

TEST(TextFindings, KeepQuietAboutAHeightThatNoCharacterHas) {
  Text const own = makeLine({"ab"});
  own->m_defaultTextProperties.m_height = 0;
  setHeight(own->m_lines.front().front(), 350);
  EXPECT_TRUE(find(own, FindingCode::TextNoHeight).empty());
  Text const blank = makeLine({" ", "\t\u00A0"});
  blank->m_defaultTextProperties.m_height = 0;
  EXPECT_TRUE(find(blank, FindingCode::TextNoHeight).empty());
}

TEST(TextFindings, TellOfBlanksThatAreLeftOutBetweenTexts) {
  Findings const found = find(makeLine({" ", "a", "   ", "", " ", "b", " "}), FindingCode::BlankRunSkipped);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].m_severity, Severity::Warning);
  EXPECT_EQ(found[0].m_text, "3 runs of blanks within lines left out; what follows moves closer");
  EXPECT_TRUE(find(makeLine({"a", "", "b", "  "}), FindingCode::BlankRunSkipped).empty());
  EXPECT_TRUE(find(makeLine({" ", " "}), FindingCode::BlankRunSkipped).empty());
}

TEST(TextFindings, NameRunTypesThatDoNotExist) {
  Text const text = makeLine({"a", "b"});
  text->m_lines.front().front().m_type = Run::Superscript;
  text->m_lines.front().back().m_type = static_cast<Run::SegmentType>(7);
  Findings const found = find(text, FindingCode::ValueUnknown);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].m_text, "run type 7 is unknown, expected 0 to 2; the run is a normal one");
}

TEST(TextFindings, TellOfTextOnABackgroundThatIsNearlyAsDark) {
  Text const text = makeLine({"a"});
  text->m_color = {0, 0, 128};
  Findings const found = find(text, FindingCode::TextLowContrast);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].m_severity, Severity::Warning);
  EXPECT_EQ(found[0].m_text, "the text is hard to see: black on #000080");
  using Color = Wm4::Vector3<unsigned char>;
  for (Color const& readable :
       {Color(0, 0, 0), Color(0, 0, 2), Color(0, 0, 255), Color(255, 0, 0), Color(64, 64, 64)}) {
    text->m_color = readable;
    EXPECT_TRUE(find(text, FindingCode::TextLowContrast).empty()) << static_cast<int>(readable.Z());
  }
  Text const blank = makeLine({" "});
  blank->m_color = {0, 0, 128};
  EXPECT_TRUE(find(blank, FindingCode::TextLowContrast).empty());
}

}  // namespace

}  // namespace qvToolkit
