#include "qvToolkit/images/image.h"

#include <utility>

#include "images/imageFormat.h"
#include "text/contentHash.h"

namespace qvToolkit {

Image::Image(std::string bytes) : m_bytes(std::move(bytes)), m_hash(hashContent(m_bytes)) {
  ImageHeader const header = readImageHeader(m_bytes);
  m_mediaType = header.m_mediaType;
  m_isShowable = qvToolkit::isShowable(header);
}

}  // namespace qvToolkit
