#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "pages/affine.h"

namespace qvTest {

/// A picture of a page in shades of grey; 0 is white, 255 black.
class Picture {
 public:
  Picture() = default;
  /// Reads a PNG; empty when it is none.
  explicit Picture(std::string_view png);

  bool isEmpty() const { return m_width == 0; }
  std::size_t getWidth() const { return m_width; }

  /// What is drawn within `region`, to parts of a pixel. Both are in units of the page whose `viewBox` the
  /// picture shows. Nothing when there is no ink.
  std::optional<qvToolkit::Extent> findInk(qvToolkit::Extent const& region,
                                           qvToolkit::Extent const& viewBox) const;

 private:
  std::uint8_t getDarkness(std::size_t x, std::size_t y) const { return m_pixels[y * m_width + x]; }

  std::size_t m_width = 0;
  std::size_t m_height = 0;
  std::vector<std::uint8_t> m_pixels;
};

}  // namespace qvTest
