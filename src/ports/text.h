#pragma once

/// What the library needs of the platform's text layout beyond its operations: where the headers are and how
/// an area, a run and its properties store what they hold.

#include <qvAnnotation/textArea.h>
#include <qvAnnotation/textProperties.h>
#include <qvAnnotation/textSegment.h>
#include <qvAnnotation/textSegmentToSvgConverter.h>

#include <memory>
#include <string>
#include <utility>

#include "ports/geometry.h"

namespace qvLegacy::ports {

/// A list of runs.
using TextLine = qv::text::TextArea::Line;

inline qv::text::TextProperties makeTextProperties(float size, std::string const& fontName, bool bold,
                                                   bool italic) {
  qv::text::TextProperties properties;
  properties.m_size = size;
  properties.m_fontName = fontName;
  properties.m_bold = bold;
  properties.m_italic = italic;
  return properties;
}

inline void setDefaultProperties(qv::text::TextArea& area, qv::text::TextProperties properties) {
  area.m_defaultProperties = std::move(properties);
}
inline void setTextColor(qv::text::TextArea& area, Wm4::Vector3<unsigned char> const& color) {
  area.m_textColor = color;
}
inline bool hasLines(qv::text::TextArea const& area) {
  return !area.m_lines.empty();
}
inline void appendLine(qv::text::TextArea& area, TextLine line) {
  area.m_lines.push_back(std::move(line));
}

inline void setType(qv::text::TextSegment& segment, qv::text::TextSegment::SegmentType type) {
  segment.m_type = type;
}
inline void setProperties(qv::text::TextSegment& segment, qv::text::TextProperties properties) {
  segment.m_properties = std::make_unique<qv::text::TextProperties>(std::move(properties));
}

}  // namespace qvLegacy::ports
