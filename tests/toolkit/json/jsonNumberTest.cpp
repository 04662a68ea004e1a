#include "json/jsonNumber.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>

namespace {

using namespace qvToolkit;

/// The bits, since zero has two signs.
std::uint64_t getBits(double number) {
  return std::bit_cast<std::uint64_t>(number);
}

double readExactly(std::string const& text) {
  return std::strtod(text.c_str(), nullptr);
}

TEST(ShortReal, IsTheNearestDouble) {
  std::mt19937_64 random(20);
  for (int i = 0; i < 100000; ++i) {
    std::size_t const count = 2 + random() % 14;
    std::string digits = std::to_string(random() % 9 + 1);
    while (digits.size() < count) digits += static_cast<char>('0' + random() % 10);
    digits.insert(1 + random() % (count - 1), ".");
    if (random() % 2 == 0) digits.insert(0, "-");
    auto const number = readShortReal(digits);
    ASSERT_TRUE(number.has_value()) << digits;
    ASSERT_EQ(getBits(*number), getBits(readExactly(digits))) << digits;
  }
}

TEST(ShortReal, KeepsTheSignOfZeroAndTakesAsManyDigitsAsADoubleHolds) {
  for (char const* const text : {"0.0", "-0.0", "-0.000", "0.00000000000001", "9.99999999999999",
                                 "99999999999999.9", "-12345678901234.5"}) {
    auto const number = readShortReal(text);
    ASSERT_TRUE(number.has_value()) << text;
    EXPECT_EQ(getBits(*number), getBits(readExactly(text))) << text;
  }
}

TEST(ShortReal, LeavesEverythingElseToOthers) {
  for (char const* const text : {"",
                                 "-",
                                 ".",
                                 "-.",
                                 "1",
                                 "-1",
                                 "1.",
                                 ".5",
                                 "-.5",
                                 "00.5",
                                 "01.5",
                                 "1.2.3",
                                 "1..2",
                                 "1e5",
                                 "1.5e3",
                                 "+1.5",
                                 "--1.5",
                                 "1.5 ",
                                 " 1.5",
                                 "1,5",
                                 "0x1.8",
                                 "inf",
                                 "nan",
                                 "1.000000000000000",
                                 "1234567890123456.5"}) {
    EXPECT_EQ(readShortReal(text), std::nullopt) << text;
  }
}

TEST(ShortReal, IsNeverWhatIsNoRealOfJson) {
  constexpr char Characters[] = {'0', '1', '9', '.', '-', 'e', ' '};
  std::mt19937 random(21);
  int count = 0;
  for (int i = 0; i < 200000; ++i) {
    std::string text;
    for (std::size_t left = random() % 7; left > 0; --left)
      text += Characters[random() % std::size(Characters)];
    auto const number = readShortReal(text);
    if (!number.has_value()) continue;
    ++count;
    ASSERT_EQ(getNumberForm(text), NumberForm::Real) << text;
    ASSERT_EQ(getBits(*number), getBits(readReal(text).value())) << text;
  }
  EXPECT_GT(count, 1000);
}

}  // namespace
