#include "qvToolkit/reports/legacyJson.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "qvToolkit/model/annotationWalk.h"
#include "qvToolkit/reports/inspection.h"
#include "reports/jsonParts.h"
#include "reports/variantJson.h"
#include "rules/valueNames.h"
#include "text/colorText.h"

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationInterface;
using qvLegacy::qvAnnotationRaster;
using qvLegacy::qvAnnotationText;

/// The number as stored, and its name under the key + "Name"; null for a number without name.
template <class Number>
void writeEnumeration(JsonWriter& json, std::string const& key, Number number, std::string_view name) {
  json.member(key, std::uint64_t{number});
  json.key(key + "Name");
  if (name.empty()) {
    json.null();
  } else {
    json.value(name);
  }
}

void writeProperties(JsonWriter& json, qvAnnotationText::TextProperties const& properties) {
  json.beginObject();
  writeBytes(json, "font", properties.m_fontName);
  json.member("heightHundredths", std::uint64_t{properties.m_height});
  json.member("styleFlags", std::uint64_t{properties.m_styleFlags});
  json.member("bold", (properties.m_styleFlags & qvAnnotationText::TextProperties::Bold) != 0);
  json.member("italic", (properties.m_styleFlags & qvAnnotationText::TextProperties::Italic) != 0);
  json.endObject();
}

void writeRun(JsonWriter& json, qvAnnotationText::TextSegment const& run) {
  json.beginObject();
  writeBytes(json, "text", {run.getText(), run.m_length});
  json.member("length", std::uint64_t{run.m_length});
  writeEnumeration(json, "type", static_cast<std::uint8_t>(run.m_type),
                   qvLegacy::rules::segmentTypes.nameOf(run.m_type));
  json.key("properties");
  if (run.m_textProperties == nullptr) {
    json.null();
  } else {
    writeProperties(json, *run.m_textProperties);
  }
  json.endObject();
}

void writeText(JsonWriter& json, qvAnnotationText const& text) {
  writeProperties(json.key("defaultTextProperties"), text.m_defaultTextProperties);
  json.key("lines").beginArray();
  for (auto const& line : text.m_lines) {
    json.beginArray();
    for (qvAnnotationText::TextSegment const& run : line) writeRun(json, run);
    json.endArray();
  }
  json.endArray();
}

void writeRaster(JsonWriter& json, qvAnnotationRaster const& raster) {
  writeBytes(json, "rasterName", raster.m_rasterName);
  writeNumbers(json, "size", {raster.m_size.X(), raster.m_size.Y()});
}

void writeLeaders(JsonWriter& json, qvAnnotationInterface const& annotation) {
  json.key("leaders").beginArray();
  for (qvAnnotationInterface::Leader const& leader : annotation.m_leaders) {
    json.beginObject();
    writeVector(json, "position", leader.m_position);
    writeEnumeration(json, "head", leader.m_head, qvLegacy::rules::leaderHeads.nameOf(leader.m_head));
    json.endObject();
  }
  json.endArray();
  json.key("measures").beginArray();
  for (qvAnnotationInterface::MeasureLeader const& measure : annotation.m_measures) {
    json.beginObject();
    writeVector(json, "pointA", measure.m_pointA);
    writeVector(json, "pointB", measure.m_pointB);
    writeVector(json, "offset", measure.m_offset);
    writeEnumeration(json, "arrowDirection", measure.m_arrowDir,
                     qvLegacy::rules::arrowDirections.nameOf(measure.m_arrowDir));
    json.endObject();
  }
  json.endArray();
}

void writeStyle(JsonWriter& json, std::uint8_t style) {
  json.member("style", std::uint64_t{style});
  std::uint8_t const shape = style & qvAnnotationInterface::FrameShapeMask;
  writeEnumeration(json, "frameShape", shape, qvLegacy::rules::frameShapes.nameOf(shape));
  json.member("ignoreZTest", (style & qvAnnotationInterface::IgnoreZTest) != 0);
  json.member("scaleLocked", (style & qvAnnotationInterface::ScaleLocked) != 0);
  json.member("frameLocked", (style & qvAnnotationInterface::FrameLocked) != 0);
}

void writeFields(JsonWriter& json, qvAnnotationInterface const& annotation) {
  writeEnumeration(json, "kind", annotation.m_type,
                   qvLegacy::rules::annotationTypes.nameOf(annotation.m_type));
  writeBytes(json, "name", annotation.m_name);
  writeVector(json, "position", annotation.m_position);
  json.member("color", formatColor(annotation.m_color));
  writeStyle(json, annotation.m_style);
  writeLeaders(json, annotation);
  writeVariantMap(json.key("metadata"), annotation.m_metadata);
  json.member("subAnnotations", std::uint64_t{annotation.getSubAnnotsCount()});
  if (auto const* text = dynamic_cast<qvAnnotationText const*>(&annotation)) writeText(json, *text);
  if (auto const* raster = dynamic_cast<qvAnnotationRaster const*>(&annotation)) writeRaster(json, *raster);
}

void writeAnnotation(JsonWriter& json, WalkedAnnotation const& walked) {
  json.beginObject();
  json.member("address", walked.m_address.getText());
  json.member("depth", std::uint64_t{walked.m_depth});
  if (walked.m_anchor.has_value())
    writeEnumeration(json, "anchor", *walked.m_anchor, qvLegacy::rules::anchors.nameOf(*walked.m_anchor));
  json.member("isNull", walked.m_annotation == nullptr);
  if (walked.m_annotation != nullptr) writeFields(json, *walked.m_annotation);
  json.endObject();
}

void writeModel(JsonWriter& json, qvLegacy::qvAnnotationView const& view, Address const& address) {
  writeVector(json, "planeOrigin", view.m_planeOrigin);
  writeVector(json, "planeNormal", view.m_planeNormal);
  writeVector(json, "planeXAxis", view.m_planeXAxis);
  writeVariantMap(json.key("metadata"), view.m_metadata);
  json.key("annotations").beginArray();
  walkAnnotations(view, address, [&json](WalkedAnnotation const& walked) { writeAnnotation(json, walked); });
  json.endArray();
}

void writeView(JsonWriter& json, LoadedView const& loaded, std::size_t index) {
  Address const address = Address::ofView(index);
  json.beginObject();
  json.member("view", std::uint64_t{index});
  json.member("address", address.getText());
  writeBytes(json, "name", loaded.m_name);
  json.member("ok", loaded.m_view.get() != nullptr);
  writeVersion(json, loaded.m_version);
  json.key("messages").beginArray();
  for (std::string const& message : loaded.m_messages) json.value(message);
  json.endArray();
  if (loaded.m_view.get() != nullptr) writeModel(json, *loaded.m_view, address);
  json.endObject();
}

}  // namespace

void writeLegacyDocument(JsonWriter& json, Document const& document, OptionSpelling spelling) {
  json.beginObject();
  writeBytes(json, "file", document.m_path);
  json.member("format", getFormatName(document.m_format));
  json.member("readable", getFailure(document) == ExitDone);
  json.key("views").beginArray();
  for (std::size_t i = 0; i < document.m_views.size(); ++i) writeView(json, document.m_views[i], i);
  json.endArray();
  writeFindings(json.key("findings"), document.m_findings, spelling);
  json.endObject();
}

std::string formatLegacyJson(std::vector<Document> const& documents, OptionSpelling spelling) {
  JsonWriter json;
  json.beginObject().key("files").beginArray();
  for (Document const& document : documents) writeLegacyDocument(json, document, spelling);
  json.endArray().endObject();
  return json.takeText();
}

}  // namespace qvToolkit
