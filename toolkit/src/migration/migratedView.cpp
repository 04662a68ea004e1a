#include "qvToolkit/migration/migratedView.h"

namespace qvToolkit {

Image const& findImage(MigratedView const& view, qv::svg::Image const& item) {
  static Image const none;
  auto const image = view.m_images.find(item.m_data);
  return image == view.m_images.end() ? none : *image->second;
}

}  // namespace qvToolkit
