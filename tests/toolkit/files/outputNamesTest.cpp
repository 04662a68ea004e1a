#include <gtest/gtest.h>

#include "qvToolkit/files/outputSet.h"

namespace qvToolkit {

namespace {

TEST(OutputNames, AreTheInputsNameWithoutItsExtension) {
  EXPECT_EQ(makeStem("old/part_6.27.json"), "part_6.27");
  EXPECT_EQ(makeStem("part"), "part");
  EXPECT_EQ(makeStem("-"), "stdin");
}

TEST(OutputNames, HoldNothingThatAShellOrFileSystemMinds) {
  EXPECT_EQ(makeStem("a/.hidden.json"), "_hidden");
  EXPECT_EQ(makeStem("-rf.json"), "_rf");
  EXPECT_EQ(makeStem("a b\n<c>\x1b.json"), "a_b__c__");
  EXPECT_EQ(makeStem("stra\u00dfe.json"), "stra__e");
  EXPECT_EQ(makeStem(".."), "_");
  EXPECT_EQ(makeStem("/"), "document");
  EXPECT_EQ(makeStem(""), "document");
  EXPECT_EQ(makeStem(std::string(400, 'a')).size(), 150U);
}

TEST(OutputNames, AreDistinctForInputsOfOneName) {
  std::vector<std::string> const stems = makeStems({"a/p.json", "b/p.json", "c/P.json", "p-2.json"});
  EXPECT_EQ(stems, (std::vector<std::string>{"p", "p-2", "P-3", "p-2-2"}));
}

TEST(OutputNames, NumberPagesByTheAddressOfTheView) {
  EXPECT_EQ(getPageName("p", 0), "p.view-0000.svg");
  EXPECT_EQ(getPageName("p", 12345), "p.view-12345.svg");
  EXPECT_EQ(getModelName("p"), "p.migrated.json");
}

}  // namespace

}  // namespace qvToolkit
