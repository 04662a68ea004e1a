#include "annotationLegacy/qvAnnotationRaster.h"
#include "readers/binary/recordReader.h"

namespace qvLegacy {

void qvAnnotationRaster::load(qv::qvBaseStream& stream) {
  readers::RecordReader in(stream);
  if (!in.has(rules::Since::rasters)) return in.fail();
  qvAnnotationInterface::load(stream);
  in.text(m_rasterName);
  in.vector(m_size);
}

}  // namespace qvLegacy
