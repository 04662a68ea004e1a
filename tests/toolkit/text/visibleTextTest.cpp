#include "text/visibleText.h"

#include <gtest/gtest.h>

namespace qvToolkit {

namespace {

TEST(VisibleText, CountsCharactersAndNotBytes) {
  EXPECT_EQ(countVisibleCharacters(""), 0U);
  EXPECT_EQ(countVisibleCharacters("ab"), 2U);
  EXPECT_EQ(countVisibleCharacters("\u2300\U0001F600"), 2U);
}

TEST(VisibleText, PassesOverBlanksAndWhatOnlyDirectsTheLayout) {
  EXPECT_EQ(countVisibleCharacters(" \t\u00A0\u2003\u3000\u200B\u200E\u202E\u2060\uFEFF\uFE0F\u00AD"), 0U);
}

TEST(VisibleText, CountsWhatIsShownAsAReplacementCharacter) {
  EXPECT_EQ(countVisibleCharacters("\x01"), 1U);
  EXPECT_EQ(countVisibleCharacters("\xFF"), 1U);
  EXPECT_EQ(countVisibleCharacters("\n"), 1U);
}

}  // namespace

}  // namespace qvToolkit
