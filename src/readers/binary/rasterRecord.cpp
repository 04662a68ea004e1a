#include "annotationLegacy/qvAnnotationRaster.h"
#include "readers/binary/recordReader.h"

namespace qvLegacy {

void qvAnnotationRaster::load(qv::qvBaseStream& stream) {
  readers::RecordReader in(stream);
  if (!in.has(rules::Since::rasters)) return in.fail();
  qvAnnotationInterface::load(stream);
  in.fields(*this, rules::members::raster<qvAnnotationRaster>);
}

}  // namespace qvLegacy
