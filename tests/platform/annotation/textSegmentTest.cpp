#include "qvAnnotation/textSegment.h"

#include <gtest/gtest.h>

#include <utility>

#include "qvAnnotation/textArea.h"

namespace qv::text {
namespace {

TEST(TextSegment, StartsEmptyNormalAndWithoutProperties) {
  TextSegment const segment;
  EXPECT_EQ(segment.getText(), "");
  EXPECT_EQ(segment.m_type, TextSegment::Normal);
  EXPECT_EQ(segment.m_properties, nullptr);
}

TEST(TextSegment, KeepsTheGivenNumberOfBytesWithZeroesAmongThem) {
  TextSegment segment;
  segment.setText("a\0b!", 3);
  EXPECT_EQ(segment.getText(), std::string("a\0b", 3));
  segment.setText("xyz", 0);
  EXPECT_EQ(segment.getText(), "");
  segment.setText("xyz", 3);
  segment.setText(nullptr, 5);
  EXPECT_EQ(segment.getText(), "");
}

TEST(TextSegment, TakesAPieceOfItsOwnText) {
  TextSegment segment;
  segment.setText("abcdef", 6);
  segment.setText(segment.getText().data() + 2, 3);
  EXPECT_EQ(segment.getText(), "cde");
}

TEST(TextSegment, OwnsACopyOfTheProperties) {
  TextProperties properties{.m_size = 7.0F, .m_fontName = "Courier New", .m_bold = true, .m_italic = false};
  TextSegment const segment("x", TextSegment::Subscript, properties);
  properties.m_size = 1.0F;
  ASSERT_NE(segment.m_properties, nullptr);
  EXPECT_EQ(segment.m_properties->m_size, 7.0F);
  EXPECT_EQ(segment.m_type, TextSegment::Subscript);
}

TEST(TextSegment, CopiesAreIndependent) {
  TextSegment const original("x", TextSegment::Superscript, TextProperties());
  TextSegment copy(original);
  EXPECT_NE(copy.m_properties, original.m_properties);
  EXPECT_EQ(*copy.m_properties, *original.m_properties);
  copy.m_properties->m_bold = true;
  EXPECT_FALSE(original.m_properties->m_bold);

  TextSegment assigned;
  assigned = original;
  EXPECT_EQ(assigned.getText(), "x");
  EXPECT_EQ(assigned.m_type, TextSegment::Superscript);
  assigned = TextSegment();
  EXPECT_EQ(assigned.m_properties, nullptr);
  EXPECT_EQ(assigned.getText(), "");
}

TEST(TextSegment, SurvivesAssignmentToItself) {
  TextSegment segment("x", TextSegment::Superscript, TextProperties());
  TextSegment const& same = segment;
  segment = same;
  EXPECT_EQ(segment.getText(), "x");
  ASSERT_NE(segment.m_properties, nullptr);
}

TEST(TextSegment, MovesWithItsProperties) {
  TextSegment source("x", TextSegment::Subscript, TextProperties());
  TextSegment const target(std::move(source));
  EXPECT_EQ(target.getText(), "x");
  EXPECT_NE(target.m_properties, nullptr);
}

TEST(TextArea, StartsWithoutLinesInBlackArialOfOneLegacyUnit) {
  TextArea const area;
  EXPECT_TRUE(area.m_lines.empty());
  EXPECT_EQ(area.m_textColor, (Wm4::Vector3<unsigned char>(0, 0, 0)));
  EXPECT_EQ(area.m_defaultProperties.m_fontName, "Arial");
  EXPECT_EQ(area.m_defaultProperties.m_size, 3.175F);
}

}  // namespace
}  // namespace qv::text
