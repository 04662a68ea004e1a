#include "qvToolkit/reports/inspection.h"

#include <algorithm>
#include <utility>

#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "qvToolkit/model/annotationWalk.h"

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationInterface;
using qvLegacy::qvAnnotationRaster;
using qvLegacy::qvAnnotationText;

void inspectText(qvAnnotationText const& text, InspectedAnnotation& inspected) {
  text.toString(inspected.m_text);
  LegacyCounts& counts = inspected.m_counts;
  counts.m_text = 1;
  counts.m_lines = text.m_lines.size();
  for (auto const& line : text.m_lines) {
    counts.m_segments += line.size();
    for (qvAnnotationText::TextSegment const& run : line) {
      counts.m_textBytes += run.m_length;
      counts.m_ownProperties += run.m_textProperties != nullptr ? 1U : 0U;
    }
  }
}

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
  inspected.m_counts.m_children = annotation->getSubAnnotsCount();
  inspected.m_counts.m_leaders = annotation->m_leaders.size();
  inspected.m_counts.m_measures = annotation->m_measures.size();
  if (auto const* text = dynamic_cast<qvAnnotationText const*>(annotation)) inspectText(*text, inspected);
  if (auto const* raster = dynamic_cast<qvAnnotationRaster const*>(annotation)) {
    inspected.m_text = raster->m_rasterName;
    inspected.m_counts.m_raster = 1;
  }
  return inspected;
}

void addCounts(LegacyCounts& view, InspectedAnnotation const& annotation) {
  LegacyCounts const& counts = annotation.m_counts;
  if (annotation.m_depth == 0) {
    ++view.m_annotations;
    view.m_text += counts.m_text;
    view.m_raster += counts.m_raster;
  } else {
    ++view.m_children;
  }
  view.m_depth = std::max<std::uint64_t>(view.m_depth, annotation.m_depth);
  view.m_leaders += counts.m_leaders;
  view.m_measures += counts.m_measures;
  view.m_lines += counts.m_lines;
  view.m_segments += counts.m_segments;
  view.m_ownProperties += counts.m_ownProperties;
  view.m_textBytes += counts.m_textBytes;
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
    addCounts(inspected.m_counts, inspected.m_annotations.back());
  });
  return inspected;
}

}  // namespace

Inspection inspectDocument(Document const& document) {
  Inspection inspection{document.m_path, document.m_format, getFailure(document), {}, document.m_findings};
  for (std::size_t i = 0; i < document.m_views.size(); ++i) {
    inspection.m_views.push_back(inspectView(document.m_views[i], i));
  }
  return inspection;
}

}  // namespace qvToolkit
