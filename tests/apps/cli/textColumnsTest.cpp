#include "qvannot/cli/textColumns.h"

#include <gtest/gtest.h>

#include <array>

namespace qvTest {

namespace {

using namespace qvannot;

TEST(TextColumns, BreaksLinesAtBlanks) {
  EXPECT_EQ(wrapText("one two three", 7), "one two\nthree\n");
  EXPECT_EQ(wrapText("one two three", 8), "one two\nthree\n");
  EXPECT_EQ(wrapText("one two", 7), "one two\n");
  EXPECT_EQ(wrapText("", 7), "\n");
}

TEST(TextColumns, IndentsAllLinesButTheFirst) {
  EXPECT_EQ(wrapText("one two three", 9, 2), "one two\n  three\n");
}

TEST(TextColumns, KeepsAWordThatIsLongerThanALine) {
  EXPECT_EQ(wrapText("a immeasurable b", 5), "a\nimmeasurable\nb\n");
  EXPECT_EQ(wrapText("immeasurable", 5), "immeasurable\n");
}

TEST(TextColumns, PadsWhatIsShorterThanAColumn) {
  EXPECT_EQ(padText("ab", 4), "ab  ");
  EXPECT_EQ(padText("abcde", 4), "abcde");
}

TEST(TextColumns, JoinsWordsWithASeparatorBetweenThem) {
  constexpr std::array<std::string_view, 3> Words = {"svg", "png", "pdf"};
  EXPECT_EQ(joinWords(Words, ", "), "svg, png, pdf");
  EXPECT_EQ(joinWords({}, ", "), "");
}

}  // namespace

}  // namespace qvTest
