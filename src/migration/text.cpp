#include <memory>
#include <utility>

#include "annotationLegacy/qvAnnotationMigration.h"
#include "migration/color.h"
#include "migration/itemTransform.h"
#include "ports/svg.h"
#include "ports/text.h"
#include "rules/units.h"
#include "rules/values.h"

namespace qvLegacy {

namespace {

using LegacyProperties = qvAnnotationText::TextProperties;
using LegacySegment = qvAnnotationText::TextSegment;

qv::text::TextProperties convertProperties(LegacyProperties const& legacy) {
  float const size = static_cast<float>(legacy.m_height) / 100.0F * rules::svgUnitsPerLegacyUnit;
  return ports::makeTextProperties(size, legacy.m_fontName,
                                   (legacy.m_styleFlags & LegacyProperties::Bold) != 0,
                                   (legacy.m_styleFlags & LegacyProperties::Italic) != 0);
}

qv::text::TextSegment::SegmentType convertType(LegacySegment::SegmentType legacy) {
  switch (legacy) {
    case LegacySegment::Subscript:
      return qv::text::TextSegment::Subscript;
    case LegacySegment::Superscript:
      return qv::text::TextSegment::Superscript;
    default:
      return qv::text::TextSegment::Normal;
  }
}

bool isBlank(LegacySegment const& segment) {
  return rules::isBlankRun({segment.getText(), segment.m_length});
}

qv::text::TextSegment convertSegment(LegacySegment const& legacy) {
  qv::text::TextSegment segment;
  if (legacy.m_textProperties) ports::setProperties(segment, convertProperties(*legacy.m_textProperties));
  ports::setType(segment, convertType(legacy.m_type));
  segment.setText(legacy.getText(), legacy.m_length);
  return segment;
}

ports::TextLine convertLine(qvAnnotationText::Line const& legacy) {
  ports::TextLine line;
  for (LegacySegment const& segment : legacy) {
    if (!isBlank(segment)) line.push_back(convertSegment(segment));
  }
  return line;
}

/// One line with a single blank, so that an empty text still has the default height.
ports::TextLine createBlankLine() {
  qv::text::TextSegment segment;
  segment.setText(" ", 1);
  ports::TextLine line;
  line.push_back(std::move(segment));
  return line;
}

/// Lines without any visible run are dropped on purpose.
qv::text::TextArea convertText(qvAnnotationText const& annotation, migration::Color const& color) {
  qv::text::TextArea area;
  ports::setDefaultProperties(area, convertProperties(annotation.m_defaultTextProperties));
  ports::setTextColor(area, color);
  for (qvAnnotationText::Line const& legacyLine : annotation.m_lines) {
    ports::TextLine line = convertLine(legacyLine);
    if (!line.empty()) ports::appendLine(area, std::move(line));
  }
  if (!ports::hasLines(area)) ports::appendLine(area, createBlankLine());
  return area;
}

}  // namespace

bool qvAnnotationMigration::migrateTextAnnotation(qvAnnotationText const* annotation, qv::svg::Node& root,
                                                  Wm4::Vector3<unsigned char> const& color) {
  auto const textNode = std::make_shared<qv::svg::Node>();
  ports::setBackgroundColor(*textNode, migration::colorText(color));
  if (!m_textConverter->convertTextAreaToSvg(convertText(*annotation, color), *textNode, nullptr,
                                             "dummyTxtBB")) {
    return false;
  }
  migration::transformItem(*textNode, migration::verticalMirror);
  ports::appendChild(root, textNode);
  return true;
}

}  // namespace qvLegacy
