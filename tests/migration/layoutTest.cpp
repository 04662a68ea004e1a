// With the platform's own text layout.

#include <gtest/gtest.h>

#include "tests/migration/migrationFixture.h"

namespace {

using namespace migrationTest;

class MigrationWithLayout : public Migration {
 protected:
  Point frameSize(std::string const& text, std::uint16_t height = 100) {
    auto const annotation = makeText(text);
    annotation->m_defaultTextProperties.m_height = height;
    Cad const cad = migrateOne(annotation);
    return cad != nullptr ? frameOf(*cad).m_size : Point(0, 0);
  }
};

TEST_F(MigrationWithLayout, FramesATextAroundTheOrigin) {
  Cad const cad = migrateOne(makeText("Note 12"));
  ASSERT_NE(cad, nullptr);
  auto const& frame = frameOf(*cad);
  EXPECT_GT(frame.m_size.X(), frame.m_size.Y());
  EXPECT_GT(frame.m_size.Y(), 4.0F);
  expectPoint(frame.m_origin * -2.0F, frame.m_size);
  ASSERT_EQ(cad->m_svgRoot->editChildren().size(), 2U);
  EXPECT_FALSE(childAs<qv::svg::Node>(*cad->m_svgRoot, 1).editChildren().empty());
}

TEST_F(MigrationWithLayout, TheContentLiesWithinTheFrameLessItsMargin) {
  Cad const cad = migrateOne(makeText("Two\nlines"));
  ASSERT_NE(cad, nullptr);
  qv::svg::BoundingBox content;
  qv::svg::ComputeEstimatedBoundingBox(childAt(*cad->m_svgRoot, 1), content, nullptr, nullptr);
  Point const margin(2, 2);
  EXPECT_NEAR(content.getWidth(), frameOf(*cad).m_size.X() - 2 * margin.X(), 1e-4F);
  EXPECT_NEAR(content.getHeight(), frameOf(*cad).m_size.Y() - 2 * margin.Y(), 1e-4F);
}

TEST_F(MigrationWithLayout, LargerTextsHaveLargerFrames) {
  EXPECT_LT(frameSize("Note").X(), frameSize("Note", 250).X());
  EXPECT_LT(frameSize("Note").Y(), frameSize("Note\nNote").Y());
}

TEST_F(MigrationWithLayout, ATextOfBlanksHasAFrameOfItsOwn) {
  Point const size = frameSize("   ");
  EXPECT_GT(size.X(), 0.0F);
  EXPECT_GT(size.Y(), 0.0F);
  EXPECT_EQ(m_log.texts(), Log{});
}

}  // namespace
