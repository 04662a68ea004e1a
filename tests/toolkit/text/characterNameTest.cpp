#include "text/characterName.h"

#include <gtest/gtest.h>

#include <string_view>

namespace {

using namespace qvToolkit;

TEST(CharacterName, IsKnownForTheSignsOfDrawings) {
  constexpr std::u32string_view Signs =
      U"\u2300\u2312\u2313\u2316\u232D\u232F\u2330\u2331\u23E4\u23E5\u25CB\u2225\u27C2\u2220"
      U"\u24C2\u24C1\u24C5\u2334\u2335\u21A7\u25A1";
  for (char32_t const sign : Signs) {
    EXPECT_NE(findCharacterName(sign), "") << formatCodePoint(sign);
  }
  EXPECT_EQ(describeCharacter(0x2300), "U+2300 DIAMETER SIGN");
  EXPECT_EQ(describeCharacter(0x24C2), "U+24C2 CIRCLED LATIN CAPITAL LETTER M");
}

TEST(CharacterName, IsOnlyTheCodePointForOthers) {
  EXPECT_EQ(describeCharacter(U'A'), "U+0041");
  EXPECT_EQ(describeCharacter(0x10FFFD), "U+10FFFD");
  EXPECT_EQ(findCharacterName(0x24D0), "");
  EXPECT_EQ(findCharacterName(0), "");
}

}  // namespace
