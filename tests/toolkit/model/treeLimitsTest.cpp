#include "qvToolkit/model/treeLimits.h"

#include <gtest/gtest.h>

#include <chrono>

#include "tests/support/exportSupport.h"

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationText;
using Text = qv::qvPointer<qvAnnotationText>;

void addChild(qvAnnotationText& parent, qvAnnotationText* child) {
  auto& node = parent.editSubAnnots().emplace_back();
  node.m_annot = child;
}

/// A text with `depth` levels below it, each with the next one `times` times as its child.
Text makeTree(std::size_t depth, int times) {
  Text text = new qvAnnotationText;
  for (std::size_t level = 0; level < depth; ++level) {
    Text const parent = new qvAnnotationText;
    for (int i = 0; i < times; ++i) addChild(*parent, text.get());
    text = parent;
  }
  return text;
}

std::optional<Finding> check(Text const& text, TreeLimits const& limits = {}) {
  qvLegacy::qvAnnotationView view;
  view.m_annotations.emplace_back(nullptr);
  view.m_annotations.emplace_back(text.get());
  return checkTrees(view, Address::ofView(3), limits);
}

TEST(TreeLimits, TakeTreesUpToTheirDepth) {
  EXPECT_FALSE(check(makeTree(0, 1), {0, 10}).has_value());
  EXPECT_FALSE(check(makeTree(200, 1)).has_value());
  auto const refusal = check(makeTree(201, 1));
  ASSERT_TRUE(refusal.has_value());
  EXPECT_EQ(refusal->m_code, FindingCode::LimitDepth);
  EXPECT_EQ(refusal->m_address, "view/3/annot/1");
  EXPECT_EQ(refusal->m_options, std::vector{OptionKey::MaxDepth});
}

TEST(TreeLimits, TakeTreesUpToTheirNumberOfAnnotations) {
  EXPECT_FALSE(check(makeTree(3, 2), {200, 15}).has_value());
  auto const refusal = check(makeTree(3, 2), {200, 14});
  ASSERT_TRUE(refusal.has_value());
  EXPECT_EQ(refusal->m_code, FindingCode::LimitNodes);
  EXPECT_EQ(refusal->m_options, std::vector{OptionKey::MaxNodes});
}

TEST(TreeLimits, RefuseFortyLevelsOfSharedChildrenWithoutWalkingEachPath) {
  Text const diamonds = makeTree(40, 2);
  auto const start = std::chrono::steady_clock::now();
  auto const refusal = check(diamonds);
  auto const elapsed = std::chrono::steady_clock::now() - start;
  ASSERT_TRUE(refusal.has_value());
  EXPECT_EQ(refusal->m_code, FindingCode::LimitNodes);
  EXPECT_LT(elapsed, std::chrono::milliseconds(50)) << "all paths would take hours";
}

TEST(TreeLimits, CountSharedAnnotationsOfAHundredLevelsWithoutOverflow) {
  EXPECT_TRUE(check(makeTree(150, 3), {200, 1000000}).has_value());
}

TEST(TreeLimits, LookAtAMillionLevelsWithoutRecursion) {
  EXPECT_TRUE(check(makeTree(1000000, 1)).has_value());
  EXPECT_FALSE(check(makeTree(1000000, 1), {1000000, 1000001}).has_value());
}

TEST(TreeLimits, PassOverEmptyChildren) {
  Text const text = new qvAnnotationText;
  addChild(*text, nullptr);
  EXPECT_FALSE(check(text, {0, 1}).has_value());
}

}  // namespace

}  // namespace qvToolkit
