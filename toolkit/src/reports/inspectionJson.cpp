#include "qvToolkit/reports/inspection.h"
#include "reports/jsonParts.h"
#include "rules/valueNames.h"
#include "text/colorText.h"

namespace qvToolkit {

namespace {

void writePlace(JsonWriter& json, SourcePlace const& place) {
  if (place.m_byteOffset.has_value()) json.member("byteOffset", *place.m_byteOffset);
  if (place.m_line.has_value()) json.member("line", *place.m_line);
  if (place.m_column.has_value()) json.member("column", *place.m_column);
  if (!place.m_jsonPointer.empty()) writeBytes(json, "jsonPointer", place.m_jsonPointer);
}

/// In the order and under the names that the counts of a view have.
void writeViewCounts(JsonWriter& json, LegacyCounts const& counts) {
  json.key("counts").beginObject();
  json.member("annotations", counts.m_annotations);
  json.member("children", counts.m_children);
  json.member("depth", counts.m_depth);
  json.member("leaders", counts.m_leaders);
  json.member("lines", counts.m_lines);
  json.member("measures", counts.m_measures);
  json.member("own_props", counts.m_ownProperties);
  json.member("raster", counts.m_raster);
  json.member("segments", counts.m_segments);
  json.member("text", counts.m_text);
  json.member("text_bytes", counts.m_textBytes);
  json.endObject();
}

void writeAnnotationCounts(JsonWriter& json, InspectedAnnotation const& annotation) {
  LegacyCounts const& counts = annotation.m_counts;
  json.key("counts").beginObject();
  json.member("children", counts.m_children);
  json.member("leaders", counts.m_leaders);
  json.member("lines", counts.m_lines);
  json.member("measures", counts.m_measures);
  json.member("metadata", std::uint64_t{annotation.m_metadata});
  json.member("own_props", counts.m_ownProperties);
  json.member("segments", counts.m_segments);
  json.member("text_bytes", counts.m_textBytes);
  json.endObject();
}

void writeAnchor(JsonWriter& json, std::optional<std::uint32_t> const& anchor) {
  json.key("anchor");
  if (anchor.has_value()) {
    json.value(*anchor);
  } else {
    json.null();
  }
}

void writeAnnotation(JsonWriter& json, InspectedAnnotation const& annotation) {
  json.beginObject();
  json.member("address", annotation.m_address);
  json.member("kind", qvLegacy::rules::annotationTypes.nameOf(annotation.m_type));
  writeBytes(json, "name", annotation.m_name);
  writeBytes(json, "text", annotation.m_text);
  writeAnchor(json, annotation.m_anchor);
  json.member("frame", qvLegacy::rules::frameShapes.nameOf(annotation.m_style &
                                                           qvLegacy::qvAnnotationInterface::FrameShapeMask));
  json.member("color", formatColor(annotation.m_color));
  writeVector(json, "position", annotation.m_position);
  writeAnnotationCounts(json, annotation);
  json.endObject();
}

void writeView(JsonWriter& json, InspectedView const& view, std::size_t index) {
  json.beginObject();
  json.member("view", std::uint64_t{index});
  json.member("address", view.m_address);
  writeBytes(json, "name", view.m_name);
  json.member("ok", view.m_isRead);
  writeVersion(json, view.m_version);
  json.key("messages").beginArray();
  for (std::string const& message : view.m_messages) json.value(message);
  json.endArray();
  writeVector(json, "origin", view.m_planeOrigin);
  writeVector(json, "normal", view.m_planeNormal);
  writeVector(json, "axis", view.m_planeXAxis);
  json.member("metadata", std::uint64_t{view.m_metadata});
  writeViewCounts(json, view.m_counts);
  json.key("annotations").beginArray();
  for (InspectedAnnotation const& annotation : view.m_annotations) writeAnnotation(json, annotation);
  json.endArray();
  json.endObject();
}

}  // namespace

void writeFindings(JsonWriter& json, Findings const& findings, OptionSpelling spelling) {
  json.beginArray();
  for (Finding const& finding : findings) {
    json.beginObject();
    json.member("code", getCodeText(finding.m_code));
    json.member("severity", getSeverityText(finding.m_severity));
    writeBytes(json, "text", finding.m_text);
    if (!finding.m_address.empty()) json.member("address", finding.m_address);
    writePlace(json, finding.m_place);
    std::string const options = spellOptions(finding, spelling);
    if (!options.empty()) json.member("option", options);
    json.endObject();
  }
  json.endArray();
}

void writeInspection(JsonWriter& json, Inspection const& inspection, OptionSpelling spelling) {
  json.beginObject();
  writeBytes(json, "file", inspection.m_path);
  json.member("format", getFormatName(inspection.m_format));
  json.member("readable", inspection.m_failure == ExitDone);
  json.key("views").beginArray();
  for (std::size_t i = 0; i < inspection.m_views.size(); ++i) writeView(json, inspection.m_views[i], i);
  json.endArray();
  writeFindings(json.key("findings"), inspection.m_findings, spelling);
  json.endObject();
}

std::string formatInspectionsJson(std::vector<Inspection> const& inspections, OptionSpelling spelling) {
  JsonWriter json;
  json.beginObject().key("files").beginArray();
  for (Inspection const& inspection : inspections) writeInspection(json, inspection, spelling);
  json.endArray().endObject();
  return json.takeText();
}

}  // namespace qvToolkit
