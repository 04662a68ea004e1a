#include "qvToolkit/model/documentTransform.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "annotationLegacy/qvAnnotationText.h"
#include "qvToolkit/work/session.h"

namespace {

using namespace qvToolkit;
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
    auto& measure = m_parent->m_measures.emplace_back();
    measure.m_pointA = {1, 1, 1};
    measure.m_pointB = {2, 2, 2};
    measure.m_offset = {0, 3, 0};
    m_child->m_position = {4, 5, 6};
    m_child->m_leaders.emplace_back(Vector(7, 8, 9));
    m_view->m_planeOrigin = {10, 0, 0};
    m_view->m_annotations.emplace_back(m_parent.get());
    m_document.m_views.push_back({m_view, {}, {}, {}});
    m_quarterTurn.m_rotation = {0, -1, 0, 1, 0, 0, 0, 0, 1};
    m_quarterTurn.m_translation = {100, 0, 0};
    m_doubled.m_scale = 2;
  }

  void attachChild(std::uint32_t anchor) {
    qvAnnotationInterface::SubAnnot& node = m_parent->editSubAnnots().emplace_back();
    node.m_annot = m_child;
    node.m_anchor = anchor;
  }

  void expectUntouched() const {
    EXPECT_EQ(m_view->m_planeOrigin, Vector(10, 0, 0));
    EXPECT_EQ(m_view->m_planeXAxis, Vector(1, 0, 0));
    EXPECT_EQ(m_parent->m_position, Vector(1, 2, 3));
    EXPECT_EQ(m_parent->m_measures[0].m_offset, Vector(0, 3, 0));
    EXPECT_EQ(m_child->m_leaders[0].m_position, Vector(7, 8, 9));
  }

  void expectRefused(TransformOutcome const& outcome, std::string const& address) const {
    EXPECT_FALSE(outcome.m_isMoved);
    ASSERT_EQ(outcome.m_findings.size(), 1U);
    EXPECT_EQ(outcome.m_findings[0].m_code, FindingCode::TransformOverflow);
    EXPECT_EQ(outcome.m_findings[0].m_severity, Severity::Error);
    EXPECT_EQ(outcome.m_findings[0].m_address, address);
  }

  Session m_library;
  Document m_document;
  qv::qvPointer<qvAnnotationView> m_view;
  qv::qvPointer<qvAnnotationText> m_parent;
  qv::qvPointer<qvAnnotationText> m_child;
  Similarity m_quarterTurn;
  Similarity m_doubled;
};

TEST_F(DocumentTransform, TurnsAndMovesThePlaneAndNothingOnIt) {
  attachChild(qvAnnotationInterface::Free);
  EXPECT_TRUE(transformDocument(m_document, m_quarterTurn).m_findings.empty());
  EXPECT_EQ(m_view->m_planeOrigin, Vector(100, 10, 0));
  EXPECT_EQ(m_view->m_planeXAxis, Vector(0, 1, 0));
  EXPECT_EQ(m_view->m_planeNormal, Vector(0, 0, 1));
  EXPECT_EQ(m_parent->m_position, Vector(1, 2, 3));
  EXPECT_EQ(m_child->m_position, Vector(4, 5, 6));
  EXPECT_EQ(m_child->m_leaders[0].m_position, Vector(7, 8, 9));
}

TEST_F(DocumentTransform, ScalesPlacesAndKeepsTheAxesOfThePlane) {
  attachChild(qvAnnotationInterface::Free);
  transformDocument(m_document, m_doubled);
  EXPECT_EQ(m_view->m_planeOrigin, Vector(20, 0, 0));
  EXPECT_EQ(m_view->m_planeXAxis, Vector(1, 0, 0));
  EXPECT_EQ(m_view->m_planeNormal, Vector(0, 0, 1));
  EXPECT_EQ(m_parent->m_position, Vector(2, 4, 6));
  EXPECT_EQ(m_parent->m_measures[0].m_pointA, Vector(2, 2, 2));
  EXPECT_EQ(m_parent->m_measures[0].m_pointB, Vector(4, 4, 4));
  EXPECT_EQ(m_parent->m_measures[0].m_offset, Vector(0, 6, 0));
  EXPECT_EQ(m_child->m_position, Vector(8, 10, 12));
  EXPECT_EQ(m_child->m_leaders[0].m_position, Vector(14, 16, 18));
}

TEST_F(DocumentTransform, ScalesTheLeadersOfAnAnchoredChildButNotWhatDoesNotPlaceIt) {
  attachChild(qvAnnotationInterface::TopLeft);
  transformDocument(m_document, m_doubled);
  EXPECT_EQ(m_child->m_position, Vector(4, 5, 6));
  EXPECT_EQ(m_child->m_leaders[0].m_position, Vector(14, 16, 18));
}

TEST_F(DocumentTransform, ScalesAChildOnceThatIsAnchoredHereAndFreeThere) {
  attachChild(qvAnnotationInterface::TopLeft);
  attachChild(qvAnnotationInterface::Free);
  attachChild(qvAnnotationInterface::Free);
  transformDocument(m_document, m_doubled);
  EXPECT_EQ(m_child->m_position, Vector(8, 10, 12));
  EXPECT_EQ(m_child->m_leaders[0].m_position, Vector(14, 16, 18));
}

