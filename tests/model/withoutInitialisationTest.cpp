#include "annotationLegacy/qvAnnotationView.h"
#include "modelTest.h"

namespace {

using namespace qvLegacy;
using namespace qvLegacy::test;

TEST(WithoutInitialisation, AnnotationsAreMadeCopiedAssignedAndDestroyed) {
  std::size_t const before = qv::qvObject::GetLiveObjects();
  {
    TextPointer const parent = newText("parent");
    TextPointer const child = newText("child");
    addChild(*child, newRaster());
    addChild(*parent, child);
    AnnotationPointer const clone(parent->cloneAnnotation());
    EXPECT_EQ(clone->getSubAnnotsCount(), 1U);
    *parent = *child;
    EXPECT_EQ(textOf(parent), "child");
    parent->removeSubAnnots();
    EXPECT_EQ(parent->getSubAnnotsCount(), 0U);

    qvAnnotationView view;
    view.m_annotations.emplace_back(clone);
    qvAnnotationView const copy(view);
    EXPECT_EQ(copy.m_annotations.size(), 1U);
  }
  EXPECT_EQ(qv::qvObject::GetLiveObjects(), before);
}

}  // namespace
