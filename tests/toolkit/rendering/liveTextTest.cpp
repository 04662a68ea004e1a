#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "renderers.h"
#include "samplePage.h"
#include "samples.h"

namespace {

using namespace qvTest;
using qvToolkit::Extent;
using qvToolkit::TextMode;

constexpr double PixelsPerUnit = 30.0;
/// One per cent of the text height.
constexpr double Tolerance = 0.01 * static_cast<double>(SampleSize);
/// Around a sample's ink nothing else is drawn within this distance.
constexpr double Room = 0.5 * static_cast<double>(SampleSize);

std::size_t toPixels(double length) {
  return static_cast<std::size_t>(std::ceil(length * PixelsPerUnit));
}

struct PageSize {
  explicit PageSize(Extent const& viewBox)
      : m_width(toPixels(viewBox.m_maxX - viewBox.m_minX)),
        m_height(toPixels(viewBox.m_maxY - viewBox.m_minY)) {}
  std::size_t m_width;
  std::size_t m_height;
};

std::string describeDifference(Extent const& found, Extent const& expected) {
  auto const percent = [](double difference) {
    return std::to_string(difference * 100.0 / static_cast<double>(SampleSize));
  };
  return "left " + percent(found.m_minX - expected.m_minX) + ", top " +
         percent(found.m_minY - expected.m_minY) + ", right " + percent(found.m_maxX - expected.m_maxX) +
         ", bottom " + percent(found.m_maxY - expected.m_maxY) + " per cent of the text height";
}

bool isNear(Extent const& a, Extent const& b) {
  return std::abs(a.m_minX - b.m_minX) <= Tolerance && std::abs(a.m_minY - b.m_minY) <= Tolerance &&
         std::abs(a.m_maxX - b.m_maxX) <= Tolerance && std::abs(a.m_maxY - b.m_maxY) <= Tolerance;
}

bool isWithin(Extent const& ink, Extent const& box) {
  return ink.m_minX >= box.m_minX - Tolerance && ink.m_minY >= box.m_minY - Tolerance &&
         ink.m_maxX <= box.m_maxX + Tolerance && ink.m_maxY <= box.m_maxY + Tolerance;
}

Extent grow(Extent const& extent, double margin) {
  return {extent.m_minX - margin, extent.m_minY - margin, extent.m_maxX + margin, extent.m_maxY + margin};
}

/// Every sample's ink stands where the layout puts it.
void expectLaidOutInk(SamplePage const& page, Picture const& picture, Extent const& viewBox) {
  for (PlacedSample const& sample : page.m_samples) {
    ASSERT_FALSE(sample.m_ink.isEmpty()) << sample.m_description;
    auto const ink = picture.findInk(grow(sample.m_ink, Room), viewBox);
    ASSERT_TRUE(ink.has_value()) << sample.m_description;
    EXPECT_TRUE(isNear(*ink, sample.m_ink))
        << sample.m_description << ": " << describeDifference(*ink, sample.m_ink);
    EXPECT_TRUE(isWithin(*ink, sample.m_box)) << sample.m_description;
  }
}

class LiveText : public testing::Test {
 protected:
  void expect(Rendering const& rendering) {
    if (rendering.m_isMissing) GTEST_SKIP() << rendering.m_problem;
    ASSERT_EQ(rendering.m_problem, "");
    expectLaidOutInk(m_page, rendering.m_picture, m_viewBox);
  }

  SamplePage m_page;
  std::string m_svg = m_page.write(TextMode::Live);
  Extent m_viewBox = readViewBox(m_svg);
  PageSize m_size = PageSize(m_viewBox);
};

TEST_F(LiveText, IsDrawnByLibrsvgWhereTheLayoutPutsIt) {
  expect(renderByLibrsvg(m_svg, m_size.m_width));
}

TEST_F(LiveText, IsDrawnByChromiumWhereTheLayoutPutsIt) {
  expect(renderByChromium(m_svg, m_size.m_width, m_size.m_height));
}

TEST_F(LiveText, IsDrawnByResvgWhereTheLayoutPutsIt) {
  expect(renderByResvg(m_svg, m_size.m_width));
}

TEST_F(LiveText, IsDrawnLikeItsOutlines) {
  Rendering const live = renderByLibrsvg(m_svg, m_size.m_width);
  if (live.m_isMissing) GTEST_SKIP() << live.m_problem;
  for (TextMode const mode : {TextMode::Outline, TextMode::Both}) {
    Rendering const outlines = renderByLibrsvg(m_page.write(mode), m_size.m_width);
    ASSERT_EQ(outlines.m_problem, "");
    for (PlacedSample const& sample : m_page.m_samples) {
      auto const expected = live.m_picture.findInk(grow(sample.m_ink, Room), m_viewBox);
      auto const ink = outlines.m_picture.findInk(grow(sample.m_ink, Room), m_viewBox);
      ASSERT_TRUE(expected.has_value() && ink.has_value()) << sample.m_description;
      EXPECT_TRUE(isNear(*ink, *expected))
          << sample.m_description << ": " << describeDifference(*ink, *expected);
    }
  }
}

}  // namespace
