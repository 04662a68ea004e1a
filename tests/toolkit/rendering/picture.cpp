#include "picture.h"

#include <png.h>

#include <algorithm>
#include <cmath>

namespace qvTest {

namespace {

/// Less is noise of the picture's making.
constexpr std::uint8_t MinDarkness = 20;

std::size_t toPixel(double position, std::size_t size) {
  return static_cast<std::size_t>(std::clamp(position, 0.0, static_cast<double>(size)));
}

/// The darkest pixel of each column or row between two others.
struct Profile {
  std::size_t m_first;
  std::vector<std::uint8_t> m_darkness;

  /// The ink's ends; a pixel that is half dark is half covered.
  std::optional<std::pair<double, double>> findEnds() const {
    auto const isInk = [](std::uint8_t darkness) { return darkness >= MinDarkness; };
    auto const first = std::find_if(m_darkness.begin(), m_darkness.end(), isInk);
    if (first == m_darkness.end()) return std::nullopt;
    auto const last = std::find_if(m_darkness.rbegin(), m_darkness.rend(), isInk);
    auto const start = static_cast<double>(m_first + static_cast<std::size_t>(first - m_darkness.begin()));
    auto const end = static_cast<double>(m_first + static_cast<std::size_t>(m_darkness.rend() - last));
    return std::pair(start + 1.0 - *first / 255.0, end - 1.0 + *last / 255.0);
  }
};

}  // namespace

Picture::Picture(std::string_view png) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  if (png_image_begin_read_from_memory(&image, png.data(), png.size()) == 0) return;
  image.format = PNG_FORMAT_GRAY;
  std::vector<std::uint8_t> pixels(PNG_IMAGE_SIZE(image));
  png_color const white{255, 255, 255};
  if (png_image_finish_read(&image, &white, pixels.data(), 0, nullptr) == 0) return;
  for (std::uint8_t& pixel : pixels) pixel = static_cast<std::uint8_t>(255 - pixel);
  m_width = image.width;
  m_height = image.height;
  m_pixels = std::move(pixels);
}

std::optional<qvToolkit::Extent> Picture::findInk(qvToolkit::Extent const& region,
                                                  qvToolkit::Extent const& viewBox) const {
  double const scale = static_cast<double>(m_width) / (viewBox.m_maxX - viewBox.m_minX);
  std::size_t const left = toPixel((region.m_minX - viewBox.m_minX) * scale, m_width);
  std::size_t const right = toPixel((region.m_maxX - viewBox.m_minX) * scale, m_width);
  std::size_t const top = toPixel((region.m_minY - viewBox.m_minY) * scale, m_height);
  std::size_t const bottom = toPixel((region.m_maxY - viewBox.m_minY) * scale, m_height);
  Profile columns{left, std::vector<std::uint8_t>(right - left)};
  Profile rows{top, std::vector<std::uint8_t>(bottom - top)};
  for (std::size_t y = top; y < bottom; ++y) {
    for (std::size_t x = left; x < right; ++x) {
      std::uint8_t const darkness = getDarkness(x, y);
      columns.m_darkness[x - left] = std::max(columns.m_darkness[x - left], darkness);
      rows.m_darkness[y - top] = std::max(rows.m_darkness[y - top], darkness);
    }
  }
  auto const horizontal = columns.findEnds();
  auto const vertical = rows.findEnds();
  if (!horizontal || !vertical) return std::nullopt;
  return qvToolkit::Extent{
      viewBox.m_minX + horizontal->first / scale, viewBox.m_minY + vertical->first / scale,
      viewBox.m_minX + horizontal->second / scale, viewBox.m_minY + vertical->second / scale};
}

}  // namespace qvTest