TEST_F(DocumentTransform, SaysThatSizesStayOnlyWhenPlacesAreScaled) {
  EXPECT_TRUE(transformDocument(m_document, m_quarterTurn).m_findings.empty());
  Findings const findings = transformDocument(m_document, m_doubled).m_findings;
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].m_code, FindingCode::TransformSizeKept);
  EXPECT_EQ(findings[0].m_severity, Severity::Info);
  EXPECT_NE(findings[0].m_text.find("scaled by 2;"), std::string::npos) << findings[0].m_text;
  m_view->m_annotations.clear();
  EXPECT_TRUE(transformDocument(m_document, m_doubled).m_findings.empty());
}

TEST_F(DocumentTransform, MovesAViewThatIsListedTwiceOnlyOnce) {
  m_document.m_views.push_back(m_document.m_views.front());
  transformDocument(m_document, m_quarterTurn);
  EXPECT_EQ(m_view->m_planeOrigin, Vector(100, 10, 0));
}

TEST_F(DocumentTransform, ScalesAnAnnotationOfTwoViewsOnlyOnce) {
  qv::qvPointer<qvAnnotationView> const other(new qvAnnotationView);
  other->m_annotations.emplace_back(m_parent.get());
  m_document.m_views.push_back({other, {}, {}, {}});
  transformDocument(m_document, m_doubled);
  EXPECT_EQ(m_parent->m_position, Vector(2, 4, 6));
}

TEST_F(DocumentTransform, PassesOverRefusedViewsAndNullEntries) {
  m_document.m_views.insert(m_document.m_views.begin(), LoadedView{});
  m_view->m_annotations.insert(m_view->m_annotations.begin(), nullptr);
  m_parent->editSubAnnots().emplace_back();
  transformDocument(m_document, m_doubled);
  EXPECT_EQ(m_parent->m_position, Vector(2, 4, 6));
}

TEST_F(DocumentTransform, RefusesANumberThatWouldLeaveSinglePrecisionAndMovesNothing) {
  attachChild(qvAnnotationInterface::Free);
  Similarity tenfold;
  tenfold.m_scale = 10;
  m_child->m_position = {0, 0, 3e38F};
  expectRefused(transformDocument(m_document, tenfold), "view/0/annot/0/sub/0");
  m_child->m_position = {0, 0, 3e37F};
  m_parent->m_measures[0].m_pointB = {0, -3e38F, 0};
  m_view->m_annotations.insert(m_view->m_annotations.begin(), nullptr);
  expectRefused(transformDocument(m_document, tenfold), "view/0/annot/1");
  expectUntouched();
}

TEST_F(DocumentTransform, RefusesAPlaneThatWouldLeaveSinglePrecision) {
  Similarity far;
  far.m_translation = {3e38, 0, 0};
  EXPECT_TRUE(transformDocument(m_document, far).m_isMoved);
  m_document.m_views.insert(m_document.m_views.begin(), LoadedView{});
  expectRefused(transformDocument(m_document, far), "view/1");
}

TEST_F(DocumentTransform, KeepsAPlaneThatIsNotFiniteAndScalesWhatLiesOnIt) {
  float const infinity = std::numeric_limits<float>::infinity();
  for (Vector qvAnnotationView::*const vector :
       {&qvAnnotationView::m_planeOrigin, &qvAnnotationView::m_planeNormal,
        &qvAnnotationView::m_planeXAxis}) {
    qv::qvPointer<qvAnnotationView> const view(new qvAnnotationView(*m_view));
    (*view).*vector = {0, infinity, 0};
    Document document;
    document.m_views.push_back({view, {}, {}, {}});
    Similarity transformation = m_quarterTurn;
    transformation.m_scale = 2;
    TransformOutcome const outcome = transformDocument(document, transformation);
    ASSERT_EQ(outcome.m_findings.size(), 2U);
    EXPECT_EQ(outcome.m_findings[0].m_code, FindingCode::TransformPlaneKept);
    EXPECT_EQ(outcome.m_findings[0].m_severity, Severity::Error);
    EXPECT_EQ(outcome.m_findings[0].m_address, "view/0");
    EXPECT_EQ((*view).*vector, Vector(0, infinity, 0));
    EXPECT_EQ(view->m_annotations[0]->m_position, Vector(2, 4, 6));
  }
}

TEST_F(DocumentTransform, KeepsPositionsThatAreNotFinite) {
  m_parent->m_position = {NAN, -std::numeric_limits<float>::infinity(), 1};
  EXPECT_TRUE(transformDocument(m_document, m_doubled).m_isMoved);
  EXPECT_TRUE(std::isnan(m_parent->m_position[0]));
  EXPECT_EQ(m_parent->m_position[1], -std::numeric_limits<float>::infinity());
  EXPECT_EQ(m_parent->m_position[2], 2);
}

TEST_F(DocumentTransform, MovesATreeOfAnyDepth) {
  constexpr int Depth = 100000;
  qvAnnotationInterface* owner = m_parent.get();
  for (int i = 0; i < Depth; ++i) {
    auto& node = owner->editSubAnnots().emplace_back();
    node.m_annot = new qvAnnotationText;
    node.m_anchor = qvAnnotationInterface::Free;
    owner = node.m_annot.get();
    owner->m_position = {1, 0, 0};
  }
  EXPECT_TRUE(transformDocument(m_document, m_doubled).m_isMoved);
  EXPECT_EQ(owner->m_position, Vector(2, 0, 0));
}

}  // namespace
