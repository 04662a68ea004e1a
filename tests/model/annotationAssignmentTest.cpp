#include "modelTest.h"

namespace {

using namespace qvLegacy;
using namespace qvLegacy::test;
using Vector3f = Wm4::Vector3<float>;
using Color = Wm4::Vector3<unsigned char>;

class AnnotationAssignment : public ModelTest {};

TEST_F(AnnotationAssignment, CopiesAllSharedFields) {
  TextPointer const source = newText();
  source->m_name = "N";
  source->m_leaders.emplace_back(Vector3f(1, 2, 3)).m_head = 5;
  auto& measure = source->m_measures.emplace_back();
  measure.m_pointA = {1, 0, 0};
  measure.m_pointB = {0, 1, 0};
  measure.m_offset = {0, 0, 1};
  measure.m_arrowDir = 3;
  source->m_position = {4, 5, 6};
  source->m_color = {7, 8, 9};
  source->m_style = 0xAB;
  source->m_metadata["k"] = 1;

  TextPointer const target = newText();
  target->m_leaders.resize(3);
  target->m_metadata["old"] = 2;
  *target = *source;
  EXPECT_EQ(target->m_name, "N");
  ASSERT_EQ(target->m_leaders.size(), 1U);
  EXPECT_EQ(target->m_leaders[0].m_position, Vector3f(1, 2, 3));
  EXPECT_EQ(target->m_leaders[0].m_head, 5);
  ASSERT_EQ(target->m_measures.size(), 1U);
  EXPECT_EQ(target->m_measures[0].m_pointA, Vector3f(1, 0, 0));
  EXPECT_EQ(target->m_measures[0].m_pointB, Vector3f(0, 1, 0));
  EXPECT_EQ(target->m_measures[0].m_offset, Vector3f(0, 0, 1));
  EXPECT_EQ(target->m_measures[0].m_arrowDir, 3);
  EXPECT_EQ(target->m_position, Vector3f(4, 5, 6));
  EXPECT_EQ(target->m_color, Color(7, 8, 9));
  EXPECT_EQ(target->m_style, 0xAB);
  EXPECT_EQ(target->m_metadata, source->m_metadata);
}

TEST_F(AnnotationAssignment, BetweenKindsKeepsTheTargetsKindAndItsOwnFields) {
  TextPointer const target = newText("kept");
  RasterPointer const source = newRaster("image");
  source->m_name = "raster";
  static_cast<qvAnnotationInterface&>(*target) = *source;
  EXPECT_EQ(target->m_type, qvAnnotationInterface::Text);
  EXPECT_EQ(target->m_name, "raster");
  EXPECT_EQ(textOf(target), "kept");
}

TEST_F(AnnotationAssignment, CopiesTextAndRasterChildrenAndSharesTheOthers) {
  TextPointer const source = newText();
  TextPointer const text = newText("T");
  AnnotationPointer const other = newOfKind(0);
  addChild(*source, nullptr, 7);
  addChild(*source, text, 2);
  addChild(*source, other, 3);
  addChild(*source, newRaster("R"), 12);

  TextPointer const target = newText();
  addChild(*target, newText("old"));
  *target = *source;
  ASSERT_EQ(target->getSubAnnotsCount(), 4U);
  EXPECT_EQ(childOf(*target, 0).m_annot, nullptr);
  EXPECT_EQ(childOf(*target, 0).m_anchor, 7U);
  EXPECT_NE(childOf(*target, 1).m_annot, text.get());
  EXPECT_EQ(textOf(childOf(*target, 1).m_annot), "T");
  EXPECT_EQ(childOf(*target, 1).m_annot->GetReferences(), 1);
  EXPECT_EQ(childOf(*target, 1).m_anchor, 2U);
  EXPECT_EQ(text->GetReferences(), 2);
  EXPECT_EQ(childOf(*target, 2).m_annot, other.get());
  EXPECT_EQ(childOf(*target, 2).m_anchor, 3U);
  EXPECT_EQ(other->GetReferences(), 3);
  EXPECT_EQ(dynamic_cast<qvAnnotationRaster&>(*childOf(*target, 3).m_annot).m_rasterName, "R");
}

TEST_F(AnnotationAssignment, CopiesGrandchildrenByTheSameRule) {
  TextPointer const source = newText();
  TextPointer const child = newText("child");
  addChild(*child, newText("grandchild"), 9);
  addChild(*source, child);
  qvAnnotationText const copy(*source);
  qvAnnotationInterface const& copiedChild = *childOf(copy, 0).m_annot;
  EXPECT_EQ(textOf(childOf(copiedChild, 0).m_annot), "grandchild");
  EXPECT_EQ(childOf(copiedChild, 0).m_anchor, 9U);
  EXPECT_NE(childOf(copiedChild, 0).m_annot, childOf(*child, 0).m_annot);
}

TEST_F(AnnotationAssignment, FromOneWithoutChildrenLeavesNoList) {
  TextPointer const target = newText();
  addChild(*target, newText());
  *target = *newText();
  EXPECT_EQ(target->m_subAnnots, nullptr);
}

TEST_F(AnnotationAssignment, ToItselfChangesNothing) {
  TextPointer const a = newText("self");
  TextPointer const child = newText();
  addChild(*a, child);
  qvAnnotationText const& same = *a;
  *a = same;
  EXPECT_EQ(textOf(a), "self");
  EXPECT_EQ(childOf(*a, 0).m_annot, child.get());
  EXPECT_EQ(child->GetReferences(), 2);

  AnnotationPointer const base = newOfKind(0);
  addChild(*base, child);
  qvAnnotationInterface const& sameBase = *base;
  *base = sameBase;
  EXPECT_EQ(childOf(*base, 0).m_annot, child.get());
}

TEST_F(AnnotationAssignment, ReturnsTheTarget) {
  qvAnnotationText text;
  EXPECT_EQ(&(text = *newText()), &text);
  qvAnnotationRaster raster;
  EXPECT_EQ(&(raster = *newRaster()), &raster);
  EXPECT_EQ(&(static_cast<qvAnnotationInterface&>(raster) = *newText()), &raster);
}

/// A text with a child that nobody else holds, which has a child in turn.
TextPointer newFamily() {
  TextPointer const parent = newText("parent");
  TextPointer const child = newText("child\nof two lines");
  TextPointer const grandchild = newText("grandchild");
  child->m_name = "C";
  child->m_defaultTextProperties.m_fontName = "A font with a name too long to be held in place";
  addChild(*grandchild, newRaster("image"));
  addChild(*child, grandchild, 5);
  addChild(*parent, child, 3);
  return parent;
}

TEST_F(AnnotationAssignment, FromItsOwnChildReadsTheChildToTheEnd) {
  TextPointer const parent = newFamily();
  *parent = dynamic_cast<qvAnnotationText const&>(*childOf(*parent, 0).m_annot);
  EXPECT_EQ(parent->m_name, "C");
  EXPECT_EQ(textOf(parent), "child\nof two lines");
  EXPECT_EQ(parent->m_defaultTextProperties.m_fontName, "A font with a name too long to be held in place");
  ASSERT_EQ(parent->getSubAnnotsCount(), 1U);
  EXPECT_EQ(childOf(*parent, 0).m_anchor, 5U);
  EXPECT_EQ(textOf(childOf(*parent, 0).m_annot), "grandchild");
}

TEST_F(AnnotationAssignment, FromItsOwnGrandchildReadsTheGrandchildToTheEnd) {
  TextPointer const parent = newFamily();
  qvAnnotationInterface const& child = *childOf(*parent, 0).m_annot;
  *parent = dynamic_cast<qvAnnotationText const&>(*childOf(child, 0).m_annot);
  EXPECT_EQ(textOf(parent), "grandchild");
  EXPECT_EQ(parent->getSubAnnotsCount(), 1U);
}

TEST_F(AnnotationAssignment, OfARasterFromItsOwnChildReadsTheChildToTheEnd) {
  RasterPointer const parent = newRaster("parent");
  RasterPointer child = newRaster("an image with a name too long to be held in place");
  addChild(*parent, child);
  qvAnnotationRaster const& source = *child;
  child = nullptr;
  *parent = source;
  EXPECT_EQ(parent->m_rasterName, "an image with a name too long to be held in place");
  EXPECT_EQ(parent->getSubAnnotsCount(), 0U);
}

TEST_F(AnnotationAssignment, OfTheBaseFromItsOwnChildReadsTheChildToTheEnd) {
  TextPointer const parent = newFamily();
  qvAnnotationInterface& target = *parent;
  target = *childOf(*parent, 0).m_annot;
  EXPECT_EQ(parent->m_name, "C");
  EXPECT_EQ(textOf(childOf(*parent, 0).m_annot), "grandchild");
}

TEST_F(AnnotationAssignment, LeavesASourceAloneThatNobodyCounts) {
  qvAnnotationText source;
  source.setText("on the stack");
  TextPointer const target = newFamily();
  *target = source;
  EXPECT_EQ(textOf(target), "on the stack");
  EXPECT_EQ(textOf(&source), "on the stack");
  EXPECT_EQ(source.GetReferences(), 0);
}

TEST_F(AnnotationAssignment, FromItsParentCopiesItselfWithoutItsFormerChildren) {
  TextPointer const parent = newText("parent");
  TextPointer const child = newText("child");
  addChild(*child, newText("former"));
  addChild(*parent, child, 4);
  static_cast<qvAnnotationInterface&>(*child) = *parent;
  ASSERT_EQ(child->getSubAnnotsCount(), 1U);
  EXPECT_EQ(childOf(*child, 0).m_anchor, 4U);
  EXPECT_EQ(textOf(childOf(*child, 0).m_annot), "child");
  EXPECT_EQ(childOf(*child, 0).m_annot->getSubAnnotsCount(), 0U);
}

}  // namespace
