#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "qvToolkit/export.h"
#include "qvToolkit/json/jsonWriter.h"
#include "qvToolkit/model/document.h"
#include "qvToolkit/model/legacyCounts.h"

namespace qvToolkit {

/// One annotation at a glance.
struct InspectedAnnotation {
  std::string m_address;                  ///< "view/3/annot/7/sub/0"
  std::size_t m_depth = 0;                ///< level below the view's own annotations, which have 0
  std::uint8_t m_type = 0;                ///< `qvAnnotationInterface::Type`; 0 for an empty entry, too
  std::string m_name;                     ///< raw bytes
  std::string m_text;                     ///< plain text, lines separated by LF; of rasters the raster name
  std::optional<std::uint32_t> m_anchor;  ///< on its parent; none for the view's own annotations
  std::uint8_t m_style = 0;               ///< frame shape and `qvAnnotationInterface::StyleBits`
  Wm4::Vector3<unsigned char> m_color;    ///< red, green, blue
  Wm4::Vector3<float> m_position;         ///< in view coordinates, or relative to the parent, as persisted
  std::size_t m_metadata = 0;             ///< entries
  LegacyCounts m_counts;  ///< of the annotation without its sub-annotations; children: its direct ones
};

/// One view at a glance. What follows the messages is empty for a view that the reader refused.
struct InspectedView {
  std::string m_address;                           ///< "view/3"
  std::string m_name;                              ///< raw bytes; known also for a refused view
  bool m_isRead = false;                           ///< false when the reader refused the view
  qv::qvStreamVersion m_version;                   ///< that the view was written in
  std::vector<std::string> m_messages;             ///< the reader's, in order
  Wm4::Vector3<float> m_planeOrigin;               ///< in model space
  Wm4::Vector3<float> m_planeNormal;               ///< in model space, not normalised
  Wm4::Vector3<float> m_planeXAxis;                ///< in model space, not normalised
  std::size_t m_metadata = 0;                      ///< entries
  LegacyCounts m_counts;                           ///< of the view and all below it
  std::vector<InspectedAnnotation> m_annotations;  ///< at all levels, each before its sub-annotations
};

/// What a document holds, apart from the document.
struct Inspection {
  std::string m_path;                  ///< as it was given
  Source m_source;                     ///< as the document's
  ExitCode m_failure = ExitDone;       ///< why the document could not be opened at all
  std::vector<InspectedView> m_views;  ///< in document order
  Findings m_findings;                 ///< those of opening
};

/// Looks at everything that a document holds.
/// @code
/// Inspection const inspection = inspectDocument(openDocument("bracket.json"));
/// for (InspectedView const& view : inspection.m_views)
///   std::cout << view.m_name << ": " << view.m_counts.m_text << " texts\n";
/// std::cout << formatInspection(inspection);
/// @endcode
/// An annotation that several share is listed at each place, so time and memory grow with the places. Trees
/// may be of any depth, and hold no cycle.
QVT_EXPORT Inspection inspectDocument(Document const& document);

/// Aligned text for people, safe for a terminal. Findings are not part of it, the readers' messages are.
QVT_EXPORT std::string formatInspection(Inspection const& inspection);

/// One file as a JSON object, an entry of a list of `ReportFormat::Inspect`: source, views with index, name,
/// version, messages, counts and all annotations, and the findings. docs/inspect-json.md describes it field
/// by field.
QVT_EXPORT void writeInspection(JsonWriter& json, Inspection const& inspection,
                                OptionSpelling spelling = nullptr);

/// The whole list, with one object of `writeInspection` for each.
QVT_EXPORT std::string formatInspectionsJson(std::vector<Inspection> const& inspections,
                                             OptionSpelling spelling = nullptr,
                                             JsonStyle style = JsonStyle::Compact);

}  // namespace qvToolkit
