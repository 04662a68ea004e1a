// A library of its own that is loaded at run time, as hosts load their document readers.

#include <stdexcept>

#include "annotationLegacy/iterateOverAnnotationTree.h"
#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"

#define PLUGIN_EXPORT extern "C" __attribute__((visibility("default")))

namespace {

/// A kind of text that only the plug-in knows.
class StampedText : public qvLegacy::qvAnnotationText {};

class ThrowingVisitor : public qvLegacy::annotation::IterateOverAnnotationTreeFunctorInterface {
 public:
  void startProcessingAnnot(qvLegacy::qvAnnotationInterface::SubAnnot const& node, bool) override {
    if (node.m_annot->m_type == qvLegacy::qvAnnotationInterface::Raster) throw std::runtime_error("a raster");
  }
};

}  // namespace

PLUGIN_EXPORT qv::qvRttiInterface* makeStampedText() {
  return new StampedText;
}

PLUGIN_EXPORT bool isText(qv::qvRttiInterface const* object) {
  return dynamic_cast<qvLegacy::qvAnnotationText const*>(object) != nullptr;
}

PLUGIN_EXPORT void throwText(qvLegacy::qvAnnotationText* text) {
  throw text;
}

PLUGIN_EXPORT void walkAndThrow(qvLegacy::qvAnnotationInterface* root) {
  ThrowingVisitor().iterateOverAnnotationTree(root);
}
