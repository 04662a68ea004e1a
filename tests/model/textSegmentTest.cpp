#include <gtest/gtest.h>

#include <string>

#include "annotationLegacy/qvAnnotationText.h"

namespace {

using TextProperties = qvLegacy::qvAnnotationText::TextProperties;
using TextSegment = qvLegacy::qvAnnotationText::TextSegment;

std::string const LONG_TEXT(70'000, 'x');

TEST(TextSegment, IsEmptyAndNormalByDefault) {
  TextSegment const run;
  EXPECT_EQ(run.m_text, nullptr);
  EXPECT_EQ(run.m_textProperties, nullptr);
  EXPECT_EQ(run.m_length, 0);
  EXPECT_EQ(run.m_type, TextSegment::Normal);
  EXPECT_STREQ(run.getText(), "");
}

TEST(TextSegment, IsMadeFromATextAndAType) {
  TextSegment const fromArray("abc", TextSegment::Subscript);
  EXPECT_STREQ(fromArray.getText(), "abc");
  EXPECT_EQ(fromArray.m_length, 3);
  EXPECT_EQ(fromArray.m_type, TextSegment::Subscript);
  TextSegment const fromString(std::string("a\0b", 3), TextSegment::Superscript);
  EXPECT_EQ(fromString.m_length, 3);
  EXPECT_EQ(fromString.m_type, TextSegment::Superscript);
}

TEST(TextSegment, LengthZeroMeansUpToTheTerminatingZero) {
  TextSegment run;
  run.setText("abc", 0);
  EXPECT_EQ(run.m_length, 3);
  run.setText("abc", 2);
  EXPECT_EQ(run.m_length, 2);
  EXPECT_STREQ(run.getText(), "ab");
}

TEST(TextSegment, NullOrEmptyTextLeavesNone) {
  TextSegment run("abc", TextSegment::Normal);
  run.setText("", 0);
  EXPECT_EQ(run.m_text, nullptr);
  EXPECT_EQ(run.m_length, 0);
  run.setText("abc", 0);
  run.setText(nullptr, 5);
  EXPECT_EQ(run.m_text, nullptr);
  EXPECT_EQ(run.m_length, 0);
  run.setText("abc", 0);
  run.setText(std::string());
  EXPECT_EQ(run.m_text, nullptr);
}

TEST(TextSegment, KeepsTheFirst65535Characters) {
  TextSegment run;
  for (std::size_t const length : {65'535U, 65'536U, 70'000U}) {
    run.setText(LONG_TEXT.substr(0, length));
    EXPECT_EQ(run.m_length, 65'535) << length;
    EXPECT_EQ(std::string(run.getText()).size(), 65'535U);
  }
  run.setText(LONG_TEXT.c_str(), 0);
  EXPECT_EQ(run.m_length, 65'535);
}

TEST(TextSegment, KeepsZeroCharactersWithinTheLength) {
  TextSegment run;
  run.setText(std::string("a\0b", 3));
  EXPECT_EQ(run.m_length, 3);
  EXPECT_EQ(std::string(run.m_text.get(), 4), std::string("a\0b\0", 4));
  run.setText(std::string(1, '\0'));
  EXPECT_EQ(run.m_length, 1);
}

TEST(TextSegment, TakesItsOwnTextAsIfItHadBeenCopiedFirst) {
  TextSegment run("abcdef", TextSegment::Normal);
  run.setText(run.getText(), 0);
  EXPECT_STREQ(run.getText(), "abcdef");
  run.setText(run.getText() + 2, 3);
  EXPECT_STREQ(run.getText(), "cde");
}

TEST(TextSegment, CopyEndsAtTheFirstZeroCharacter) {
  TextSegment source(std::string("a\0b", 3), TextSegment::Subscript);
  TextSegment const copy(source);
  EXPECT_EQ(copy.m_length, 1);
  EXPECT_STREQ(copy.getText(), "a");
  EXPECT_EQ(copy.m_type, TextSegment::Subscript);
  source.setText(std::string("\0b", 2));
  EXPECT_EQ(TextSegment(source).m_text, nullptr);
}

TEST(TextSegment, AssignmentDropsPropertiesThatTheSourceDoesNotHave) {
  TextSegment target("t", TextSegment::Normal);
  target.setTextProperties(TextProperties("F", 2.0F));
  target = TextSegment("s", TextSegment::Superscript);
  EXPECT_EQ(target.m_textProperties, nullptr);
  EXPECT_STREQ(target.getText(), "s");
  EXPECT_EQ(target.m_type, TextSegment::Superscript);
}

TEST(TextSegment, AssignmentCopiesPropertiesForItself) {
  TextSegment source("s", TextSegment::Normal);
  source.setTextProperties(TextProperties("F", 2.0F));
  TextSegment target;
  target = source;
  ASSERT_NE(target.m_textProperties, nullptr);
  EXPECT_NE(target.m_textProperties, source.m_textProperties);
  EXPECT_EQ(target.m_textProperties->m_fontName, "F");
}

TEST(TextSegment, AssignmentToItselfChangesNothing) {
  TextSegment run(std::string("a\0b", 3), TextSegment::Normal);
  run.setTextProperties(TextProperties("F", 2.0F));
  TextSegment const& same = run;
  run = same;
  EXPECT_EQ(run.m_length, 3);
  EXPECT_NE(run.m_textProperties, nullptr);
}

TEST(TextSegment, PropertiesAreCreatedThenAssignedInPlaceThenCleared) {
  TextSegment run;
  run.setTextProperties(TextProperties("F", 2.0F));
  auto const* const created = run.m_textProperties.get();
  ASSERT_NE(created, nullptr);
  EXPECT_EQ(created->m_height, 200);
  run.setTextProperties(TextProperties("G", 3.0F));
  EXPECT_EQ(run.m_textProperties.get(), created);
  EXPECT_EQ(created->m_fontName, "G");
  run.setTextProperties(*run.m_textProperties);
  EXPECT_EQ(created->m_fontName, "G");
  run.clearTextProperties();
  EXPECT_EQ(run.m_textProperties, nullptr);
}

TEST(TextSegment, EveryTypeButNormalIsScaledDown) {
  EXPECT_EQ(TextSegment::GetFontScaleFactor(TextSegment::Normal), 1.0F);
  for (int const type : {1, 2, 7, 255}) {
    EXPECT_EQ(TextSegment::GetFontScaleFactor(static_cast<TextSegment::SegmentType>(type)), 0.63F) << type;
  }
}

}  // namespace
