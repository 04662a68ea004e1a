#include "rules/messages.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace qvLegacy::rules {
namespace {

TEST(Messages, AreAllDifferent) {
  std::set<std::string> texts;
  for (Message const& message : readerMessages)
    EXPECT_TRUE(texts.insert(message.text).second) << message.text;
  EXPECT_EQ(texts.size(), 27U);
}

TEST(Messages, OfAViewThatIsRefusedCostTheView) {
  for (char const* const text : {"missing 'annotations' field", "invalid 'textannotations' field",
                                 "missing 'rasterannotations' field", "invalid version 6.16"}) {
    EXPECT_EQ(costOf(text), Cost::View) << text;
  }
}

TEST(Messages, OfALeaderThatIsNotReadCostContent) {
  for (char const* const text : {"invalid 'leaders' field", "invalid 'measures' field content",
                                 "invalid line", "invalid annotation type", "invalid 'sizeem' length"}) {
    EXPECT_EQ(costOf(text), Cost::Content) << text;
  }
}

TEST(Messages, OfThePlaneOfAViewCostItsPlace) {
  for (char const* const text :
       {"invalid 'origin' field", "invalid 'normal' field", "invalid 'axis' field"}) {
    EXPECT_EQ(costOf(text), Cost::Content) << text;
  }
}

TEST(Messages, OfAValueWithADefaultCostOnlyLook) {
  for (char const* const text :
       {"invalid 'color' field", "invalid 'metadata' field", "invalid 'defaulttextprop' field"}) {
    EXPECT_EQ(costOf(text), Cost::Look) << text;
  }
}

}  // namespace
}  // namespace qvLegacy::rules
