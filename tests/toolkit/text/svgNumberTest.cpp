#include "text/svgNumber.h"

#include <gtest/gtest.h>

#include <limits>

namespace qvToolkit {

namespace {

template <class Real>
std::string format(Real number) {
  std::string text;
  appendNumber(text, number);
  return text;
}

TEST(SvgNumber, IsTheShortestTextThatReadsBack) {
  EXPECT_EQ(format(3.17499995F), "3.175");
  EXPECT_EQ(format(0.1F), "0.1");
  EXPECT_EQ(format(0.1), "0.1");
  EXPECT_EQ(format(-12.5F), "-12.5");
}

TEST(SvgNumber, HasNoExponent) {
  EXPECT_EQ(format(1e9F), "1000000000");
  EXPECT_EQ(format(0.0000125F), "0.0000125");
}

TEST(SvgNumber, HasNoNegativeZero) {
  EXPECT_EQ(format(-0.0F), "0");
  EXPECT_EQ(format(-1e-12F), "0");
  EXPECT_EQ(format(std::numeric_limits<float>::denorm_min()), "0");
}

TEST(SvgNumber, IsDrawableUpToABillion) {
  EXPECT_TRUE(isDrawable(1e9F));
  EXPECT_TRUE(isDrawable(-1e9));
  EXPECT_FALSE(isDrawable(1.1e9F));
  EXPECT_FALSE(isDrawable(std::numeric_limits<float>::quiet_NaN()));
  EXPECT_FALSE(isDrawable(-std::numeric_limits<double>::infinity()));
}

}  // namespace

}  // namespace qvToolkit
