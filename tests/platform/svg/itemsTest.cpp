#include <gtest/gtest.h>

#include <memory>
#include <utility>

#include "qvSvg/image.h"
#include "qvSvg/node.h"
#include "qvSvg/path.h"
#include "qvSvg/rect.h"
#include "qvSvg/text.h"

namespace qv::svg {
namespace {

TEST(Items, AnswerTheirKind) {
  EXPECT_EQ(Node().getKind(), ItemKind::Node);
  EXPECT_EQ(Rect({}, {}).getKind(), ItemKind::Rect);
  EXPECT_EQ(Image().getKind(), ItemKind::Image);
  EXPECT_EQ(Path().getKind(), ItemKind::Path);
  EXPECT_EQ(Text().getKind(), ItemKind::Text);
}

TEST(Items, StartWithoutPresentation) {
  Node const node;
  EXPECT_FALSE(node.m_borderColor.has_value());
  EXPECT_FALSE(node.m_backgroundColor.has_value());
  EXPECT_FALSE(node.m_transform.has_value());
  EXPECT_EQ(node.m_class, "");
  EXPECT_EQ(node.m_width, 0.0F);
  EXPECT_TRUE(node.getChildren().empty());
}

TEST(Items, ImageStartsAtTheOriginWithoutSize) {
  Image const image;
  EXPECT_EQ(image.m_position, Wm4::Vector2<float>::ZERO);
  EXPECT_EQ(image.m_size, Wm4::Vector2<float>::ZERO);
  EXPECT_EQ(image.m_data, "");
}

TEST(Items, NodeSharesItsChildren) {
  auto const rect = std::make_shared<Rect>(Wm4::Vector2<float>(), Wm4::Vector2<float>());
  {
    Node node;
    node.editChildren().push_back(rect);
    node.editChildren().push_back(nullptr);
    EXPECT_EQ(rect.use_count(), 2);
  }
  EXPECT_EQ(rect.use_count(), 1);
}

TEST(Items, ChildHeldElsewhereKeepsItsOwnChildren) {
  auto const child = std::make_shared<Node>();
  child->editChildren().push_back(std::make_shared<Node>());
  {
    Node parent;
    parent.editChildren().push_back(child);
  }
  EXPECT_EQ(child->getChildren().size(), 1U);
}

TEST(Items, VeryDeepTreeIsReleasedWithoutRecursion) {
  auto root = std::make_shared<Node>();
  std::weak_ptr<Node> const deepest = root;
  for (int i = 0; i < 200'000; ++i) {
    auto parent = std::make_shared<Node>();
    parent->editChildren().push_back(std::move(root));
    root = std::move(parent);
  }
  EXPECT_FALSE(deepest.expired());
  root.reset();
  EXPECT_TRUE(deepest.expired());
}

}  // namespace
}  // namespace qv::svg
