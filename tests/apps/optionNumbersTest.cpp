#include "apps/qvannot/optionNumbers.h"

#include <gtest/gtest.h>

#include <limits>

namespace qvannot {

namespace {

constexpr CountRange Any{0, std::numeric_limits<std::uint64_t>::max()};

TEST(OptionNumbers, AreDecimalDigitsAndNothingElse) {
  EXPECT_EQ(readCount("0", Any), 0U);
  EXPECT_EQ(readCount("18446744073709551615", Any), std::numeric_limits<std::uint64_t>::max());
  for (char const* const text : {"", " ", " 1", "1 ", "+1", "-0", "-1", "1.0", "1e3", "0x1", "1K", "one",
                                 "nan", "inf", "18446744073709551616"}) {
    EXPECT_FALSE(readCount(text, Any).has_value()) << text;
  }
}

TEST(OptionNumbers, LieWithinTheirRangeBothEndsIncluded) {
  CountRange const range{10, 2400};
  EXPECT_EQ(readCount("10", range), 10U);
  EXPECT_EQ(readCount("2400", range), 2400U);
  EXPECT_FALSE(readCount("9", range).has_value());
  EXPECT_FALSE(readCount("2401", range).has_value());
  EXPECT_EQ(readSize("1K", {1024, 2048}), 1024U);
  EXPECT_FALSE(readSize("3K", {1024, 2048}).has_value());
  EXPECT_FALSE(readSize("1023", {1024, 2048}).has_value());
}

TEST(OptionNumbers, OfSizesHaveALetterOrNone) {
  EXPECT_EQ(readSize("512", Any), 512U);
  EXPECT_EQ(readSize("3K", Any), 3U << 10);
  EXPECT_EQ(readSize("3M", Any), 3U << 20);
  EXPECT_EQ(readSize("2G", Any), std::uint64_t{2} << 30);
  EXPECT_EQ(readSize("16777215T", Any), std::uint64_t{16777215} << 40);
  for (char const* const text : {"", "K", "KK", "1KK", "1k", "1KB", "1P", "-1K", "1.5K", "16777216T"}) {
    EXPECT_FALSE(readSize(text, Any).has_value()) << text;
  }
}

TEST(OptionNumbers, OfOffsetsMayBeHexadecimal) {
  EXPECT_EQ(readOffset("288"), 288U);
  EXPECT_EQ(readOffset("0x120"), 288U);
  EXPECT_EQ(readOffset("0xfF"), 255U);
  for (char const* const text : {"", "0x", "120h", "0X10", "x10", "0x-1", "-1", "0x10000000000000000"}) {
    EXPECT_FALSE(readOffset(text).has_value()) << text;
  }
}

TEST(OptionNumbers, OfLengthsAreFiniteAndInRange) {
  EXPECT_EQ(readLength("2.5", HeadSizes), 2.5F);
  EXPECT_EQ(readLength("1e1", HeadSizes), 10.0F);
  EXPECT_EQ(readLength(formatLength(HeadSizes.m_least), HeadSizes), HeadSizes.m_least);
  EXPECT_EQ(readLength(formatLength(HeadSizes.m_most), HeadSizes), HeadSizes.m_most);
  for (char const* const text : {"",      "nan", "-nan", "nan(1)", "inf",   "-inf",   "infinity", "0",
                                 "-0",    "0.0", "-8",   "1e-45",  "1e-99", "0.0009", "1000.1",   "1e38",
                                 "1e999", "+3",  " 3",   "3 ",     "3mm",   "3,5",    "0x1p3",    "three"}) {
    EXPECT_FALSE(readLength(text, HeadSizes).has_value()) << text;
  }
}

TEST(OptionNumbers, AreShownInTheFormThatIsRead) {
  EXPECT_EQ(formatSize(1), "1");
  EXPECT_EQ(formatSize(1000), "1000");
  EXPECT_EQ(formatSize(16 << 10), "16K");
  EXPECT_EQ(formatSize(std::uint64_t{1} << 60), "1048576T");
  EXPECT_EQ(formatSize(0), "0");
  EXPECT_EQ(formatLength(0.001F), "0.001");
  EXPECT_EQ(formatLength(1000.0F), "1000");
  EXPECT_EQ(refuseNumber("x", "number", "1", "9"), "'x' is no number from 1 to 9");
}

}  // namespace

}  // namespace qvannot
