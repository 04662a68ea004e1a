#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "qvToolkit/reports/inspection.h"
#include "qvToolkit/text/textEscape.h"
#include "reports/jsonParts.h"
#include "rules/valueNames.h"
#include "text/colorText.h"
#include "text/countText.h"
#include "text/textTable.h"
#include "text/utf8.h"

namespace qvToolkit {

namespace {

constexpr std::size_t MaxTextLength = 60;

/// The first characters of a valid UTF-8 text.
std::string shorten(std::string_view text) {
  std::size_t characters = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (beginsCharacter(text[i]) && characters++ == MaxTextLength)
      return std::string(text.substr(0, i)) + "...";
  }
  return std::string(text);
}

/// A text on one line: line breaks as arrows, everything else escaped.
std::string formatText(std::string_view text) {
  std::string line;
  for (;;) {
    std::size_t const length = std::min(text.find('\n'), text.size());
    line += escapeTerminal(text.substr(0, length));
    if (length == text.size()) return shorten(line);
    line += "\u21B5";
    text.remove_prefix(length + 1);
  }
}

std::string formatNumber(float number) {
  std::array<char, 64> buffer;
  auto const result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
  return {buffer.data(), result.ptr};
}

std::string formatPoint(Wm4::Vector3<float> const& point) {
  return "(" + formatNumber(point.X()) + ", " + formatNumber(point.Y()) + ", " + formatNumber(point.Z()) +
         ")";
}

std::string formatName(std::string_view name, std::uint64_t number) {
  return name.empty() ? std::to_string(number) : std::string(name);
}

std::string formatFrame(std::uint8_t style) {
  using qvLegacy::qvAnnotationInterface;
  std::string text =
      formatName(qvLegacy::rules::frameShapes.nameOf(style & qvLegacy::qvAnnotationInterface::FrameShapeMask),
                 style & qvAnnotationInterface::FrameShapeMask);
  if ((style & qvAnnotationInterface::FrameLocked) != 0) text += " frame-locked";
  if ((style & qvAnnotationInterface::ScaleLocked) != 0) text += " scale-locked";
  if ((style & qvAnnotationInterface::IgnoreZTest) != 0) text += " on-top";
  return text;
}

TableRow makeHeader() {
  return {"ADDRESS", "KIND",     "ANCHOR", "FRAME", "COLOUR", "POSITION",
          "LEADERS", "MEASURES", "SUBS",   "NAME",  "TEXT"};
}

TableRow makeRow(InspectedAnnotation const& annotation) {
  LegacyCounts const& counts = annotation.m_counts;
  return {annotation.m_address,
          formatName(qvLegacy::rules::annotationTypes.nameOf(annotation.m_type), annotation.m_type),
          annotation.m_anchor
              ? formatName(qvLegacy::rules::anchors.nameOf(*annotation.m_anchor), *annotation.m_anchor)
              : "-",
          formatFrame(annotation.m_style),
          formatColor(annotation.m_color),
          formatPoint(annotation.m_position),
          std::to_string(counts.m_leaders),
          std::to_string(counts.m_measures),
          std::to_string(counts.m_children),
          shorten(escapeTerminal(annotation.m_name)),
          formatText(annotation.m_text)};
}

void appendCounts(std::string& text, LegacyCounts const& counts) {
  text += "    " + formatCount(counts.m_annotations, "annotation") + " (" + std::to_string(counts.m_text) +
          " text, " + std::to_string(counts.m_raster) + " raster), " +
          formatCount(counts.m_children, "sub-annotation");
  if (counts.m_depth > 0) text += " on " + formatCount(counts.m_depth, "level");
  text += ", " + formatCount(counts.m_leaders, "leader") + ", " +
          formatCount(counts.m_measures, "measure leader") + ", " + formatCount(counts.m_lines, "line") +
          " of " + formatCount(counts.m_segments, "run") + ", " + formatCount(counts.m_textBytes, "byte") +
          " of text\n";
}

void appendView(std::string& text, InspectedView const& view) {
  text +=
      "  " + view.m_address + " '" + escapeTerminal(view.m_name) + "', version " + view.m_version.toString();
  text += view.m_isRead ? "\n" : ", not read\n";
  for (std::string const& message : view.m_messages) text += "    message: " + escapeTerminal(message) + '\n';
  if (!view.m_isRead) return;
  text += "    plane: origin " + formatPoint(view.m_planeOrigin) + ", normal " +
          formatPoint(view.m_planeNormal) + ", X axis " + formatPoint(view.m_planeXAxis) + '\n';
  if (view.m_metadata > 0) text += "    metadata: " + std::to_string(view.m_metadata) + " keys\n";
  appendCounts(text, view.m_counts);
  if (view.m_annotations.empty()) return;
  std::vector<TableRow> rows = {makeHeader()};
  for (InspectedAnnotation const& annotation : view.m_annotations) rows.push_back(makeRow(annotation));
  appendTable(text, rows);
}

}  // namespace

std::string formatInspection(Inspection const& inspection) {
  std::string text = escapeTerminal(inspection.m_path) + ": ";
  if (inspection.m_failure != ExitDone) return text + "not read\n";
  text += formatCount(inspection.m_views.size(), "view") + '\n';
  for (InspectedView const& view : inspection.m_views) appendView(text, view);
  return text;
}

}  // namespace qvToolkit
