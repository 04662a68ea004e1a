#include "qvSystem/qvVariant.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using qv::qvVariant;
using Kind = qv::qvVariant::Kind;
using Map = qv::qvVariant::qvVariantMapImpl;
using List = qv::qvVariant::qvVariantListImpl;

static_assert(sizeof(qvVariant) == 16);
static_assert(static_cast<int>(Kind::Null) == 0 && static_cast<int>(Kind::Integer) == 1);
static_assert(static_cast<int>(Kind::Real) == 2 && static_cast<int>(Kind::String) == 3);
static_assert(static_cast<int>(Kind::Bool) == 4);
static_assert(static_cast<int>(Kind::Map) == 10 && static_cast<int>(Kind::List) == 11);

TEST(Variant, TakesItsKindFromTheValue) {
  EXPECT_EQ(qvVariant().getKind(), Kind::Null);
  EXPECT_EQ(qvVariant(7).getKind(), Kind::Integer);
  EXPECT_EQ(qvVariant(std::int64_t{7}).getKind(), Kind::Integer);
  EXPECT_EQ(qvVariant(7.0).getKind(), Kind::Real);
  EXPECT_EQ(qvVariant(true).getKind(), Kind::Bool);
  EXPECT_EQ(qvVariant("true").getKind(), Kind::String);
  EXPECT_EQ(qvVariant(std::string()).getKind(), Kind::String);
  EXPECT_EQ(qvVariant(Map()).getKind(), Kind::Map);
  EXPECT_EQ(qvVariant(List()).getKind(), Kind::List);
}

TEST(Variant, OnlyIntegerAndRealAreNumbers) {
  EXPECT_TRUE(qvVariant(1).isNumber());
  EXPECT_TRUE(qvVariant(1.0).isNumber());
  EXPECT_FALSE(qvVariant(true).isNumber());
  EXPECT_FALSE(qvVariant("1").isNumber());
  EXPECT_FALSE(qvVariant().isNumber());
}

TEST(Variant, ANullCharacterPointerIsTheEmptyString) {
  qvVariant const value(static_cast<char const*>(nullptr));
  EXPECT_TRUE(value.isString());
  EXPECT_EQ(value.getString(), "");
}

TEST(Variant, KeepsZeroCharactersInStrings) {
  qvVariant const value(std::string("a\0b", 3));
  EXPECT_EQ(value.getString().size(), 3U);
  EXPECT_EQ(value.toString().size(), 3U);
}

TEST(Variant, CopiesAreDeep) {
  qvVariant original(Map{{"list", List{1, "two"}}});
  qvVariant copy = original;
  copy.editMap()["list"].editList()[1] = 2;
  EXPECT_EQ(original.toMap().find("list")->second.toList()[1].getString(), "two");
  EXPECT_EQ(copy.toMap().find("list")->second.toList()[1].toInteger(), 2);
}

TEST(Variant, AMovedFromVariantIsNull) {
  qvVariant source(List{1, 2});
  qvVariant const target = std::move(source);
  EXPECT_TRUE(source.isNull());  // NOLINT(bugprone-use-after-move): the state after it is promised
  EXPECT_EQ(target.toList().size(), 2U);
}

TEST(Variant, SelfAssignmentChangesNothing) {
  qvVariant value(List{1, "x"});
  qvVariant& alias = value;
  value = alias;
  EXPECT_EQ(value, qvVariant(List{1, "x"}));
  value = std::move(alias);
  EXPECT_EQ(value, qvVariant(List{1, "x"}));
}

TEST(Variant, CanBeAssignedAPartOfItself) {
  qvVariant copied(Map{{"a", Map{{"b", "deep"}}}});
  copied = copied.toMap().find("a")->second;
  EXPECT_EQ(copied, qvVariant(Map{{"b", "deep"}}));
  qvVariant moved(List{List{"x", 1}});
  moved = std::move(moved.editList()[0]);
  EXPECT_EQ(moved, qvVariant(List{"x", 1}));
}

TEST(Variant, EditingMakesAnEmptyContainerOfAnotherKind) {
  qvVariant value("text");
  EXPECT_TRUE(value.editMap().empty());
  EXPECT_TRUE(value.isMap());
  value.editMap()["k"] = 1;
  EXPECT_TRUE(value.editList().empty());
  EXPECT_TRUE(value.isList());
}

TEST(Variant, MapsAreSortedByTheBytesOfTheirKeys) {
  Map const map{{"b", 1}, {"\xC3\xA9", 2}, {"B", 3}, {"", 4}};
  std::string order;
  for (auto const& [key, value] : map) order += value.toString();
  EXPECT_EQ(order, "4312");
}

TEST(Variant, EqualMeansSameKindAndSameValue) {
  EXPECT_EQ(qvVariant(), qvVariant());
  EXPECT_EQ(qvVariant(1), qvVariant(std::int64_t{1}));
  EXPECT_NE(qvVariant(1), qvVariant(1.0));
  EXPECT_NE(qvVariant(1), qvVariant(true));
  EXPECT_NE(qvVariant("1"), qvVariant(1));
  EXPECT_NE(qvVariant(Map()), qvVariant(List()));
  EXPECT_NE(qvVariant("a"), qvVariant("b"));
  EXPECT_EQ(qvVariant(0.0), qvVariant(-0.0));
}

TEST(Variant, NaNEqualsNothing) {
  qvVariant const nan(std::numeric_limits<double>::quiet_NaN());
  EXPECT_FALSE(nan == nan);
  EXPECT_FALSE(qvVariant(List{nan}) == qvVariant(List{nan}));
}

TEST(Variant, ContainersAreEqualWhenTheirContentIs) {
  EXPECT_EQ(qvVariant(Map{{"a", List{1, 2}}}), qvVariant(Map{{"a", List{1, 2}}}));
  EXPECT_NE(qvVariant(Map{{"a", 1}}), qvVariant(Map{{"b", 1}}));
  EXPECT_NE(qvVariant(Map{{"a", 1}}), qvVariant(Map{{"a", 1}, {"b", 1}}));
  EXPECT_NE(qvVariant(List{1, 2}), qvVariant(List{2, 1}));
  EXPECT_NE(qvVariant(List{1}), qvVariant(List{1, 1}));
}

}  // namespace
