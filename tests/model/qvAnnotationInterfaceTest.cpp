#include "annotationLegacy/qvAnnotationInterface.h"

#include "modelTest.h"

namespace {

using namespace qvLegacy;
using namespace qvLegacy::test;
using Vector3f = Wm4::Vector3<float>;
using Color = Wm4::Vector3<unsigned char>;

class AnnotationInterface : public ModelTest {};

TEST_F(AnnotationInterface, NewOneHasTheStatedDefaults) {
  qvAnnotationInterface const a(qvAnnotationInterface::Raster);
  EXPECT_TRUE(a.m_leaders.empty());
  EXPECT_TRUE(a.m_measures.empty());
  EXPECT_EQ(a.m_position, Vector3f::ZERO);
  EXPECT_EQ(a.m_color, Color(255, 255, 255));
  EXPECT_EQ(a.GetName(), "");
  EXPECT_TRUE(a.m_metadata.empty());
  EXPECT_EQ(a.m_subAnnots, nullptr);
  EXPECT_EQ(a.m_type, 2);
  EXPECT_EQ(a.m_style, 1);
  EXPECT_EQ(a.GetReferences(), 0);
}

TEST_F(AnnotationInterface, NewRecordsHaveTheStatedDefaults) {
  qvAnnotationInterface::Leader const leader;
  EXPECT_EQ(leader.m_position, Vector3f::ZERO);
  EXPECT_EQ(leader.m_head, 0);
  qvAnnotationInterface::Leader const placed(Vector3f(1, 2, 3));
  EXPECT_EQ(placed.m_position, Vector3f(1, 2, 3));
  EXPECT_EQ(placed.m_head, 0);
  qvAnnotationInterface::MeasureLeader const measure;
  EXPECT_EQ(measure.m_pointA, Vector3f::ZERO);
  EXPECT_EQ(measure.m_pointB, Vector3f::ZERO);
  EXPECT_EQ(measure.m_offset, Vector3f(1, 0, 0));
  EXPECT_EQ(measure.m_arrowDir, 0);
  qvAnnotationInterface::SubAnnot const node;
  EXPECT_EQ(node.m_annot, nullptr);
  EXPECT_EQ(node.m_anchor, 1U);
}

TEST_F(AnnotationInterface, KeepsTheNameThatItIsGiven) {
  AnnotationPointer const a = newText();
  a->SetName("N1");
  EXPECT_EQ(a->GetName(), "N1");
  EXPECT_EQ(&a->GetName(), &a->m_name);
}

TEST_F(AnnotationInterface, ClonesTextsAndRastersOnly) {
  EXPECT_EQ(newOfKind(0)->cloneAnnotation(), nullptr);
  EXPECT_EQ(newOfKind(7)->cloneAnnotation(), nullptr);

  TextPointer const text = newText("note");
  AnnotationPointer const textClone(text->cloneAnnotation());
  ASSERT_NE(dynamic_cast<qvAnnotationText*>(textClone.get()), nullptr);
  EXPECT_EQ(textOf(textClone), "note");

  RasterPointer const raster = newRaster("logo");
  AnnotationPointer const rasterClone(raster->cloneAnnotation());
  auto const* const copy = dynamic_cast<qvAnnotationRaster*>(rasterClone.get());
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(copy->m_rasterName, "logo");
}

TEST_F(AnnotationInterface, CloneHasNoReferences) {
  TextPointer const text = newText();
  qvAnnotationInterface* const clone = text->cloneAnnotation();
  EXPECT_EQ(clone->GetReferences(), 0);
  delete clone;
}

TEST_F(AnnotationInterface, CopyTakesTheKindOfItsSource) {
  AnnotationPointer const source = newOfKind(7);
  source->m_style = 0xE5;
  qvAnnotationInterface const copy(*source);
  EXPECT_EQ(copy.m_type, 7);
  EXPECT_EQ(copy.m_style, 0xE5);
}

}  // namespace
