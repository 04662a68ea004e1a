#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>

#include "qvSystem/qvVariant.h"
#include "tests/environment/decimalComma.h"

namespace {

using qv::qvVariant;
using Map = qv::qvVariant::qvVariantMapImpl;
using List = qv::qvVariant::qvVariantListImpl;

constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

struct Row {
  char const* m_name;
  qvVariant m_value;
  std::int64_t m_integer;
  double m_real;
  bool m_bool;
  char const* m_text;
};

class EveryKind : public ::testing::TestWithParam<Row> {};

TEST_P(EveryKind, ConvertsToEveryKind) {
  Row const& row = GetParam();
  EXPECT_EQ(row.m_value.toInteger(), row.m_integer);
  EXPECT_EQ(row.m_value.toReal(), row.m_real);
  EXPECT_EQ(row.m_value.toBool(), row.m_bool);
  EXPECT_EQ(row.m_value.toString(), row.m_text);
  EXPECT_EQ(row.m_value.toMap().size(), row.m_value.isMap() ? 1U : 0U);
  EXPECT_EQ(row.m_value.toList().size(), row.m_value.isList() ? 1U : 0U);
  EXPECT_EQ(row.m_value.getString(), row.m_value.isString() ? row.m_text : "");
}

INSTANTIATE_TEST_SUITE_P(
    Variant, EveryKind,
    ::testing::Values(
        Row{"null", qvVariant(), 0, 0.0, false, ""}, Row{"zero", 0, 0, 0.0, false, "0"},
        Row{"minus", -12, -12, -12.0, true, "-12"},
        Row{"smallest", smallest, smallest, -9223372036854775808.0, true, "-9223372036854775808"},
        Row{"largest", largest, largest, 9223372036854775808.0, true, "9223372036854775807"},
        Row{"realZero", 0.0, 0, 0.0, false, "0"}, Row{"realHalf", 0.5, 0, 0.5, true, "0.5"},
        Row{"realMinus", -7.9, -7, -7.9, true, "-7.9"}, Row{"realTenth", 0.1, 0, 0.1, true, "0.1"},
        Row{"realLarge", 1e22, largest, 1e22, true, "1e+22"}, Row{"true", true, 1, 1.0, true, "true"},
        Row{"false", false, 0, 0.0, false, "false"}, Row{"text", "text", 0, 0.0, false, "text"},
        Row{"textTrue", "true", 0, 0.0, true, "true"}, Row{"textOne", "1", 1, 1.0, true, "1"},
        Row{"map", Map{{"k", 1}}, 0, 0.0, false, ""}, Row{"list", List{1}, 0, 0.0, false, ""}),
    [](auto const& test) { return test.param.m_name; });

TEST(VariantToInteger, RealsSaturateAtTheLimits) {
  EXPECT_EQ(qvVariant(9223372036854775808.0).toInteger(), largest);
  EXPECT_EQ(qvVariant(-9223372036854775808.0).toInteger(), smallest);
  EXPECT_EQ(qvVariant(-9223372036854777856.0).toInteger(), smallest);
  EXPECT_EQ(qvVariant(9223372036854774784.0).toInteger(), 9223372036854774784);
  EXPECT_EQ(qvVariant(infinity).toInteger(), largest);
  EXPECT_EQ(qvVariant(-infinity).toInteger(), smallest);
}

TEST(VariantToInteger, NaNGivesZero) {
  EXPECT_EQ(qvVariant(nan).toInteger(), 0);
}

TEST(VariantToInteger, ATextGivesWhatItsNumberGives) {
  EXPECT_EQ(qvVariant("9223372036854775807").toInteger(), largest);
  EXPECT_EQ(qvVariant("9223372036854775808").toInteger(), largest);
  EXPECT_EQ(qvVariant("-99999999999999999999").toInteger(), smallest);
  EXPECT_EQ(qvVariant("007").toInteger(), 7);
  EXPECT_EQ(qvVariant("-7.9").toInteger(), -7);
  EXPECT_EQ(qvVariant("1e5").toInteger(), 100000);
  EXPECT_EQ(qvVariant(".5").toInteger(), 0);
}

TEST(VariantFromText, OnlyAWholeDecimalNumberCounts) {
  for (char const* const text : {"", " ", " 7", "7 ", "+7", "7x", "x7", "0x10", "1e", "1e+", "--1", "1,5",
                                 "inf", "-inf", "nan", "infinity", "7\n", "1_000"}) {
    EXPECT_EQ(qvVariant(text).toInteger(), 0) << '"' << text << '"';
    EXPECT_EQ(qvVariant(text).toReal(), 0.0) << '"' << text << '"';
    EXPECT_FALSE(qvVariant(text).toBool()) << '"' << text << '"';
  }
  EXPECT_EQ(qvVariant(std::string("7\0", 2)).toInteger(), 0);
}

TEST(VariantToReal, ReadsDecimalNumbers) {
  EXPECT_EQ(qvVariant("1e5").toReal(), 100000.0);
  EXPECT_EQ(qvVariant("-0.25").toReal(), -0.25);
  EXPECT_EQ(qvVariant("1E-3").toReal(), 0.001);
  EXPECT_EQ(qvVariant("9007199254740993").toReal(), 9007199254740992.0);
}

TEST(VariantToReal, ANumberOutOfRangeGivesZero) {
  EXPECT_EQ(qvVariant("1e999").toReal(), 0.0);
  EXPECT_EQ(qvVariant("-1e999").toReal(), 0.0);
  EXPECT_EQ(qvVariant("1e999").toInteger(), 0);
}

TEST(VariantToBool, NumbersAreTrueUnlessZero) {
  EXPECT_TRUE(qvVariant(nan).toBool());
  EXPECT_FALSE(qvVariant(-0.0).toBool());
  EXPECT_TRUE(qvVariant("0.5").toBool());
  EXPECT_FALSE(qvVariant("0.0").toBool());
  EXPECT_FALSE(qvVariant("TRUE").toBool());
  EXPECT_FALSE(qvVariant("false").toBool());
}

TEST(VariantToString, RealsHaveTheShortestFormThatReadsBack) {
  for (double const value : {0.1, 1.0 / 3.0, 5e-324, 1.7976931348623157e308, -2.5, 123456789.125}) {
    EXPECT_EQ(qvVariant(qvVariant(value).toString()).toReal(), value);
  }
  EXPECT_EQ(qvVariant(2.0).toString(), "2");
  EXPECT_EQ(qvVariant(-0.0).toString(), "-0");
  EXPECT_EQ(qvVariant(infinity).toString(), "inf");
  EXPECT_EQ(qvVariant(nan).toString(), "nan");
}

TEST(VariantConversions, DoNotDependOnTheLocale) {
  std::string const before = std::setlocale(LC_ALL, nullptr);
  if (std::setlocale(LC_ALL, qvTest::DecimalComma) == nullptr) GTEST_SKIP() << qvTest::NoDecimalComma;
  ASSERT_STREQ(std::localeconv()->decimal_point, ",");
  EXPECT_EQ(qvVariant(1234567.5).toString(), "1234567.5");
  EXPECT_EQ(qvVariant("1234.5").toReal(), 1234.5);
  EXPECT_EQ(qvVariant("1234,5").toReal(), 0.0);
  std::setlocale(LC_ALL, before.c_str());
}

}  // namespace
