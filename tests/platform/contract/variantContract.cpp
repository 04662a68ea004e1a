#include <gtest/gtest.h>

#include "annotationLegacy/platform.h"
#include "ports/variant.h"

namespace {

using namespace qvLegacy::ports;

VariantMap const MAP{{"integer", 7},
                     {"real", 2.5},
                     {"text", "a"},
                     {"yes", true},
                     {"list", VariantList{1, 2}},
                     {"map", VariantMap{{"inner", 1}}}};

TEST(VariantContract, KindsAreToldApart) {
  EXPECT_TRUE(isNumber(at(MAP, "integer")) && isNumber(at(MAP, "real")));
  EXPECT_FALSE(isNumber(at(MAP, "text")) || isNumber(at(MAP, "yes")));
  EXPECT_TRUE(isString(at(MAP, "text")) && isMap(at(MAP, "map")) && isList(at(MAP, "list")));
  EXPECT_FALSE(isString(at(MAP, "yes")) || isMap(at(MAP, "list")) || isList(at(MAP, "map")));
}

TEST(VariantContract, AbsentKeysAreNullAndNullConvertsToNothing) {
  EXPECT_EQ(find(MAP, "absent"), nullptr);
  Variant const& null = at(MAP, "absent");
  EXPECT_EQ(null.toString(), "");
  EXPECT_EQ(null.toReal(), 0.0);
  EXPECT_FALSE(null.toBool());
  EXPECT_TRUE(null.toMap().empty());
  EXPECT_TRUE(elements(null).empty());
}

TEST(VariantContract, ConversionsBetweenKindsNeverFail) {
  EXPECT_EQ(at(MAP, "integer").toReal(), 7.0);
  EXPECT_EQ(at(MAP, "integer").toString(), "7");
  EXPECT_EQ(at(MAP, "real").toString(), "2.5");
  EXPECT_TRUE(at(MAP, "yes").toBool() && at(MAP, "integer").toBool());
  EXPECT_FALSE(at(MAP, "text").toBool());
  EXPECT_EQ(at(MAP, "map").toString(), "");
  EXPECT_TRUE(at(MAP, "text").toMap().empty());
}

TEST(VariantContract, TextsAreGivenUncopiedAndOnlyByTheTextKind) {
  EXPECT_EQ(ownText(at(MAP, "text")), "a");
  EXPECT_EQ(ownText(at(MAP, "integer")), "");
}

TEST(VariantContract, ElementsKeepTheirOrder) {
  ASSERT_EQ(elements(at(MAP, "list")).size(), 2U);
  EXPECT_EQ(elements(at(MAP, "list"))[1].toReal(), 2.0);
}

TEST(VariantContract, CopiesAreDeep) {
  Variant original(MAP);
  Variant const copy(original);
  original.editMap().clear();
  EXPECT_EQ(copy.toMap().size(), MAP.size());
}

TEST(VariantContract, VersionsArePackedAndAnyOtherTextIsZero) {
  EXPECT_EQ(packed(qv::qvStreamVersion("6.22")), 0x60016U);
  EXPECT_EQ(packed(qv::qvStreamVersion("6.x")), 0U);
  EXPECT_EQ(packed(qv::qvStreamVersion("")), 0U);
}

}  // namespace
