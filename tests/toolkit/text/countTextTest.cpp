#include "text/countText.h"

#include <gtest/gtest.h>

namespace qvToolkit {

namespace {

TEST(CountText, HasThePluralForEveryCountButOne) {
  EXPECT_EQ(formatCount(0, "leader"), "0 leaders");
  EXPECT_EQ(formatCount(1, "leader"), "1 leader");
  EXPECT_EQ(formatCount(2, "leader"), "2 leaders");
}

TEST(CountText, HasTheVerbThatFitsTheCount) {
  EXPECT_EQ(formatCountIs(1, "item"), "1 item is");
  EXPECT_EQ(formatCountIs(3, "item"), "3 items are");
}

TEST(CountText, TakesAPluralOfItsOwn) {
  EXPECT_EQ(formatCount(1, "family", "families"), "1 family");
  EXPECT_EQ(formatCount(2, "family", "families"), "2 families");
}

}  // namespace

}  // namespace qvToolkit
