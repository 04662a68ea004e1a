#include "qvannot/cli/nearestNames.h"

#include <gtest/gtest.h>

#include <array>

namespace qvTest {

namespace {

using namespace qvannot;

TEST(NearestNames, CountEachSlipOnce) {
  EXPECT_EQ(countSlips("migrate", "migrate"), 0U);
  EXPECT_EQ(countSlips("migrte", "migrate"), 1U) << "left out";
  EXPECT_EQ(countSlips("migraate", "migrate"), 1U) << "added";
  EXPECT_EQ(countSlips("nigrate", "migrate"), 1U) << "replaced";
  EXPECT_EQ(countSlips("imgrate", "migrate"), 1U) << "two neighbours that changed places";
  EXPECT_EQ(countSlips("igrmate", "migrate"), 2U);
  EXPECT_EQ(countSlips("", "dump"), 4U);
  EXPECT_EQ(countSlips("dump", ""), 4U);
}

TEST(NearestNames, CountTheSameInBothDirections) {
  constexpr std::array<std::string_view, 5> Words = {"", "a", "ba", "abc", "cabb"};
  for (std::string_view const a : Words) {
    for (std::string_view const b : Words) EXPECT_EQ(countSlips(a, b), countSlips(b, a)) << a << " " << b;
  }
}

TEST(NearestNames, AreSortedAndKeepTheirOrderWhereTheyAreEquallyNear) {
  constexpr std::array<std::string_view, 4> Names = {"svg", "pdf", "png", "pnm"};
  EXPECT_EQ(sortByNearness("pgn", Names), (std::vector<std::string_view>{"png", "pdf", "pnm", "svg"}));
}

TEST(NearestNames, AreSuggestedForASlipOrTwoOnly) {
  constexpr std::array<std::string_view, 3> Names = {"inspect", "dump", "--force"};
  EXPECT_EQ(suggestName("inpect", Names), "; did you mean 'inspect'?");
  EXPECT_EQ(suggestName("insepctt", Names), "; did you mean 'inspect'?");
  EXPECT_EQ(suggestName("--forse", Names), "; did you mean '--force'?");
  EXPECT_EQ(suggestName("dupm", Names), "; did you mean 'dump'?");
  EXPECT_EQ(suggestName("melt", Names), "");
  EXPECT_EQ(suggestName("", Names), "");
  EXPECT_EQ(suggestName("dump", {}), "");
}

TEST(NearestNames, AreSuggestedForABeginningThatOnlyOneHas) {
  constexpr std::array<std::string_view, 4> Names = {"--output", "--max-memory", "--max-views", "inspect"};
  EXPECT_EQ(suggestName("--out", Names), "; did you mean '--output'?");
  EXPECT_EQ(suggestName("ins", Names), "; did you mean 'inspect'?");
  EXPECT_EQ(suggestName("--max", Names), "");
}

TEST(NearestNames, TakeNoTimeForATextOfAnyLength) {
  constexpr std::array<std::string_view, 2> Names = {"inspect", "dump"};
  std::string const text(10'000'000, 'd');
  EXPECT_EQ(suggestName(text, Names), "");
  EXPECT_EQ(sortByNearness(text, Names).size(), 2U);
}

}  // namespace

}  // namespace qvTest
