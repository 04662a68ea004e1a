#include "annotationLegacy/iterateOverAnnotationTree.h"

#include "modelTest.h"

namespace {

using namespace qvLegacy;
using namespace qvLegacy::test;
using annotation::CountAnnotationFunctor;
using annotation::IterateOverAnnotationTreeFunctorInterface;
using SubAnnot = qvAnnotationInterface::SubAnnot;

class AnnotationTree : public ModelTest {};

/// Notes each call with the annotation's name, the root flag, the anchor and the references seen.
class Recorder : public IterateOverAnnotationTreeFunctorInterface {
 public:
  void startProcessingAnnot(SubAnnot const& node, bool isRoot) override { note("start", node, isRoot); }
  void endProcessingAnnot(SubAnnot const& node, bool isRoot) override { note("end", node, isRoot); }

  std::vector<std::string> m_calls;
  std::vector<std::uint32_t> m_anchors;
  std::vector<int> m_references;

 private:
  void note(std::string const& call, SubAnnot const& node, bool isRoot) {
    m_calls.push_back(call + ' ' + node.m_annot->GetName() + (isRoot ? " root" : ""));
    m_anchors.push_back(node.m_anchor);
    m_references.push_back(node.m_annot->GetReferences());
  }
};

AnnotationPointer newNamed(std::string const& name) {
  AnnotationPointer annotation = newText();
  annotation->SetName(name);
  return annotation;
}

TEST_F(AnnotationTree, IsWalkedDepthFirst) {
  AnnotationPointer const root = newNamed("R");
  AnnotationPointer const child = newNamed("C");
  addChild(*child, newNamed("G"), 12);
  addChild(*root, child, 7);
  Recorder recorder;
  recorder.iterateOverAnnotationTree(root);
  EXPECT_EQ(recorder.m_calls,
            (std::vector<std::string>{"start R root", "start C", "start G", "end G", "end C", "end R root"}));
  EXPECT_EQ(recorder.m_anchors, (std::vector<std::uint32_t>{0, 7, 12, 12, 7, 0}));
}

TEST_F(AnnotationTree, VisitsChildrenInListOrder) {
  AnnotationPointer const root = newNamed("R");
  addChild(*root, newNamed("a"));
  addChild(*root, newNamed("b"));
  Recorder recorder;
  recorder.iterateOverAnnotationTree(root);
  EXPECT_EQ(recorder.m_calls,
            (std::vector<std::string>{"start R root", "start a", "end a", "start b", "end b", "end R root"}));
}

TEST_F(AnnotationTree, HoldsOneReferenceOnItsRootForTheWalk) {
  AnnotationPointer const root = newNamed("R");
  EXPECT_EQ(root->GetReferences(), 1);
  Recorder recorder;
  recorder.iterateOverAnnotationTree(root);
  EXPECT_EQ(recorder.m_references, (std::vector<int>{2, 2}));
  EXPECT_EQ(root->GetReferences(), 1);
}

TEST_F(AnnotationTree, OfNothingIsNotVisited) {
  Recorder recorder;
  recorder.iterateOverAnnotationTree(nullptr);
  EXPECT_TRUE(recorder.m_calls.empty());
}

TEST_F(AnnotationTree, ListsAreWalkedInOrderWithARootEach) {
  std::vector<AnnotationPointer> list = {newNamed("a"), nullptr, newNamed("b")};
  Recorder recorder;
  recorder.iterateOverAnnotationTree(list);
  EXPECT_EQ(recorder.m_calls,
            (std::vector<std::string>{"start a root", "end a root", "start b root", "end b root"}));
}

TEST_F(AnnotationTree, CountLeavesOutNullEntriesAndNullChildren) {
  RasterPointer const raster = newRaster();
  addChild(*raster, newText());
  addChild(*raster, nullptr);
  std::vector<AnnotationPointer> list = {nullptr, newText(), raster};
  unsigned int count = 0;
  CountAnnotationFunctor counter(count);
  counter.iterateOverAnnotationTree(list);
  EXPECT_EQ(count, 3U);
}

TEST_F(AnnotationTree, CountGoesOnFromWhatTheCounterHolds) {
  AnnotationPointer const root = newText();
  unsigned int count = 40;
  CountAnnotationFunctor counter(count);
  counter.iterateOverAnnotationTree(root);
  counter.iterateOverAnnotationTree(root);
  EXPECT_EQ(count, 42U);
}

TEST_F(AnnotationTree, BaseVisitorDoesNothing) {
  AnnotationPointer const root = newNamed("R");
  addChild(*root, newNamed("C"));
  IterateOverAnnotationTreeFunctorInterface visitor;
  visitor.iterateOverAnnotationTree(root);
  EXPECT_EQ(root->GetReferences(), 1);
}

TEST_F(AnnotationTree, SingleStepsKeepTheAnchorAndFlagThatTheyAreGiven) {
  SubAnnot node;
  node.m_annot = newNamed("N");
  node.m_anchor = 10;
  Recorder recorder;
  recorder.iterateOverAnnotationTreeImpl(node, false);
  EXPECT_EQ(recorder.m_calls, (std::vector<std::string>{"start N", "end N"}));
  EXPECT_EQ(recorder.m_anchors, (std::vector<std::uint32_t>{10, 10}));
}

}  // namespace
