#include "text/hexadecimal.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace qvToolkit {

namespace {

TEST(Hexadecimal, HasAtLeastTheAskedDigits) {
  EXPECT_EQ(toHexNumber(0, 1), "0");
  EXPECT_EQ(toHexNumber(0, 0), "");
  EXPECT_EQ(toHexNumber(0xAB, 4), "00ab");
  EXPECT_EQ(toHexNumber(0x12345, 4), "12345");
  EXPECT_EQ(toHexNumber(std::numeric_limits<std::uint64_t>::max(), 16), "ffffffffffffffff");
}

TEST(Hexadecimal, WritesTwoDigitsForEachByte) {
  EXPECT_EQ(toHexBytes({"\x00\x0f\xf0\xff", 4}), "000ff0ff");
  EXPECT_EQ(toHexBytes("\xAB\x0C", HexCase::Upper), "AB0C");
}

TEST(Hexadecimal, KnowsItsDigits) {
  for (char const c : {'0', '9', 'a', 'f', 'A', 'F'}) EXPECT_TRUE(isHexDigit(c)) << c;
  for (char const c : {'/', ':', '`', 'g', '@', 'G', ' '}) EXPECT_FALSE(isHexDigit(c)) << c;
}

}  // namespace

}  // namespace qvToolkit
