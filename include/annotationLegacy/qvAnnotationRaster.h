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
  qvAnnotationRaster();  ///< no name, 1 by 1
  /// Default-constructs, then assigns.
  qvAnnotationRaster(qvAnnotationRaster const& other);
  /// Copies what annotations share, then name and size.
  qvAnnotationRaster& operator=(qvAnnotationRaster const& other);
  ~qvAnnotationRaster() override;

  /// Reads one raster record. Failures go to the stream's error state; a name that is cut short is filled up
  /// as that of the shared record is.
  void load(qv::qvBaseStream& stream) override;
  /// Reads the shared keys, then "rastername" and "sizeem"; messages and result as in the base.
  bool loadFromVariant(qv::qvVariant::qvVariantMapImpl const& map, qv::qvStreamVersion const& version,
                       std::vector<std::string>& errors) override;

  std::string m_rasterName;    ///< by which the host resolves the image; empty by default
  Wm4::Vector2<float> m_size;  ///< width and height in legacy units (3.175 SVG units); 1 by 1 by default
};

}  // namespace qvLegacy
