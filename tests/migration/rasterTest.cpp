#include <gtest/gtest.h>

#include <bit>
#include <cstdint>

#include "tests/migration/migrationFixture.h"

namespace {

using namespace migrationTest;

class MigratedRaster : public Migration {
 protected:
  bool migrateRaster(Raster const& raster, bool withCallback = true) {
    qvLegacy::qvAnnotationMigration migration(0, withCallback ? &RasterSource::answer : nullptr, &m_source,
                                              1);
    return migration.migrateRasterAnnotation(&raster, m_root);
  }

  static std::uint32_t bits(float number) { return std::bit_cast<std::uint32_t>(number); }

  qv::svg::Node m_root;
};

TEST_F(MigratedRaster, SizesAreSinglePrecisionTimes3175) {
  m_source.rasters["n"] = "data";
  ASSERT_TRUE(migrateRaster(*makeRaster("n", 4, 2)));
  ASSERT_EQ(m_root.editChildren().size(), 2U);
  for (Point const& size :
       {childAs<qv::svg::Rect>(m_root, 0).m_size, childAs<qv::svg::Image>(m_root, 1).m_size}) {
    EXPECT_EQ(bits(size.X()), 0x414B3333U);
    EXPECT_EQ(bits(size.Y()), 0x40CB3333U);
  }
}

TEST_F(MigratedRaster, OfSizeOneIs3175Wide) {
  m_source.rasters["n"] = "data";
  ASSERT_TRUE(migrateRaster(*makeRaster("n", 1, 1)));
  EXPECT_EQ(childAs<qv::svg::Rect>(m_root, 0).m_size, Point(3.175F, 3.175F));
  EXPECT_EQ(childAs<qv::svg::Image>(m_root, 1).m_size, Point(3.175F, 3.175F));
}

TEST_F(MigratedRaster, TheImageLiesOnABlackRectangleAtItsPosition) {
  m_source.rasters["n"] = std::string("a\0b", 3);
  ASSERT_TRUE(migrateRaster(*makeRaster("n", 4, 2)));
  auto const& rect = childAs<qv::svg::Rect>(m_root, 0);
  auto const& image = childAs<qv::svg::Image>(m_root, 1);
  EXPECT_EQ(rect.m_backgroundColor, "#000000");
  EXPECT_FALSE(rect.m_borderColor.has_value());
  EXPECT_EQ(rect.m_origin, image.m_position);
  EXPECT_EQ(image.m_position, Point(0, 0));
  EXPECT_EQ(image.m_data, std::string("a\0b", 3));
}

TEST_F(MigratedRaster, TheCallbackIsAskedOnceWithTheNameUnchangedAndEmptyData) {
  m_source.rasters["../a b'"] = "data";
  ASSERT_NE(migrateOne(makeRaster("../a b'", 1, 1)), nullptr);
  EXPECT_EQ(m_source.asked, std::vector<std::string>{"../a b'"});
  EXPECT_TRUE(m_source.dataStartedEmpty);
}

TEST_F(MigratedRaster, ACallbackThatRefusesCausesOneRecordAndNoChange) {
  EXPECT_FALSE(migrateRaster(*makeRaster("n", 1, 1)));
  EXPECT_EQ(m_log.texts(), Log{"Fail to retrieve raster 'n'"});
  EXPECT_EQ(m_source.asked.size(), 1U);
  EXPECT_TRUE(m_root.editChildren().empty());
}

TEST_F(MigratedRaster, WithoutACallbackNobodyIsAsked) {
  EXPECT_FALSE(migrateRaster(*makeRaster("n", 1, 1), false));
  EXPECT_EQ(m_log.texts(), Log{"No raster callback"});
  EXPECT_TRUE(m_source.asked.empty());
  EXPECT_TRUE(m_root.editChildren().empty());
}

TEST_F(MigratedRaster, WithoutACallbackTheViewFails) {
  qvLegacy::qvAnnotationMigration migration(0, nullptr, nullptr, 1);
  CadView result;
  EXPECT_FALSE(migration.migrateAnnotationView(makeView({makeRaster("n", 1, 1)}), result));
  EXPECT_EQ(m_log.texts(), (Log{"No raster callback", "Fail to migrate annotation 'a' of view 'v'"}));
}

TEST_F(MigratedRaster, EmptyDataGiveAnImageWithoutData) {
  m_source.rasters["n"] = "";
  ASSERT_TRUE(migrateRaster(*makeRaster("n", 1, 1)));
  EXPECT_EQ(childAs<qv::svg::Image>(m_root, 1).m_data, "");
}

TEST_F(MigratedRaster, ComesAfterWhatTheRootHolds) {
  m_source.rasters["n"] = "data";
  m_root.editChildren().push_back(std::make_shared<qv::svg::Node>());
  ASSERT_TRUE(migrateRaster(*makeRaster("n", 1, 1)));
  ASSERT_EQ(m_root.editChildren().size(), 3U);
  EXPECT_EQ(childAt(m_root, 1).getKind(), qv::svg::ItemKind::Rect);
  EXPECT_EQ(childAt(m_root, 2).getKind(), qv::svg::ItemKind::Image);
}

}  // namespace
