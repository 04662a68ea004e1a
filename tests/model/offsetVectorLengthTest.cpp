#include <cmath>
#include <limits>

#include "modelTest.h"

namespace {

using namespace qvLegacy;
using Vector3f = Wm4::Vector3<float>;

/// The offset after recomputation for an annotation that stands at `fromA` from the leader's first point.
Vector3f recomputed(Vector3f const& offset, Vector3f const& fromA) {
  qvAnnotationText annotation;
  annotation.m_position = fromA + Vector3f(1, 1, 1);
  auto& measure = annotation.m_measures.emplace_back();
  measure.m_pointA = {1, 1, 1};
  measure.m_offset = offset;
  annotation.recomputeOffsetVectorLength();
  return measure.m_offset;
}

TEST(OffsetVectorLength, IsThatOfThePositionsProjection) {
  EXPECT_EQ(recomputed({0, 0, 5}, {0, 0, 2}), Vector3f(0, 0, 2));
  Vector3f const slanted = recomputed({3, 4, 0}, {10, 0, 0});
  EXPECT_FLOAT_EQ(slanted.X(), 3.6F);
  EXPECT_FLOAT_EQ(slanted.Y(), 4.8F);
  EXPECT_EQ(slanted.Z(), 0.0F);
}

TEST(OffsetVectorLength, TurnsTheOffsetRoundWhenThePositionLiesBehind) {
  EXPECT_EQ(recomputed({0, 0, 5}, {7, 7, -2}), Vector3f(0, 0, -2));
}

TEST(OffsetVectorLength, OfAZeroOffsetStaysZero) {
  EXPECT_EQ(recomputed({0, 0, 0}, {2, 3, 4}), Vector3f::ZERO);
}

TEST(OffsetVectorLength, IsComputedInSinglePrecisionThroughout) {
  EXPECT_EQ(recomputed({1e-30F, 0, 0}, {2, 0, 0}), Vector3f::ZERO) << "the square underflows to 0";
  EXPECT_EQ(recomputed({1e20F, 0, 0}, {2, 0, 0}), Vector3f::ZERO) << "the square overflows, 1 / inf is 0";
  EXPECT_EQ(recomputed({1e-18F, 0, 0}, {2, 0, 0}), Vector3f(2, 0, 0));
}

TEST(OffsetVectorLength, ThatIsNoNumberSpreads) {
  Vector3f const offset = recomputed({std::numeric_limits<float>::quiet_NaN(), 0, 0}, {2, 0, 0});
  for (std::size_t i = 0; i < 3; ++i) EXPECT_TRUE(std::isnan(offset[i]));
}

TEST(OffsetVectorLength, OfEachMeasureLeaderIsMeasuredFromItsOwnPoint) {
  qvAnnotationText annotation;
  annotation.m_position = {0, 10, 0};
  annotation.m_measures.resize(2);
  annotation.m_measures[0].m_offset = {0, 1, 0};
  annotation.m_measures[1].m_offset = {0, 1, 0};
  annotation.m_measures[1].m_pointA = {5, 4, 5};
  annotation.m_measures[1].m_pointB = {5, 1, 5};
  annotation.recomputeOffsetVectorLength();
  EXPECT_EQ(annotation.m_measures[0].m_offset, Vector3f(0, 10, 0));
  EXPECT_EQ(annotation.m_measures[1].m_offset, Vector3f(0, 6, 0));
  EXPECT_EQ(annotation.m_measures[1].m_pointB, Vector3f(5, 1, 5));
}

}  // namespace
