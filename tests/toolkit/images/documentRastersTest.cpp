#include "images/documentRasters.h"

#include <gtest/gtest.h>

namespace qvToolkit {

namespace {

/// Has an image for each name of one letter, and counts how often it is asked.
class DocumentRastersTest : public testing::Test {
 protected:
  DocumentRasters m_rasters{[this](std::string const& name) -> Raster {
    ++m_asked;
    if (name.size() != 1) return {nullptr, "too long"};
    return {std::make_shared<Image const>(name), {}};
  }};
  int m_asked = 0;
};

TEST_F(DocumentRastersTest, HoldOneImageOnceHoweverOftenItIsAskedFor) {
  auto const first = m_rasters.ask("a").m_image;
  EXPECT_EQ(m_rasters.ask("a").m_image, first);
  EXPECT_NE(m_rasters.ask("b").m_image, first);
  EXPECT_EQ(m_asked, 2);
}

TEST_F(DocumentRastersTest, AskForANameWithoutImageOnce) {
  EXPECT_EQ(m_rasters.findRefusal("none"), nullptr);
  EXPECT_EQ(m_rasters.ask("none").m_image, nullptr);
  EXPECT_EQ(m_rasters.ask("none").m_problem, "too long");
  ASSERT_NE(m_rasters.findRefusal("none"), nullptr);
  EXPECT_EQ(m_rasters.findRefusal("none")->m_problem, "too long");
  EXPECT_EQ(m_asked, 1);
}

TEST_F(DocumentRastersTest, KnowNoRefusalOfAnImageThatIsThere) {
  m_rasters.ask("a");
  EXPECT_EQ(m_rasters.findRefusal("a"), nullptr);
}

TEST(DocumentRastersLimits, RefuseWhatGoesBeyond512MiBTogether) {
  auto const large = std::make_shared<Image const>(std::string(std::size_t{8} << 20, 'x'));
  DocumentRasters rasters([&large](std::string const&) -> Raster { return {large, {}}; });
  for (int i = 0; i < 64; ++i) EXPECT_NE(rasters.ask(std::to_string(i)).m_image, nullptr) << i;
  EXPECT_EQ(rasters.ask("one more").m_problem, "the images of one document may have 512 MiB together");
}

TEST(DocumentRastersWithoutSource, HaveNoImage) {
  DocumentRasters rasters({});
  EXPECT_FALSE(rasters.hasSource());
  EXPECT_EQ(rasters.ask("a").m_problem, "no folder of images was given");
}

}  // namespace

}  // namespace qvToolkit
