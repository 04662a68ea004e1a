#include <gtest/gtest.h>

#include "tests/migration/migrationFixture.h"

namespace {

using namespace migrationTest;

/// Texts of content 6 x 0 have a content box of 10 x 4, those of 0 x 6 one of 4 x 10.
class MigratedFrame : public Migration {
 protected:
  struct Framed {
    Cad cad;
    qv::svg::BoundingBox box;
    bool done;
  };

  Framed frame(int shape, std::string const& content = "6x0") {
    auto const text = makeText(content);
    text->m_style = static_cast<std::uint8_t>(shape);
    text->m_color = {1, 2, 3};
    qvLegacy::qvAnnotationMigration migration(0, nullptr, nullptr, 1);
    Framed framed{};
    framed.done = migration.createAnnotationFrame(text, framed.cad, framed.box);
    return framed;
  }

  std::vector<Point> polygon(int shape) {
    Framed const framed = frame(shape);
    auto const& path = childAs<qv::svg::Path>(*framed.cad->m_svgRoot, 0);
    EXPECT_EQ(path.m_contours.size(), 1U);
    EXPECT_TRUE(path.m_contours.at(0).m_closed);
    expectBox(framed.box, {-5, -2}, {5, 2});
    return pointsOf(path.m_contours.at(0));
  }

  static void expectBox(qv::svg::BoundingBox const& box, Point const& min, Point const& max) {
    EXPECT_EQ(box.getMinPoint(), min);
    EXPECT_EQ(box.getMaxPoint(), max);
  }
};

TEST_F(MigratedFrame, IsABlackHairlineFilledWithTheAnnotationsColour) {
  for (int shape = 1; shape <= 14; ++shape) {
    SCOPED_TRACE(shape);
    Framed const framed = frame(shape);
    ASSERT_TRUE(framed.done);
    auto const& item = childAt(*framed.cad->m_svgRoot, 0);
    EXPECT_EQ(item.m_borderColor, "#000000");
    EXPECT_EQ(item.m_backgroundColor, "#010203");
    EXPECT_EQ(item.m_class, "border");
    EXPECT_EQ(item.m_width, 1.0F);
    EXPECT_FALSE(item.m_transform.has_value());
  }
}

TEST_F(MigratedFrame, NoFrameHasABackgroundWithoutABorderAndStillReportsTheBox) {
  Framed const framed = frame(0);
  ASSERT_TRUE(framed.done);
  auto const& rect = frameOf(*framed.cad);
  EXPECT_EQ(rect.m_borderColor, "none");
  EXPECT_EQ(rect.m_backgroundColor, "#010203");
  EXPECT_EQ(rect.m_class, "border");
  EXPECT_EQ(rect.m_width, 1.0F);
  EXPECT_EQ(rect.m_origin, Point(-5, -2));
  EXPECT_EQ(rect.m_size, Point(10, 4));
  expectBox(framed.box, {-5, -2}, {5, 2});
}

TEST_F(MigratedFrame, ManyShapesAreDrawnAsRectanglesOnPurpose) {
  for (int const shape : {1, 3, 4, 9, 10, 11, 12, 13, 14}) {
    SCOPED_TRACE(shape);
    Framed const framed = frame(shape);
    ASSERT_TRUE(framed.done);
    EXPECT_EQ(frameOf(*framed.cad).m_origin, Point(-5, -2));
    EXPECT_EQ(frameOf(*framed.cad).m_size, Point(10, 4));
    expectBox(framed.box, {-5, -2}, {5, 2});
  }
}

TEST_F(MigratedFrame, ASquareHasTheLongerSideAroundTheSameCentre) {
  for (std::string const content : {"6x0", "0x6"}) {
    SCOPED_TRACE(content);
    Framed const framed = frame(2, content);
    ASSERT_TRUE(framed.done);
    EXPECT_EQ(frameOf(*framed.cad).m_origin, Point(-5, -5));
    EXPECT_EQ(frameOf(*framed.cad).m_size, Point(10, 10));
    expectBox(framed.box, {-5, -5}, {5, 5});
  }
}

TEST_F(MigratedFrame, ASquareOfSquareContentStaysAsItIs) {
  Framed const framed = frame(2, "2x2");
  EXPECT_EQ(frameOf(*framed.cad).m_size, Point(6, 6));
  expectBox(framed.box, {-3, -3}, {3, 3});
}

TEST_F(MigratedFrame, FlagsPointOutOfTheBoxThatTheyReport) {
  expectPoints(polygon(5), {{-5, 2}, {5, 2}, {6.6F, 0}, {5, -2}, {-5, -2}});
  expectPoints(polygon(6), {{-6.6F, 0}, {-5, 2}, {5, 2}, {5, -2}, {-5, -2}});
  expectPoints(polygon(7), {{-6.6F, 0}, {-5, 2}, {5, 2}, {6.6F, 0}, {5, -2}, {-5, -2}});
}

TEST_F(MigratedFrame, AParallelogramSlantsOutOfTheBoxThatItReports) {
  expectPoints(polygon(8), {{-5, -2}, {-6.6F, 2}, {5, 2}, {6.6F, -2}});
}

TEST_F(MigratedFrame, AShapeThatDoesNotExistFailsWithoutARecordOfItsOwn) {
  EXPECT_FALSE(frame(15).done);
  EXPECT_EQ(m_log.texts(), Log{});
  auto const text = makeText("6x0");
  text->m_style = 0xFF;
  EXPECT_EQ(migrateOne(text), nullptr);
  EXPECT_EQ(m_log.texts(), Log{"Fail to migrate annotation 'a' of view 'v'"});
}

TEST_F(MigratedFrame, OnlyTheLowFourBitsOfTheStyleAreItsShape) {
  Framed const framed = frame(0xE2);
  ASSERT_TRUE(framed.done);
  EXPECT_EQ(frameOf(*framed.cad).m_size, Point(10, 10));
}

TEST_F(MigratedFrame, LiesBehindTheContent) {
  Framed const framed = frame(1);
  ASSERT_EQ(framed.cad->m_svgRoot->editChildren().size(), 2U);
  EXPECT_EQ(childAt(*framed.cad->m_svgRoot, 0).m_class, "border");
}

TEST_F(MigratedFrame, HasTheColourEvenWhereTheContrastWouldBeWhite) {
  auto const text = makeText("6x0");
  text->m_color = {0, 0, 1};
  Cad const cad = migrateOne(text);
  ASSERT_NE(cad, nullptr);
  EXPECT_EQ(frameOf(*cad).m_backgroundColor, "#000001");
  EXPECT_EQ(frameOf(*cad).m_borderColor, "#000000");
}

}  // namespace
