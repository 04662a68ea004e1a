#pragma once

#include <cstdint>

#include "annotationLegacy/qvAnnotationView.h"
#include "qvToolkit/export.h"

namespace qvToolkit {

/// How much a view or an annotation holds. Leaders, measures, lines, runs and text bytes of a view are those
/// of all its annotations at all levels.
/// @code
/// Document const document = openDocument("bracket.json");
/// for (LoadedView const& view : document.m_views)
///   if (view.m_view != nullptr) std::cout << countView(*view.m_view).m_text << " texts\n";
/// @endcode
struct LegacyCounts {
  std::uint64_t m_annotations = 0;    ///< of the view itself
  std::uint64_t m_children = 0;       ///< sub-annotations at all levels
  std::uint64_t m_depth = 0;          ///< levels of sub-annotations
  std::uint64_t m_leaders = 0;        ///< leader lines
  std::uint64_t m_lines = 0;          ///< of text
  std::uint64_t m_measures = 0;       ///< measure leaders
  std::uint64_t m_ownProperties = 0;  ///< runs with properties of their own
  std::uint64_t m_raster = 0;         ///< the view's own raster annotations
  std::uint64_t m_segments = 0;       ///< runs
  std::uint64_t m_text = 0;           ///< the view's own text annotations
  std::uint64_t m_textBytes = 0;      ///< of all runs, line breaks not counted

  bool operator==(LegacyCounts const&) const = default;  ///< the same numbers
};

/// Counts an annotation without its sub-annotations; children: its direct ones. `m_text` or `m_raster` is 1.
QVT_EXPORT LegacyCounts countAnnotation(qvLegacy::qvAnnotationInterface const& annotation);

/// Adds what one annotation holds to the counts of its view. `depth` is the level below the view's own
/// annotations, which have 0. An empty entry has counts of zero, and counts as an annotation.
QVT_EXPORT void addToView(LegacyCounts& view, LegacyCounts const& annotation, std::uint64_t depth);

/// Counts a view and all below it. One that several share counts at each place, so time grows with the
/// places; depth costs no call stack.
QVT_EXPORT LegacyCounts countView(qvLegacy::qvAnnotationView const& view);

}  // namespace qvToolkit
