#include "rules/fields.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace qvLegacy::rules {
namespace {

constexpr std::uint32_t v6_16 = 0x60010;
constexpr std::uint32_t v6_17 = 0x60011;
constexpr std::uint32_t v6_21 = 0x60015;
constexpr std::uint32_t v6_22 = 0x60016;
constexpr std::uint32_t v6_26 = 0x6001A;
constexpr std::uint32_t v6_27 = 0x6001B;

std::vector<std::string> keysAt(Record const& record, std::uint32_t version) {
  std::set<std::string> keys;
  for (auto const& fields : {record.own, record.shared}) {
    for (Field const* const field : fields) {
      if (!field->key.empty() && field->isInVariants(version)) keys.emplace(field->key);
    }
  }
  return {keys.begin(), keys.end()};
}

using Keys = std::vector<std::string>;

TEST(Fields, OfAViewChangeWithItsVersion) {
  EXPECT_EQ(keysAt(records::views, v6_16), Keys{});
  EXPECT_EQ(keysAt(records::views, v6_17),
            (Keys{"axis", "name", "normal", "origin", "rasterannotations", "textannotations", "ver"}));
  EXPECT_EQ(keysAt(records::views, v6_22), (Keys{"annotations", "axis", "name", "normal", "origin", "ver"}));
  EXPECT_EQ(keysAt(records::views, v6_27),
            (Keys{"annotations", "axis", "metadata", "name", "normal", "origin", "ver"}));
}

TEST(Fields, OfATextBefore622HaveNoChildren) {
  EXPECT_EQ(keysAt(records::texts, v6_21),
            (Keys{"color", "defaulttextprop", "frameshape", "isframelocked", "isignoreztest", "isscalelocked",
                  "leaders", "lines", "measures", "name", "position", "text"}));
}

TEST(Fields, OfARasterSince622) {
  EXPECT_EQ(keysAt(records::rasters, v6_26),
            (Keys{"anchorloc", "children", "childs", "color", "frameshape", "isframelocked", "isignoreztest",
                  "isscalelocked", "leaders", "measures", "metadata", "name", "position", "rastername",
                  "sizeem", "type"}));
}

TEST(Fields, OfLeadersAreMapsSinceHeads) {
  EXPECT_EQ(keysAt(records::leaders, v6_21), Keys{});
  EXPECT_EQ(keysAt(records::leaders, v6_22), (Keys{"head", "pos"}));
  EXPECT_EQ(keysAt(records::measures, v6_21), (Keys{"A", "B", "V"}));
  EXPECT_EQ(keysAt(records::measures, v6_22), (Keys{"A", "B", "V", "arrowdir"}));
}

TEST(Fields, OfARunHoldThoseOfItsProperties) {
  EXPECT_EQ(keysAt(records::runs, v6_17), (Keys{"bold", "font", "heightem", "italic", "text", "type"}));
}

TEST(Fields, AreFoundByTheirKeys) {
  EXPECT_EQ(records::texts.find("anchorloc"), &annotation::anchor);
  EXPECT_EQ(records::texts.find("anchorloc")->names, &anchors);
  EXPECT_EQ(records::leaders.find("head")->names, &leaderHeads);
  EXPECT_EQ(records::runs.find("heightem")->form, Form::Height);
  EXPECT_EQ(records::texts.find("sizeem"), nullptr);
  EXPECT_EQ(records::texts.find(""), nullptr);
  EXPECT_EQ(records::views.find("Name"), nullptr);
}

TEST(Fields, StandInTheOrderOfTheStream) {
  std::vector<std::string> names;
  for (Field const* const field : annotation::fields) {
    if (!field->name.empty()) names.emplace_back(field->name);
  }
  EXPECT_EQ(names, (std::vector<std::string>{"name", "leader", "measure", "position", "color", "style", "sub",
                                             "metadata", "kind", "anchor"}));
}

}  // namespace
}  // namespace qvLegacy::rules
