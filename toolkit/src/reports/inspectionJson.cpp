#include "outcome/jsonDocument.h"
#include "qvToolkit/reports/findingJson.h"
#include "qvToolkit/reports/inspection.h"
#include "reports/jsonParts.h"
#include "reports/reportHead.h"
#include "rules/valueNames.h"
#include "text/colorText.h"

namespace qvToolkit {

namespace {

namespace rules = qvLegacy::rules;

void writeAnnotationCounts(JsonWriter& json, LegacyCounts const& counts) {
  json.key("counts").beginObject();
  json.member("children", counts.m_children);
  json.member("leaders", counts.m_leaders);
  json.member("lines", counts.m_lines);
  json.member("measures", counts.m_measures);
  json.member("ownProperties", counts.m_ownProperties);
  json.member("segments", counts.m_segments);
  json.member("textBytes", counts.m_textBytes);
  json.endObject();
}

void writeAnnotation(JsonWriter& json, InspectedAnnotation const& annotation) {
  json.beginObject();
  json.member("address", annotation.m_address);
  writeName(json, "kind", annotation.m_type, rules::annotationTypes);
  json.bytes("name", annotation.m_name);
  json.bytes("text", annotation.m_text);
  writeName(json, "anchor", annotation.m_anchor, rules::anchors);
  writeName(json, "frameShape", annotation.m_style & qvLegacy::qvAnnotationInterface::FrameShapeMask,
            rules::frameShapes);
  json.member("color", formatColor(annotation.m_color));
  writeVector(json, "position", annotation.m_position);
  json.member("metadataEntries", std::uint64_t{annotation.m_metadata});
  writeAnnotationCounts(json, annotation.m_counts);
  json.endObject();
}

void writeContent(JsonWriter& json, InspectedView const& view) {
  writePlane(json, view.m_planeOrigin, view.m_planeNormal, view.m_planeXAxis);
  json.member("metadataEntries", std::uint64_t{view.m_metadata});
  writeCounts(json, view.m_counts);
  json.key("annotations").beginArray();
  for (InspectedAnnotation const& annotation : view.m_annotations) writeAnnotation(json, annotation);
  json.endArray();
}

void writeView(JsonWriter& json, InspectedView const& view, std::size_t index) {
  json.beginObject();
  json.member("index", std::uint64_t{index});
  json.member("address", view.m_address);
  json.bytes("name", view.m_name);
  json.member("readable", view.m_isRead);
  writeVersion(json, view.m_version);
  writeTexts(json, "readerMessages", view.m_messages);
  if (view.m_isRead) {
    writeContent(json, view);
  } else {
    json.key("plane").null().key("metadataEntries").null().key("counts").null().key("annotations").null();
  }
  json.endObject();
}

}  // namespace

void writeInspection(JsonWriter& json, Inspection const& inspection, OptionSpelling spelling) {
  json.beginObject();
  writeSource(json, inspection.m_source);
  json.member("readable", inspection.m_failure == ExitDone);
  json.key("views").beginArray();
  for (std::size_t i = 0; i < inspection.m_views.size(); ++i) writeView(json, inspection.m_views[i], i);
  json.endArray();
  writeFindings(json.key("findings"), inspection.m_findings, spelling);
  json.endObject();
}

std::string formatInspectionsJson(std::vector<Inspection> const& inspections, OptionSpelling spelling,
                                  JsonStyle style) {
  return formatList(ReportFormat::Inspect, style, inspections,
                    [spelling](JsonWriter& json, Inspection const& inspection) {
                      writeInspection(json, inspection, spelling);
                    });
}

}  // namespace qvToolkit
