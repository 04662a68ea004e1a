#pragma once

#include <string>
#include <string_view>

#include "qvToolkit/export.h"

namespace qvToolkit {

/// An image file in memory, looked at once for all who show it. No pixel of it is decoded.
/// @code
/// auto const image = std::make_shared<Image const>("GIF89a\x02\x01\x01\x01");
/// assert(image->getMediaType() == "image/gif" && image->isShowable());
/// assert(Image("<svg/>").getMediaType().empty());
/// @endcode
class QVT_EXPORT Image {
 public:
  Image() : Image(std::string()) {}  ///< no bytes, which are no image
  /// Reads the header and hashes all of the bytes.
  explicit Image(std::string bytes);

  std::string const& getBytes() const noexcept { return m_bytes; }  ///< as they stand in the file
  /// "image/png", "image/jpeg", "image/gif" or "image/webp"; empty where the bytes are none of these.
  std::string_view getMediaType() const noexcept { return m_mediaType; }
  /// A known format, and at least one and at most 64 million pixels. Any other data could be active content
  /// or too large to show.
  bool isShowable() const noexcept { return m_isShowable; }
  /// 64-bit FNV-1a of the bytes, 16 lower-case hexadecimal digits. It tells contents apart; it is no proof
  /// against forgery.
  std::string const& getHash() const noexcept { return m_hash; }

 private:
  std::string m_bytes;
  std::string_view m_mediaType;
  bool m_isShowable;
  std::string m_hash;
};

}  // namespace qvToolkit
