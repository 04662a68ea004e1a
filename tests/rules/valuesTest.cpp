#include "rules/values.h"

#include <gtest/gtest.h>

#include <string>

namespace qvLegacy::rules {
namespace {

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float nan = std::numeric_limits<float>::quiet_NaN();

void expectHeight(float ems, std::uint16_t hundredths, bool isExact) {
  auto const height = toHundredths(ems);
  EXPECT_EQ(height.value, hundredths) << ems;
  EXPECT_EQ(height.isExact, isExact) << ems;
}

TEST(Values, AHeightIsCutToHundredths) {
  expectHeight(12.5F, 1250, true);
  expectHeight(0.004F, 0, true);
  expectHeight(0.53F, 52, true);
  expectHeight(0.0F, 0, true);
}

TEST(Values, AHeightThatIsClampedIsNotExact) {
  expectHeight(655.35F, 65534, true);
  expectHeight(655.36F, 65534, false);
  expectHeight(-0.005F, 0, true);
  expectHeight(5000.0F, 65534, false);
  expectHeight(infinity, 65534, false);
  expectHeight(-1.0F, 0, false);
  expectHeight(nan, 0, false);
}

TEST(Values, AHeightOfWholeHundredthsLosesNothing) {
  EXPECT_TRUE(isWhole(12.34F, 1234));
  EXPECT_TRUE(isWhole(0.0F, 0));
  EXPECT_FALSE(isWhole(12.345F, 1234));
  EXPECT_FALSE(isWhole(0.53F, 52));
}

TEST(Values, RoundingToTheNearestSingleIsExact) {
  EXPECT_EQ(toSingle(0.1).value, 0.1F);
  EXPECT_TRUE(toSingle(0.1).isExact);
  EXPECT_TRUE(toSingle(1e-320).isExact);
}

TEST(Values, ANumberTooLargeForASingleIsNotExact) {
  EXPECT_EQ(toSingle(1e300).value, infinity);
  EXPECT_FALSE(toSingle(1e300).isExact);
  EXPECT_FALSE(toSingle(-1e39).isExact);
  EXPECT_TRUE(toSingle(3e38).isExact);
}

TEST(Values, AColourIsSixHexadecimalDigits) {
  auto const color = toColor("FF80a1");
  ASSERT_TRUE(color.has_value());
  EXPECT_EQ(color->value, (Rgb{255, 128, 0xA1}));
  EXPECT_TRUE(color->isExact);
}

TEST(Values, AColourThatEndsEarlyIsNotExact) {
  auto const color = toColor("12zzzz");
  ASSERT_TRUE(color.has_value());
  EXPECT_EQ(color->value, (Rgb{0, 0, 0x12}));
  EXPECT_FALSE(color->isExact);
}

TEST(Values, BlackIsOnlySixZeros) {
  EXPECT_TRUE(toColor("000000")->isExact);
  for (char const* const text : {"00000z", "zzzzzz", "0000000", "", "-00001", "0x0001"}) {
    EXPECT_FALSE(toColor(text).has_value()) << text;
  }
}

TEST(Values, ATabIsTextAndABlankIsNot) {
  EXPECT_TRUE(isBlankRun(""));
  EXPECT_TRUE(isBlankRun("   "));
  EXPECT_FALSE(isBlankRun("\t"));
  EXPECT_FALSE(isBlankRun(std::string(1, '\0')));
}

}  // namespace
}  // namespace qvLegacy::rules
