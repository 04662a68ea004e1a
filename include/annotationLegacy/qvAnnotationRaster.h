#pragma once

#include <string>
#include <vector>

#include "annotationLegacy/export.h"
#include "annotationLegacy/platform.h"
#include "annotationLegacy/qvAnnotationInterface.h"

namespace qvLegacy {

/// Legacy annotation that shows an image. It holds no pixels: it names a raster that the host resolves.
class QVA_EXPORT qvAnnotationRaster : public qvAnnotationInterface {
 public:
  qvAnnotationRaster();
  qvAnnotationRaster(qvAnnotationRaster const& other);
  qvAnnotationRaster& operator=(qvAnnotationRaster const& other);
  ~qvAnnotationRaster() override;

  void load(qv::qvBaseStream& stream) override;
  bool loadFromVariant(qv::qvVariant::qvVariantMapImpl const& map, qv::qvStreamVersion const& version,
                       std::vector<std::string>& errors) override;

  std::string m_rasterName;
  Wm4::Vector2<float> m_size;  ///< width and height in legacy units (3.175 SVG units); 1 by 1 by default
};

}  // namespace qvLegacy
