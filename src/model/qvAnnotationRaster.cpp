#include "annotationLegacy/qvAnnotationRaster.h"

#include "model/keepAlive.h"

namespace qvLegacy {

qvAnnotationRaster::qvAnnotationRaster() : qvAnnotationInterface(Raster), m_size(Wm4::Vector2<float>::ONE) {
}

qvAnnotationRaster::qvAnnotationRaster(qvAnnotationRaster const& other) : qvAnnotationRaster() {
  *this = other;
}

qvAnnotationRaster& qvAnnotationRaster::operator=(qvAnnotationRaster const& other) {
  if (this == &other) return *this;
  auto const source = keepAlive(other, *this);
  qvAnnotationInterface::operator=(other);
  m_rasterName = other.m_rasterName;
  m_size = other.m_size;
  return *this;
}

qvAnnotationRaster::~qvAnnotationRaster() = default;

}  // namespace qvLegacy
