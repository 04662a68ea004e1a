#include "qvToolkit/model/legacyCounts.h"

#include <algorithm>

#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "qvToolkit/model/annotationWalk.h"

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationInterface;
using qvLegacy::qvAnnotationRaster;
using qvLegacy::qvAnnotationText;

void countText(qvAnnotationText const& text, LegacyCounts& counts) {
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

}  // namespace

LegacyCounts countAnnotation(qvAnnotationInterface const& annotation) {
  LegacyCounts counts;
  counts.m_children = annotation.getSubAnnotsCount();
  counts.m_leaders = annotation.m_leaders.size();
  counts.m_measures = annotation.m_measures.size();
  if (auto const* text = dynamic_cast<qvAnnotationText const*>(&annotation)) countText(*text, counts);
  if (dynamic_cast<qvAnnotationRaster const*>(&annotation) != nullptr) counts.m_raster = 1;
  return counts;
}

void addToView(LegacyCounts& view, LegacyCounts const& annotation, std::uint64_t depth) {
  if (depth == 0) {
    ++view.m_annotations;
    view.m_text += annotation.m_text;
    view.m_raster += annotation.m_raster;
  } else {
    ++view.m_children;
  }
  view.m_depth = std::max(view.m_depth, depth);
  view.m_leaders += annotation.m_leaders;
  view.m_measures += annotation.m_measures;
  view.m_lines += annotation.m_lines;
  view.m_segments += annotation.m_segments;
  view.m_ownProperties += annotation.m_ownProperties;
  view.m_textBytes += annotation.m_textBytes;
}

LegacyCounts countView(qvLegacy::qvAnnotationView const& view) {
  LegacyCounts counts;
  walkAnnotations(view, Address(), [&counts](WalkedAnnotation const& walked) {
    bool const isHere = walked.m_annotation != nullptr;
    addToView(counts, isHere ? countAnnotation(*walked.m_annotation) : LegacyCounts{}, walked.m_depth);
  });
  return counts;
}

}  // namespace qvToolkit
