#include <gtest/gtest.h>

#include <limits>

#include "annotationLegacy/qvAnnotationRaster.h"
#include "tests/readers/variant/variants.h"

namespace {

using namespace readersTest;
using Raster = qvLegacy::qvAnnotationRaster;
using Size = Wm4::Vector2<float>;

/// A raster annotation after reading one map into it.
struct Loaded : Raster {
  explicit Loaded(Map const& map, qv::qvStreamVersion const& version = v6_22)
      : outcome(read(*this, map, version)) {}
  Outcome outcome;
};

TEST(RasterFields, HoldNameAndSize) {
  Loaded const raster(Map{{"rastername", "logo"}, {"sizeem", list(2.5, 3)}, {"name", "r"}});
  EXPECT_TRUE(raster.outcome.isRead);
  EXPECT_TRUE(raster.outcome.messages.empty());
  EXPECT_EQ(raster.m_name, "r");
  EXPECT_EQ(raster.m_rasterName, "logo");
  EXPECT_EQ(raster.m_size, Size(2.5F, 3));
}

TEST(RasterFields, AreRefusedBefore6_17) {
  Loaded const older(Map{{"rastername", "logo"}}, v6_16);
  EXPECT_FALSE(older.outcome.isRead);
  EXPECT_EQ(older.outcome.messages, Messages{"invalid version for annotation interface"});
  EXPECT_EQ(older.m_rasterName, "");
  EXPECT_TRUE(Loaded(Map{}, v6_17).outcome.isRead);
}

TEST(RasterFields, AreNotReadWhenTheSharedOnesFail) {
  Loaded const raster(Map{{"position", 5}, {"sizeem", 5}, {"rastername", "logo"}});
  EXPECT_FALSE(raster.outcome.isRead);
  EXPECT_EQ(raster.outcome.messages, Messages{"invalid 'position' field"});
  EXPECT_EQ(raster.m_rasterName, "");
}

TEST(SizeField, IsKeptWhenItIsAbsent) {
  EXPECT_EQ(Loaded(Map{}).m_size, Size(1, 1));
  Raster raster;
  raster.m_size = Size(4, 5);
  EXPECT_TRUE(read(raster, {}, v6_22).isRead);
  EXPECT_EQ(raster.m_size, Size(4, 5));
}

TEST(SizeField, StopsTheReadingWhenItIsNoList) {
  for (Variant const& value : oneOfEachKind()) {
    if (value.isList()) continue;
    Loaded const raster(Map{{"sizeem", value}, {"rastername", "logo"}});
    EXPECT_FALSE(raster.outcome.isRead);
    EXPECT_EQ(raster.outcome.messages, Messages{"invalid 'sizeem' field"});
    EXPECT_EQ(raster.m_size, Size(1, 1));
    EXPECT_EQ(raster.m_rasterName, "");
  }
}

TEST(SizeField, StopsTheReadingWhenItHasNotTwoElements) {
  for (Variant const& value : {list(), list(2), list(1, 2, 3)}) {
    Loaded const raster(Map{{"sizeem", value}, {"rastername", "logo"}});
    EXPECT_FALSE(raster.outcome.isRead);
    EXPECT_EQ(raster.outcome.messages, Messages{"invalid 'sizeem' length"});
    EXPECT_EQ(raster.m_size, Size(1, 1));
    EXPECT_EQ(raster.m_rasterName, "");
  }
}

TEST(SizeField, TakesTheRealFormOfElementsOfEveryKind) {
  EXPECT_EQ(Loaded(Map{{"sizeem", list("2.5", true)}}).m_size, Size(2.5F, 1));
  EXPECT_EQ(Loaded(Map{{"sizeem", list(Variant(), Map{})}}).m_size, Size(0, 0));
  EXPECT_EQ(Loaded(Map{{"sizeem", list(1e39, -2)}}).m_size, Size(std::numeric_limits<float>::infinity(), -2));
}

TEST(RasterNameField, IsAlwaysReplaced) {
  Raster raster;
  raster.m_rasterName = "old";
  EXPECT_TRUE(read(raster, {}, v6_22).isRead);
  EXPECT_EQ(raster.m_rasterName, "");
}

TEST(RasterNameField, TakesTheStringFormOfOtherKinds) {
  EXPECT_EQ(Loaded(Map{{"rastername", 5}}).m_rasterName, "5");
  EXPECT_EQ(Loaded(Map{{"rastername", false}}).m_rasterName, "false");
  EXPECT_EQ(Loaded(Map{{"rastername", list(1)}}).m_rasterName, "");
}

}  // namespace
