#include "qvToolkit/reports/inspection.h"

#include <utility>

#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "qvToolkit/model/annotationWalk.h"

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationInterface;
using qvLegacy::qvAnnotationRaster;
using qvLegacy::qvAnnotationText;

InspectedAnnotation inspectAnnotation(WalkedAnnotation const& walked) {
  InspectedAnnotation inspected;
  inspected.m_address = walked.m_address.getText();
  inspected.m_depth = walked.m_depth;
  inspected.m_anchor = walked.m_anchor;
  qvAnnotationInterface const* const annotation = walked.m_annotation;
  if (annotation == nullptr) return inspected;
  inspected.m_type = annotation->m_type;
  inspected.m_name = annotation->m_name;
  inspected.m_style = annotation->m_style;
  inspected.m_color = annotation->m_color;
  inspected.m_position = annotation->m_position;
  inspected.m_metadata = annotation->m_metadata.size();
  inspected.m_counts = countAnnotation(*annotation);
  if (auto const* text = dynamic_cast<qvAnnotationText const*>(annotation)) text->toString(inspected.m_text);
  if (auto const* raster = dynamic_cast<qvAnnotationRaster const*>(annotation)) {
    inspected.m_text = raster->m_rasterName;
  }
  return inspected;
}

InspectedView inspectView(LoadedView const& loaded, std::size_t index) {
  InspectedView inspected;
  Address const address = Address::ofView(index);
  inspected.m_address = address.getText();
  inspected.m_name = loaded.m_name;
  inspected.m_version = loaded.m_version;
  inspected.m_messages = loaded.m_messages;
  qvLegacy::qvAnnotationView const* const view = loaded.m_view.get();
  inspected.m_isRead = view != nullptr;
  if (view == nullptr) return inspected;
  inspected.m_planeOrigin = view->m_planeOrigin;
  inspected.m_planeNormal = view->m_planeNormal;
  inspected.m_planeXAxis = view->m_planeXAxis;
  inspected.m_metadata = view->m_metadata.size();
  walkAnnotations(*view, address, [&](WalkedAnnotation const& walked) {
    inspected.m_annotations.push_back(inspectAnnotation(walked));
    addToView(inspected.m_counts, inspected.m_annotations.back().m_counts, walked.m_depth);
  });
  return inspected;
}

}  // namespace

Inspection inspectDocument(Document const& document) {
  Inspection inspection{document.m_path, document.m_source, getFailure(document), {}, document.m_findings};
  for (std::size_t i = 0; i < document.m_views.size(); ++i) {
    inspection.m_views.push_back(inspectView(document.m_views[i], i));
  }
  return inspection;
}

}  // namespace qvToolkit
