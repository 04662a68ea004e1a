#include "qvToolkit/reports/legacyJson.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "outcome/jsonDocument.h"
#include "qvToolkit/model/annotationWalk.h"
#include "qvToolkit/reports/findingJson.h"
#include "reports/jsonParts.h"
#include "reports/reportHead.h"
#include "reports/variantJson.h"
#include "rules/valueNames.h"
#include "text/colorText.h"

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationInterface;
using qvLegacy::qvAnnotationRaster;
using qvLegacy::qvAnnotationText;

namespace rules = qvLegacy::rules;

/// Written out: variant documents know them by the beginnings of these words.
constexpr std::array<rules::ValueName, 3> RunKinds = {{{"normal", 0}, {"subscript", 1}, {"superscript", 2}}};
static_assert(std::ranges::all_of(RunKinds, [](rules::ValueName const& kind) {
  return kind.text.starts_with(rules::segmentTypes.nameOf(kind.shows));
}));

void writeProperties(JsonWriter& json, qvAnnotationText::TextProperties const& properties) {
  json.beginObject();
  json.bytes("font", properties.m_fontName);
  json.member("heightHundredths", std::uint64_t{properties.m_height});
  json.member("styleFlags", std::uint64_t{properties.m_styleFlags});
  json.member("bold", (properties.m_styleFlags & qvAnnotationText::TextProperties::Bold) != 0);
  json.member("italic", (properties.m_styleFlags & qvAnnotationText::TextProperties::Italic) != 0);
  json.endObject();
}

void writeRun(JsonWriter& json, qvAnnotationText::TextSegment const& run) {
  json.beginObject();
  json.bytes("text", {run.getText(), run.m_length});
  json.member("length", std::uint64_t{run.m_length});
  writeName(json, "kind", static_cast<std::uint8_t>(run.m_type), {RunKinds, 0});
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
  json.bytes("rasterName", raster.m_rasterName);
  writeNumbers(json, "size", {raster.m_size.X(), raster.m_size.Y()});
}

/// Each annotation has the members of both kinds.
void writeContent(JsonWriter& json, qvAnnotationInterface const* annotation) {
  if (auto const* const text = dynamic_cast<qvAnnotationText const*>(annotation)) {
    writeText(json, *text);
  } else {
    json.key("defaultTextProperties").null().key("lines").null();
  }
  if (auto const* const raster = dynamic_cast<qvAnnotationRaster const*>(annotation)) {
    writeRaster(json, *raster);
  } else {
    json.noBytes("rasterName");
    writeNoNumbers(json, "size");
  }
}

void writeLeaders(JsonWriter& json, qvAnnotationInterface const& annotation) {
  json.key("leaders").beginArray();
  for (qvAnnotationInterface::Leader const& leader : annotation.m_leaders) {
    json.beginObject();
    writeVector(json, "position", leader.m_position);
    writeName(json, "head", leader.m_head, rules::leaderHeads);
    json.endObject();
  }
  json.endArray();
  json.key("measures").beginArray();
  for (qvAnnotationInterface::MeasureLeader const& measure : annotation.m_measures) {
    json.beginObject();
    writeVector(json, "pointA", measure.m_pointA);
    writeVector(json, "pointB", measure.m_pointB);
    writeVector(json, "offset", measure.m_offset);
    writeName(json, "arrowDirection", measure.m_arrowDir, rules::arrowDirections);
    json.endObject();
  }
  json.endArray();
}

void writeStyle(JsonWriter& json, std::uint8_t style) {
  json.member("style", std::uint64_t{style});
  writeName(json, "frameShape", style & qvAnnotationInterface::FrameShapeMask, rules::frameShapes);
  json.member("ignoreZTest", (style & qvAnnotationInterface::IgnoreZTest) != 0);
  json.member("scaleLocked", (style & qvAnnotationInterface::ScaleLocked) != 0);
  json.member("frameLocked", (style & qvAnnotationInterface::FrameLocked) != 0);
}

void writeFields(JsonWriter& json, qvAnnotationInterface const& annotation) {
  writeName(json, "kind", annotation.m_type, rules::annotationTypes);
  json.bytes("name", annotation.m_name);
  writeVector(json, "position", annotation.m_position);
  json.member("color", formatColor(annotation.m_color));
  writeStyle(json, annotation.m_style);
  writeLeaders(json, annotation);
  writeVariantMap(json.key("metadata"), annotation.m_metadata);
  json.member("subAnnotations", std::uint64_t{annotation.getSubAnnotsCount()});
}

/// The same members where a place holds no annotation.
void writeNoFields(JsonWriter& json) {
  writeName(json, "kind", std::nullopt, rules::annotationTypes);
  json.noBytes("name");
  writeNoNumbers(json, "position");
  json.key("color").null().key("style").null();
  writeName(json, "frameShape", std::nullopt, rules::frameShapes);
  json.key("ignoreZTest").null().key("scaleLocked").null().key("frameLocked").null();
  json.key("leaders").null().key("measures").null().key("metadata").null().key("subAnnotations").null();
}

void writeAnnotation(JsonWriter& json, WalkedAnnotation const& walked) {
  json.beginObject();
  json.member("address", walked.m_address.getText());
  json.member("depth", std::uint64_t{walked.m_depth});
  writeName(json, "anchor", walked.m_anchor, rules::anchors);
  json.member("isNull", walked.m_annotation == nullptr);
  if (walked.m_annotation != nullptr) {
    writeFields(json, *walked.m_annotation);
  } else {
    writeNoFields(json);
  }
  writeContent(json, walked.m_annotation);
  json.endObject();
}

void writeModel(JsonWriter& json, qvLegacy::qvAnnotationView const& view, Address const& address) {
  writePlane(json, view.m_planeOrigin, view.m_planeNormal, view.m_planeXAxis);
  writeVariantMap(json.key("metadata"), view.m_metadata);
  json.key("annotations").beginArray();
  walkAnnotations(view, address, [&json](WalkedAnnotation const& walked) { writeAnnotation(json, walked); });
  json.endArray();
}

void writeView(JsonWriter& json, LoadedView const& loaded, std::size_t index) {
  Address const address = Address::ofView(index);
  json.beginObject();
  json.member("index", std::uint64_t{index});
  json.member("address", address.getText());
  json.bytes("name", loaded.m_name);
  json.member("readable", loaded.m_view.get() != nullptr);
  writeVersion(json, loaded.m_version);
  writeTexts(json, "readerMessages", loaded.m_messages);
  if (loaded.m_view.get() != nullptr) {
    writeModel(json, *loaded.m_view, address);
  } else {
    json.key("plane").null().key("metadata").null().key("annotations").null();
  }
  json.endObject();
}

}  // namespace

void writeLegacyDocument(JsonWriter& json, Document const& document, OptionSpelling spelling) {
  json.beginObject();
  writeSource(json, document.m_source);
  json.member("readable", getFailure(document) == ExitDone);
  json.key("views").beginArray();
  for (std::size_t i = 0; i < document.m_views.size(); ++i) writeView(json, document.m_views[i], i);
  json.endArray();
  writeFindings(json.key("findings"), document.m_findings, spelling);
  json.endObject();
}

std::string formatLegacyJson(std::vector<Document> const& documents, OptionSpelling spelling,
                             JsonStyle style) {
  return formatList(ReportFormat::InspectFull, style, documents,
                    [spelling](JsonWriter& json, Document const& document) {
                      writeLegacyDocument(json, document, spelling);
                    });
}

}  // namespace qvToolkit
