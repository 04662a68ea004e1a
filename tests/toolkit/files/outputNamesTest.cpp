#include <gtest/gtest.h>

#include <random>
#include <set>
#include "qvToolkit/files/outputSet.h"

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

/// Each number in turn, from the first one on.
std::vector<std::string> numberOneByOne(std::vector<std::string> const& paths) {
  auto const fold = [](std::string text) {
    for (char& c : text) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    return text;
  };
  std::vector<std::string> stems;
  std::set<std::string> used;
  for (std::string const& path : paths) {
    std::string stem = makeStem(path);
    for (int number = 2; !used.insert(fold(stem)).second; ++number) {
      stem = makeStem(path) + "-" + std::to_string(number);
    }
    stems.push_back(stem);
  }
  return stems;
}

TEST(OutputNames, TakeTheLowestNumberThatIsFree) {
  std::vector<std::string> const names = {"a", "A", "a-2", "A-2", "a-3", "a-2-2", "b", "a-4", "a-02"};
  std::mt19937 random(1);
  for (int round = 0; round < 500; ++round) {
    std::vector<std::string> paths;
    for (int i = 0; i < 20; ++i) paths.push_back(names[random() % names.size()] + ".json");
    EXPECT_EQ(makeStems(paths), numberOneByOne(paths));
  }
}

TEST(OutputNames, NumberPagesByTheAddressOfTheView) {
  EXPECT_EQ(getPageName("p", 0), "p.view-0000.svg");
  EXPECT_EQ(getPageName("p", 12345), "p.view-12345.svg");
  EXPECT_EQ(getModelName("p"), "p.migrated.json");
}

}  // namespace

}  // namespace qvToolkit
