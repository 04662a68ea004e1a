#include "qvSceneGraph/qvPointer.h"

#include <gtest/gtest.h>

#include <vector>

#include "qvSceneGraph/qvObject.h"

namespace {

using qv::qvController;
using qv::qvObject;
using qv::qvPointer;

static_assert(sizeof(qvPointer<qvObject>) == sizeof(qvObject*));

class Pointer : public ::testing::Test {
 protected:
  void TearDown() override { EXPECT_EQ(qvObject::GetLiveObjects(), m_before); }
  std::size_t m_before = qvObject::GetLiveObjects();
};

TEST_F(Pointer, AddsAReferenceOnCopyAndReleasesItOnDestruction) {
  qvPointer<qvController> const first(new qvController);
  EXPECT_EQ(first->GetReferences(), 1);
  {
    qvPointer<qvController> const second = first;  // NOLINT(performance-unnecessary-copy-initialization)
    EXPECT_EQ(first->GetReferences(), 2);
  }
  EXPECT_EQ(first->GetReferences(), 1);
}

TEST_F(Pointer, TheObjectDeletesItselfWithTheLastReference) {
  qvPointer<qvController> pointer(new qvController);
  EXPECT_EQ(qvObject::GetLiveObjects(), m_before + 1);
  pointer = nullptr;
  EXPECT_EQ(qvObject::GetLiveObjects(), m_before);
  EXPECT_EQ(pointer.get(), nullptr);
}

TEST_F(Pointer, MovingTakesTheReferenceAlong) {
  qvPointer<qvController> source(new qvController);
  qvPointer<qvController> const target = std::move(source);
  EXPECT_EQ(source.get(), nullptr);  // NOLINT(bugprone-use-after-move): the state after it is promised
  EXPECT_EQ(target->GetReferences(), 1);
}

TEST_F(Pointer, SelfAssignmentKeepsTheObject) {
  qvPointer<qvController> pointer(new qvController);
  qvPointer<qvController> const& alias = pointer;
  pointer = alias;
  EXPECT_EQ(pointer->GetReferences(), 1);
  pointer = pointer.get();
  EXPECT_EQ(pointer->GetReferences(), 1);
}

TEST_F(Pointer, ConvertsToAPointerToTheBase) {
  qvPointer<qvController> const derived(new qvController);
  qvPointer<qvObject> const base = derived;
  EXPECT_EQ(base.get(), derived.get());
  EXPECT_EQ(derived->GetReferences(), 2);
}

TEST_F(Pointer, AListOfPointersKeepsCountWhileItGrows) {
  qvPointer<qvController> const object(new qvController);
  std::vector<qvPointer<qvController>> list;
  for (int i = 0; i < 100; ++i) list.push_back(object);
  EXPECT_EQ(object->GetReferences(), 101);
  list.clear();
  EXPECT_EQ(object->GetReferences(), 1);
}

}  // namespace
