#include "qvToolkit/findings/address.h"

#include <gtest/gtest.h>

#include <string>

namespace qvToolkit {

namespace {

TEST(Address, NamesViewAnnotationAndEachLevelOfSubAnnotations) {
  EXPECT_EQ(Address().getText(), "");
  EXPECT_EQ(Address::ofView(3).getText(), "view/3");
  EXPECT_EQ(Address::ofView(3).getChild(7).getText(), "view/3/annot/7");
  EXPECT_EQ(Address::ofIndices({3, 7, 0, 12}).getText(), "view/3/annot/7/sub/0/sub/12");
}

TEST(Address, IsThatOfTheWholeAgainOnceItsPartIsLeft) {
  Address address = Address::ofIndices({10, 20, 30});
  for (char const* const whole : {"view/10/annot/20", "view/10", ""}) {
    address.leave();
    EXPECT_EQ(address.getText(), whole);
  }
  EXPECT_EQ(address, Address());
}

TEST(Address, ReadsWhatItWrites) {
  for (auto const& indices : {std::vector<std::size_t>{}, {0}, {4294967296}, {1, 2}, {1, 2, 3, 0, 5}}) {
    Address const address = Address::ofIndices(indices);
    EXPECT_EQ(Address::parse(address.getText()), address);
    EXPECT_EQ(address.getIndices(), indices);
  }
}

TEST(Address, ReadsNothingElse) {
  for (char const* const text :
       {"view", "view/", "view/-1", "view/03", "view/1/", "view/1/sub/0", "annot/1", "/view/1",
        "view/1/annot/x", "view/1/annot/1/annot/1", "view/99999999999999999999"}) {
    EXPECT_EQ(Address::parse(text), std::nullopt) << text;
  }
}

}  // namespace

}  // namespace qvToolkit
