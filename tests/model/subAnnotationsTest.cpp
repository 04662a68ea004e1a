#include <pthread.h>

#include "modelTest.h"

namespace {

using namespace qvLegacy;
using namespace qvLegacy::test;

class SubAnnotations : public ModelTest {};

TEST_F(SubAnnotations, AnnotationsWithoutChildrenShareOneEmptyList) {
  AnnotationPointer const a = newText();
  AnnotationPointer const b = newRaster();
  EXPECT_EQ(&a->getSubAnnots(), &b->getSubAnnots());
  EXPECT_TRUE(a->getSubAnnots().empty());
  EXPECT_EQ(a->getSubAnnotsCount(), 0U);
}

TEST_F(SubAnnotations, EditingGivesAListOfItsOwnThatStaysEmpty) {
  AnnotationPointer const a = newText();
  AnnotationPointer const b = newText();
  auto& own = a->editSubAnnots();
  EXPECT_EQ(a->getSubAnnotsCount(), 0U);
  EXPECT_EQ(&a->getSubAnnots(), &own);
  EXPECT_NE(&a->getSubAnnots(), &b->getSubAnnots());
  EXPECT_EQ(&a->editSubAnnots(), &own);
}

TEST_F(SubAnnotations, RemovingReleasesOneReferenceOnEachAndDropsTheList) {
  AnnotationPointer const a = newText();
  AnnotationPointer const child = newText();
  addChild(*a, child);
  addChild(*a, nullptr);
  addChild(*a, child);
  EXPECT_EQ(child->GetReferences(), 3);
  a->removeSubAnnots();
  EXPECT_EQ(child->GetReferences(), 1);
  EXPECT_EQ(a->m_subAnnots, nullptr);
  a->removeSubAnnots();
  EXPECT_EQ(a->m_subAnnots, nullptr);
}

TEST_F(SubAnnotations, ChildrenAreReleasedInListOrderBeforeGrandchildren) {
  std::vector<std::string> released;
  AnnotationPointer const parent = newText();
  for (std::string const name : {"a", "b", "c"}) {
    AnnotationPointer const child(new Probe(name, released));
    addChild(*child, new Probe(name + "1", released));
    addChild(*child, new Probe(name + "2", released));
    addChild(*parent, child);
  }
  parent->removeSubAnnots();
  EXPECT_EQ(released, (std::vector<std::string>{"a", "b", "c", "a1", "a2", "b1", "b2", "c1", "c2"}));
}

TEST_F(SubAnnotations, ChildThatSomebodyElseHoldsKeepsItsTree) {
  std::vector<std::string> released;
  AnnotationPointer held(new Probe("held", released));
  addChild(*held, new Probe("below", released));
  AnnotationPointer const parent = newText();
  AnnotationPointer const between(new Probe("between", released));
  addChild(*between, held);
  addChild(*parent, between);
  parent->removeSubAnnots();
  EXPECT_TRUE(released.empty());
  between->removeSubAnnots();
  EXPECT_TRUE(released.empty());
  EXPECT_EQ(held->GetReferences(), 1);
  EXPECT_EQ(held->getSubAnnotsCount(), 1U);
  held = nullptr;
  EXPECT_EQ(released, (std::vector<std::string>{"held", "below"}));
}

TEST_F(SubAnnotations, ChildThatHangsOnTwoParentsGoesWithTheSecond) {
  std::vector<std::string> released;
  AnnotationPointer const root = newText();
  AnnotationPointer shared(new Probe("shared", released));
  addChild(*shared, new Probe("below", released));
  for (std::string const name : {"left", "right"}) {
    AnnotationPointer const branch(new Probe(name, released));
    addChild(*branch, shared);
    addChild(*root, branch);
  }
  shared = nullptr;
  root->removeSubAnnots();
  EXPECT_EQ(released, (std::vector<std::string>{"left", "right", "shared", "below"}));
}

TEST_F(SubAnnotations, DestructionReleasesThem) {
  std::vector<std::string> released;
  {
    qvAnnotationText parent;
    addChild(parent, new Probe("child", released));
  }
  EXPECT_EQ(released, std::vector<std::string>{"child"});
}

TEST_F(SubAnnotations, CanBeInitialisedTwiceWithoutAnotherList) {
  AnnotationPointer const a = newText();
  auto const* const before = &a->getSubAnnots();
  qvAnnotationInterface::InitDummySubAnnots();
  EXPECT_EQ(&a->getSubAnnots(), before);
}

TEST_F(SubAnnotations, ClearingTheSharedListReleasesWhatSomebodyPutIntoIt) {
  std::vector<std::string> released;
  AnnotationPointer const a = newText();
  auto& shared = const_cast<qvAnnotationInterface::SubAnnotList&>(a->getSubAnnots());
  shared.emplace_back().m_annot = new Probe("stray", released);
  qvAnnotationInterface::ClearDummySubAnnots();
  EXPECT_EQ(released, std::vector<std::string>{"stray"});
  qvAnnotationInterface::ClearDummySubAnnots();
  qvAnnotationInterface::InitDummySubAnnots();
  EXPECT_TRUE(a->getSubAnnots().empty());
}

/// Runs `body` on a thread with little stack.
void runOnSmallStack(void* (*body)(void*), void* argument) {
  pthread_attr_t attributes;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, std::size_t{256} * 1024), 0);
  pthread_t thread;
  ASSERT_EQ(pthread_create(&thread, &attributes, body, argument), 0);
  EXPECT_EQ(pthread_join(thread, nullptr), 0);
  pthread_attr_destroy(&attributes);
}

TextPointer newChain(int levels) {
  TextPointer root(new qvAnnotationText);
  qvAnnotationInterface* deepest = root;
  for (int level = 1; level < levels; ++level) {
    auto* const child = new qvAnnotationText;
    addChild(*deepest, child);
    deepest = child;
  }
  return root;
}

TEST_F(SubAnnotations, TreeOfAMillionLevelsIsReleasedOnASmallStack) {
  TextPointer root = newChain(1'000'000);
  runOnSmallStack(
      [](void* chain) -> void* {
        *static_cast<TextPointer*>(chain) = nullptr;
        return nullptr;
      },
      &root);
}

TEST_F(SubAnnotations, DeepTreeIsReplacedByAssignmentOnASmallStack) {
  TextPointer root = newChain(100'000);
  runOnSmallStack(
      [](void* chain) -> void* {
        **static_cast<TextPointer*>(chain) = qvAnnotationText();
        return nullptr;
      },
      &root);
  EXPECT_EQ(root->getSubAnnotsCount(), 0U);
}

}  // namespace
