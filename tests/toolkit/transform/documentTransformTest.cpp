#include "toolkit/documentTransform.h"

#include <gtest/gtest.h>

#include "annotationLegacy/qvAnnotationText.h"
#include "toolkit/librarySession.h"

namespace {

using qvLegacy::qvAnnotationInterface;
using qvLegacy::qvAnnotationText;
using qvLegacy::qvAnnotationView;
using Vector = Wm4::Vector3<float>;

/// A view with one text and, below it, one child at `anchor`.
class DocumentTransform : public testing::Test {
 protected:
  DocumentTransform()
      : m_view(new qvAnnotationView), m_parent(new qvAnnotationText), m_child(new qvAnnotationText) {
    m_parent->m_position = {1, 2, 3};
    m_child->m_position = {4, 5, 6};
    m_child->m_leaders.emplace_back(Vector(7, 8, 9));
    m_view->m_planeOrigin = {10, 0, 0};
    m_view->m_annotations.emplace_back(m_parent.get());
    m_document.m_views.push_back({m_view, {}, {}, {}});
    m_quarterTurn.SetRotate({0, -1, 0, 1, 0, 0, 0, 0, 1});
    m_quarterTurn.SetTranslate({100, 0, 0});
  }

  void attachChild(std::uint32_t anchor) {
    qvAnnotationInterface::SubAnnot& node = m_parent->editSubAnnots().emplace_back();
    node.m_annot = m_child;
    node.m_anchor = anchor;
  }

  qvToolkit::LibrarySession m_library;
  qvToolkit::Document m_document;
  qv::qvPointer<qvAnnotationView> m_view;
  qv::qvPointer<qvAnnotationText> m_parent;
  qv::qvPointer<qvAnnotationText> m_child;
  qv::qvGenericTransformation<float> m_quarterTurn;
};

TEST_F(DocumentTransform, MovesThePlaneAndTheAnnotationsAlike) {
  transformDocument(m_document, m_quarterTurn);
  EXPECT_EQ(m_view->m_planeOrigin, Vector(100, 10, 0));
  EXPECT_EQ(m_view->m_planeXAxis, Vector(0, 1, 0));
  EXPECT_EQ(m_parent->m_position, Vector(98, 1, 3));
}

TEST_F(DocumentTransform, MovesAnAnchoredChildAndItsLeadersAsPoints) {
  attachChild(qvAnnotationInterface::TopLeft);
  transformDocument(m_document, m_quarterTurn);
  EXPECT_EQ(m_child->m_position, Vector(95, 4, 6));
  EXPECT_EQ(m_child->m_leaders[0].m_position, Vector(92, 7, 9));
}

TEST_F(DocumentTransform, TurnsTheOffsetOfAFreeChildWithoutMovingIt) {
  attachChild(qvAnnotationInterface::Free);
  transformDocument(m_document, m_quarterTurn);
  EXPECT_EQ(m_child->m_position, Vector(-5, 4, 6));
  EXPECT_EQ(m_child->m_leaders[0].m_position, Vector(92, 7, 9));
}

TEST_F(DocumentTransform, MovesAViewThatIsListedTwiceOnlyOnce) {
  m_document.m_views.push_back(m_document.m_views.front());
  transformDocument(m_document, m_quarterTurn);
  EXPECT_EQ(m_view->m_planeOrigin, Vector(100, 10, 0));
}

TEST_F(DocumentTransform, PassesOverRefusedViewsAndNullEntries) {
  m_document.m_views.insert(m_document.m_views.begin(), qvToolkit::LoadedView{});
  m_view->m_annotations.insert(m_view->m_annotations.begin(), nullptr);
  m_parent->editSubAnnots().emplace_back();
  transformDocument(m_document, m_quarterTurn);
  EXPECT_EQ(m_parent->m_position, Vector(98, 1, 3));
}

}  // namespace
