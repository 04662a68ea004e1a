#include <gtest/gtest.h>

#include "annotationLegacy/qvAnnotationRaster.h"
#include "tests/readers/binary/records.h"

namespace {

using namespace readersTest;
using Raster = qvLegacy::qvAnnotationRaster;
using Size = Wm4::Vector2<float>;

TEST(RasterRecord, ReadsBaseNameAndSize) {
  Bytes bytes("00 00 00 00 | 00 00 00 00");
  bytes.point(0, 0, 0).append(Bytes("FF FF FF 01 | 04 00 00 00 6C 6F 67 6F | 00 00 80 40 00 00 00 40"));
  ASSERT_EQ(bytes.size(), 40U);
  ByteStream stream(bytes, v6_15);
  Raster raster;
  raster.load(stream);
  EXPECT_EQ(raster.m_rasterName, "logo");
  EXPECT_EQ(raster.m_size, Size(4, 2));
  EXPECT_EQ(stream.left(), 0U);
  EXPECT_FALSE(stream.hasStreamError());
}

TEST(RasterRecord, ReadsToItsLastByteAtEveryVersion) {
  for (std::uint32_t const version : {v6_15, v6_16, v6_17, v6_21, v6_22, v6_26, v6_27}) {
    ByteStream stream(rasterRecord(version, "r"), version);
    Raster raster;
    raster.load(stream);
    EXPECT_EQ(raster.m_name, "r");
    EXPECT_EQ(raster.m_rasterName, "logo");
    EXPECT_EQ(raster.m_size, Size(4, 2));
    EXPECT_EQ(stream.left(), 0U) << version;
    EXPECT_FALSE(stream.hasStreamError()) << version;
  }
}

TEST(RasterRecord, KeepsTheOlderCharactersWhenLoadedAgainFromAShorterStream) {
  Raster raster;
  ByteStream first(baseRecord(v6_15, "r").text("WELD-2").f32(4).f32(2), v6_15);
  raster.load(first);
  ASSERT_EQ(raster.m_rasterName, "WELD-2");
  Bytes const again = rasterRecord(v6_15, "r");
  ByteStream second(again.prefix(again.size() - 8 - 2), v6_15);
  raster.load(second);
  EXPECT_EQ(raster.m_rasterName, "loLD");
  EXPECT_EQ(raster.m_size, Size(4, 2));
}

TEST(RasterRecord, IsAStreamErrorBefore6_15) {
  for (std::uint32_t const version : {v6_12, v6_13, v6_14}) {
    ByteStream stream(rasterRecord(v6_15, "r"), version);
    Raster raster;
    raster.m_rasterName = "old";
    raster.load(stream);
    EXPECT_EQ(raster.m_name, "");
    EXPECT_EQ(raster.m_rasterName, "old");
    EXPECT_TRUE(stream.reads().empty());
    EXPECT_TRUE(stream.hasStreamError());
  }
}

TEST(RasterRecord, GoesOnAtTheNextByteAfterAnUnknownChildKind) {
  Bytes bytes;
  bytes.u32(0).u32(0).u32(0).point(4, 5, 6).u32(0).u32(1).u8(5).u8(3).text("logo").f32(4).f32(2);
  ByteStream stream(bytes, v6_22);
  Raster raster;
  raster.load(stream);
  EXPECT_EQ(raster.m_rasterName, "logo");
  EXPECT_EQ(raster.m_size, Size(4, 2));
  EXPECT_TRUE(stream.hasStreamError());
  EXPECT_EQ(stream.left(), 0U);
}

TEST(RasterRecord, KeepsTheSizeWhenItIsNotWhole) {
  Bytes const bytes = rasterRecord(v6_15, "r");
  ByteStream stream(bytes.prefix(bytes.size() - 1), v6_15);
  Raster raster;
  raster.load(stream);
  EXPECT_EQ(raster.m_rasterName, "logo");
  EXPECT_EQ(raster.m_size, Size(1, 1));
  EXPECT_TRUE(stream.hasStreamError());
}

}  // namespace
