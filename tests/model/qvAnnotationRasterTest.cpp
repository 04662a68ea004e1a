#include "annotationLegacy/qvAnnotationRaster.h"

#include "modelTest.h"

namespace {

using namespace qvLegacy;
using namespace qvLegacy::test;
using Vector2f = Wm4::Vector2<float>;

class AnnotationRaster : public ModelTest {};

TEST_F(AnnotationRaster, IsNamelessAndOneByOneByDefault) {
  qvAnnotationRaster const raster;
  EXPECT_EQ(raster.m_type, 2);
  EXPECT_EQ(raster.m_rasterName, "");
  EXPECT_EQ(raster.m_size, Vector2f(1, 1));
}

TEST_F(AnnotationRaster, AssignmentCopiesNameAndSizeAndLeavesTheSource) {
  RasterPointer const source = newRaster("x");
  source->m_size = {2, 3};
  source->m_name = "annotation";
  qvAnnotationRaster target;
  target = *source;
  EXPECT_EQ(target.m_rasterName, "x");
  EXPECT_EQ(target.m_size, Vector2f(2, 3));
  EXPECT_EQ(target.m_name, "annotation");
  EXPECT_EQ(source->m_rasterName, "x");
  EXPECT_EQ(source->m_size, Vector2f(2, 3));
  qvAnnotationRaster const& same = target;
  target = same;
  EXPECT_EQ(target.m_rasterName, "x");
}

TEST_F(AnnotationRaster, CopyHasAllFields) {
  RasterPointer const source = newRaster("x");
  source->m_size = {2, 3};
  qvAnnotationRaster const copy(*source);
  EXPECT_EQ(copy.m_type, 2);
  EXPECT_EQ(copy.m_rasterName, "x");
  EXPECT_EQ(copy.m_size, Vector2f(2, 3));
}

}  // namespace
