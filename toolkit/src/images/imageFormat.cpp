#include "images/imageFormat.h"

#include <cstddef>

namespace qvToolkit {

namespace {

constexpr std::string_view PngMagic("\x89PNG\r\n\x1a\n", 8);

/// Unsigned numbers of an image header; 0 past the end of the data.
class HeaderBytes {
 public:
  explicit HeaderBytes(std::string_view bytes) : m_bytes(bytes) {}

  std::uint32_t getByte(std::size_t at) const {
    return at < m_bytes.size() ? static_cast<unsigned char>(m_bytes[at]) : 0U;
  }
  std::uint32_t getBig(std::size_t at, std::size_t count) const {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < count; ++i) number = number << 8 | getByte(at + i);
    return number;
  }
  std::uint32_t getLittle(std::size_t at, std::size_t count) const {
    std::uint32_t number = 0;
    for (std::size_t i = count; i > 0; --i) number = number << 8 | getByte(at + i - 1);
    return number;
  }
  bool hasText(std::size_t at, std::string_view text) const {
    return m_bytes.size() >= at + text.size() && m_bytes.substr(at, text.size()) == text;
  }
  std::size_t getSize() const { return m_bytes.size(); }

 private:
  std::string_view m_bytes;
};

/// Start-of-frame markers of a JPEG image hold its size; the three left out are tables.
bool isStartOfFrame(std::uint32_t marker) {
  return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

ImageHeader readJpeg(HeaderBytes const& bytes) {
  ImageHeader header{"image/jpeg"};
  std::size_t at = 2;
  while (at + 9 < bytes.getSize() && bytes.getByte(at) == 0xFF) {
    std::uint32_t const marker = bytes.getByte(at + 1);
    if (isStartOfFrame(marker)) {
      header.m_height = bytes.getBig(at + 5, 2);
      header.m_width = bytes.getBig(at + 7, 2);
      return header;
    }
    // A filler byte stands alone, anything else gives its length.
    at += marker == 0xFF ? 1 : 2 + bytes.getBig(at + 2, 2);
  }
  return header;
}

ImageHeader readWebp(HeaderBytes const& bytes) {
  if (bytes.hasText(12, "VP8X"))
    return {"image/webp", bytes.getLittle(24, 3) + 1, bytes.getLittle(27, 3) + 1};
  if (bytes.hasText(12, "VP8L")) {
    std::uint32_t const bits = bytes.getLittle(21, 4);
    return {"image/webp", (bits & 0x3FFF) + 1, (bits >> 14 & 0x3FFF) + 1};
  }
  return {"image/webp", bytes.getLittle(26, 2) & 0x3FFF, bytes.getLittle(28, 2) & 0x3FFF};
}

}  // namespace

ImageHeader readImageHeader(std::string_view data) {
  HeaderBytes const bytes(data);
  if (bytes.hasText(0, PngMagic)) return {"image/png", bytes.getBig(16, 4), bytes.getBig(20, 4)};
  if (bytes.hasText(0, "\xFF\xD8\xFF")) return readJpeg(bytes);
  if (bytes.hasText(0, "GIF87a") || bytes.hasText(0, "GIF89a")) {
    return {"image/gif", bytes.getLittle(6, 2), bytes.getLittle(8, 2)};
  }
  if (bytes.hasText(0, "RIFF") && bytes.hasText(8, "WEBPVP8")) return readWebp(bytes);
  return {};
}

bool isShowable(ImageHeader const& header) {
  std::uint64_t const pixels = std::uint64_t{header.m_width} * header.m_height;
  return !header.m_mediaType.empty() && pixels > 0 && pixels <= MaxPixels;
}

}  // namespace qvToolkit
