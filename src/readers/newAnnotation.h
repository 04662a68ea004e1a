#pragma once

#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"

namespace qvLegacy::readers {

using AnnotationPointer = qv::qvPointer<qvAnnotationInterface>;

/// A new annotation of the given kind with its defaults; null for a kind that has no class.
inline AnnotationPointer newAnnotation(qvAnnotationInterface::Type type) {
  switch (type) {
    case qvAnnotationInterface::Text:
      return new qvAnnotationText;
    case qvAnnotationInterface::Raster:
      return new qvAnnotationRaster;
    default:
      return nullptr;
  }
}

}  // namespace qvLegacy::readers
