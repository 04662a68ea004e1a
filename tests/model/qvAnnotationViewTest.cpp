#include "annotationLegacy/qvAnnotationView.h"

#include <qvSystem/qvMemoryStream.h>

#include "modelTest.h"

namespace {

using namespace qvLegacy;
using namespace qvLegacy::test;
using Vector3f = Wm4::Vector3<float>;
using ViewPointer = qv::qvPointer<qvAnnotationView>;

class AnnotationView : public ModelTest {};
class AnnotationViewCopy : public ModelTest {};

/// A view with a text, an object of kind 0 and a raster.
ViewPointer newView() {
  ViewPointer view(new qvAnnotationView);
  view->m_name = "Front";
  view->m_planeOrigin = {1, 2, 3};
  view->m_planeNormal = {0, 1, 0};
  view->m_planeXAxis = {0, 0, 1};
  view->m_metadata["k"] = 1;
  view->m_annotations = {newText("T"), newOfKind(0), newRaster("R")};
  return view;
}

TEST_F(AnnotationView, NewOneHasTheStatedDefaults) {
  qvAnnotationView const view;
  EXPECT_EQ(view.GetName(), "");
  EXPECT_EQ(view.m_planeOrigin, Vector3f::ZERO);
  EXPECT_EQ(view.m_planeNormal, Vector3f(0, 0, 1));
  EXPECT_EQ(view.m_planeXAxis, Vector3f(1, 0, 0));
  EXPECT_TRUE(view.m_annotations.empty());
  EXPECT_TRUE(view.m_metadata.empty());
}

TEST_F(AnnotationView, KeepsTheNameThatItIsGiven) {
  ViewPointer const view(new qvAnnotationView);
  view->SetName("Top");
  EXPECT_EQ(view->GetName(), "Top");
}

TEST_F(AnnotationView, SavesNothingAndMarksStreamsAbove626) {
  qvAnnotationView const view;
  qv::qvMemoryStream older({}, 0x6001A);
  view.Save(older);
  EXPECT_FALSE(older.hasStreamError());
  qv::qvMemoryStream newer({}, 0x6001B);
  view.Save(newer);
  EXPECT_TRUE(newer.hasStreamError());
  EXPECT_EQ(newer.GetPosition(), 0U);
}

TEST_F(AnnotationView, NeverClonesAndEqualsNothing) {
  ViewPointer const view = newView();
  ViewPointer const other(new qvAnnotationView);
  qv::qvRttiInterface* target = other;
  EXPECT_FALSE(view->Clone(target));
  EXPECT_EQ(target, static_cast<qv::qvRttiInterface*>(other));
  EXPECT_EQ(other->GetName(), "");
  target = nullptr;
  EXPECT_FALSE(view->Clone(target));
  EXPECT_EQ(target, nullptr);
  EXPECT_FALSE(view->Equals(view));
  EXPECT_FALSE(view->Equals(nullptr));
}

TEST_F(AnnotationView, IsFoundByItsNameAndIdentifier) {
  ViewPointer const view = newView();
  EXPECT_EQ(view->GetObjectByName("Front"), view);
  EXPECT_EQ(view->GetObjectByName("Back"), nullptr);
  std::vector<qv::qvObject*> found;
  view->GetAllObjectsByName("Front", found);
  EXPECT_EQ(found, std::vector<qv::qvObject*>{view.get()});
  EXPECT_EQ(view->GetObjectByID(view->GetID()), view);
  view->PostLink();
}

TEST_F(AnnotationViewCopy, CopiesNamePlaneAndMetadataInEveryMode) {
  ViewPointer const source = newView();
  for (int const mode : {0, 1, 2, 99}) {
    qvAnnotationView target;
    target.copyFrom(*source, static_cast<qvAnnotationView::AnnotationCopyMode>(mode));
    EXPECT_EQ(target.m_name, "Front");
    EXPECT_EQ(target.m_planeOrigin, Vector3f(1, 2, 3));
    EXPECT_EQ(target.m_planeNormal, Vector3f(0, 1, 0));
    EXPECT_EQ(target.m_planeXAxis, Vector3f(0, 0, 1));
    EXPECT_EQ(target.m_metadata, source->m_metadata);
  }
}

TEST_F(AnnotationViewCopy, SharesTheAnnotationsThemselves) {
  ViewPointer const source = newView();
  source->m_annotations.emplace_back();
  qvAnnotationView target;
  target.copyFrom(*source, qvAnnotationView::ShareAnnotations);
  EXPECT_EQ(target.m_annotations, source->m_annotations);
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(target.m_annotations[i]->GetReferences(), 2);
}

TEST_F(AnnotationViewCopy, ClonesTextsAndRastersAndDropsTheRest) {
  ViewPointer const source = newView();
  qvAnnotationView target;
  target.copyFrom(*source, qvAnnotationView::CloneAnnotations);
  ASSERT_EQ(target.m_annotations.size(), 2U);
  EXPECT_EQ(textOf(target.m_annotations[0]), "T");
  EXPECT_EQ(dynamic_cast<qvAnnotationRaster&>(*target.m_annotations[1]).m_rasterName, "R");
  for (auto const& annotation : target.m_annotations) EXPECT_EQ(annotation->GetReferences(), 1);
  for (auto const& annotation : source->m_annotations) EXPECT_EQ(annotation->GetReferences(), 1);
}

TEST_F(AnnotationViewCopy, DropsTheAnnotationsInAnyOtherMode) {
  ViewPointer const source = newView();
  for (int const mode : {2, 99, -1}) {
    ViewPointer const target = newView();
    target->copyFrom(*source, static_cast<qvAnnotationView::AnnotationCopyMode>(mode));
    EXPECT_TRUE(target->m_annotations.empty()) << mode;
  }
}

TEST_F(AnnotationViewCopy, ReplacesTheOldAnnotations) {
  ViewPointer const target = newView();
  AnnotationPointer const old = target->m_annotations[0];
  *target = *newView();
  EXPECT_EQ(old->GetReferences(), 1);
}

TEST_F(AnnotationViewCopy, KeepsNullEntriesWhenCloning) {
  ViewPointer const source(new qvAnnotationView);
  source->m_annotations = {nullptr, newText("T")};
  qvAnnotationView const copy(*source);
  ASSERT_EQ(copy.m_annotations.size(), 2U);
  EXPECT_EQ(copy.m_annotations[0], nullptr);
}

TEST_F(AnnotationViewCopy, AssignmentToItselfChangesNothing) {
  ViewPointer const view = newView();
  auto const before = view->m_annotations;
  qvAnnotationView const& same = *view;
  *view = same;
  EXPECT_EQ(view->m_annotations, before);
  EXPECT_EQ(view->m_name, "Front");
}

TEST_F(AnnotationViewCopy, FromItselfFollowsTheModeAllTheSame) {
  ViewPointer const view = newView();
  auto const before = view->m_annotations;
  view->copyFrom(*view, qvAnnotationView::ShareAnnotations);
  EXPECT_EQ(view->m_annotations, before);
  view->copyFrom(*view, qvAnnotationView::CloneAnnotations);
  ASSERT_EQ(view->m_annotations.size(), 2U);
  EXPECT_NE(view->m_annotations[0], before[0]);
  EXPECT_EQ(view->m_name, "Front");
  EXPECT_EQ(view->m_metadata.size(), 1U);
  view->copyFrom(*view, qvAnnotationView::DropAnnotations);
  EXPECT_TRUE(view->m_annotations.empty());
}

TEST_F(AnnotationViewCopy, CopyConstructorClones) {
  ViewPointer const source = newView();
  qvAnnotationView const copy(*source);
  ASSERT_EQ(copy.m_annotations.size(), 2U);
  EXPECT_NE(copy.m_annotations[0], source->m_annotations[0]);
}

}  // namespace
