#include "qvSystem/qvStreamVersion.h"

#include <gtest/gtest.h>

namespace {

std::uint32_t packed(std::string const& text) {
  return qv::qvStreamVersion(text).GetPacked();
}

TEST(StreamVersion, PacksMajorAbove16BitsOfMinor) {
  EXPECT_EQ(packed("6.17"), 0x60011U);
  EXPECT_EQ(packed("6.27"), 0x6001BU);
  EXPECT_EQ(packed("0.0"), 0U);
  EXPECT_EQ(packed("65535.65535"), 0xFFFFFFFFU);
  EXPECT_EQ(qv::qvStreamVersion(6, 22).GetPacked(), 0x60016U);
}

TEST(StreamVersion, LeadingZerosAreDecimalDigits) {
  EXPECT_EQ(packed("6.017"), 0x60011U);
  EXPECT_EQ(packed("006.00000000017"), 0x60011U);
}

TEST(StreamVersion, AnyOtherTextPacksToZero) {
  for (char const* const text : {"",
                                 ".",
                                 "6",
                                 "6.",
                                 ".17",
                                 "6.17.1",
                                 "6..17",
                                 "+6.1",
                                 "-6.1",
                                 "6.+1",
                                 "6.-1",
                                 " 6.1",
                                 "6.1 ",
                                 "6. 1",
                                 "6,17",
                                 "65536.0",
                                 "6.65536",
                                 "4294967302.17",
                                 "99999999999999999999.1",
                                 "0x6.0x11",
                                 "6.1a",
                                 "six.one",
                                 "6.1e1"}) {
    EXPECT_EQ(packed(text), 0U) << '"' << text << '"';
  }
  EXPECT_EQ(packed(std::string("6.17\0", 5)), 0U);
}

TEST(StreamVersion, PrintsBothPartsInDecimal) {
  EXPECT_EQ(qv::qvStreamVersion(0x60011U).toString(), "6.17");
  EXPECT_EQ(qv::qvStreamVersion(0xFFFFFFFFU).toString(), "65535.65535");
  EXPECT_EQ(qv::qvStreamVersion().toString(), "0.0");
}

TEST(StreamVersion, OrdersAsThePackedNumberDoes) {
  EXPECT_LT(qv::qvStreamVersion("6.9"), qv::qvStreamVersion("6.10"));
  EXPECT_LT(qv::qvStreamVersion("6.65535"), qv::qvStreamVersion("7.0"));
  EXPECT_EQ(qv::qvStreamVersion("6.17"), qv::qvStreamVersion(6, 17));
}

TEST(StreamVersion, GivesItsPartsBack) {
  qv::qvStreamVersion const version(0x60016U);
  EXPECT_EQ(version.GetMajor(), 6);
  EXPECT_EQ(version.GetMinor(), 22);
}

}  // namespace
