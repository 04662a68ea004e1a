#pragma once

#include <cstdint>
#include <string_view>

namespace qvToolkit {

/// What the first bytes of an encoded image say about it.
struct ImageHeader {
  std::string_view m_mediaType;  ///< empty when the bytes are none of the formats below
  std::uint32_t m_width = 0;     ///< in pixels
  std::uint32_t m_height = 0;
};

constexpr std::uint64_t MaxPixels = std::uint64_t{64} * 1000 * 1000;

/// Reads the header of a PNG, JPEG, GIF or WebP image. Width and height stay 0 when the header is cut off.
ImageHeader readImageHeader(std::string_view data);

/// A known format, at least one and at most `MaxPixels` pixels. Any other data could be active content or too
/// large to show.
bool isShowable(ImageHeader const& header);

}  // namespace qvToolkit
