#include "reports/cadJson.h"

#include <array>
#include <span>

#include "migration/fontMatchText.h"
#include "migration/itemWalk.h"
#include "qvSvg/image.h"
#include "qvSvg/path.h"
#include "qvSvg/rect.h"
#include "qvSvg/text.h"
#include "reports/jsonParts.h"
#include "text/colorText.h"

namespace qvToolkit {

namespace {

struct FlagText {
  qv::qvCadAnnotation::Flag m_flag;
  char const* m_text;
};

constexpr std::array<FlagText, 4> FlagTexts = {{
    {qv::qvCadAnnotation::ScaleWithModel, "scaleWithModel"},
    {qv::qvCadAnnotation::IgnoreDepthTest, "ignoreDepthTest"},
    {qv::qvCadAnnotation::ScaleLocked, "scaleLocked"},
    {qv::qvCadAnnotation::FrameUnlocked, "frameUnlocked"},
}};

/// In the order of the enumerations.
constexpr std::array<char const*, 5> KindTexts = {"group", "rect", "image", "path", "text"};

template <class Enum, std::size_t N>
char const* getText(std::array<char const*, N> const& texts, Enum value) {
  return texts[static_cast<std::size_t>(value)];
}

void writeSegment(JsonWriter& json, qv::svg::PathSegment const& segment) {
  json.beginObject();
  if (segment.m_kind == qv::svg::PathSegment::Kind::Line) {
    json.member("kind", "line").key("to").inlineArray({segment.m_point.X(), segment.m_point.Y()});
  } else {
    json.member("kind", "ellipse").key("center").inlineArray({segment.m_point.X(), segment.m_point.Y()});
    json.key("radii").inlineArray({segment.m_radii.X(), segment.m_radii.Y()});
    json.member("startAngle", segment.m_startAngle).member("endAngle", segment.m_endAngle);
  }
  json.endObject();
}

void writeSpan(JsonWriter& json, qv::svg::TextSpan const& span) {
  json.beginObject().member("text", span.m_text).member("x", span.m_x).member("advance", span.m_advance);
  json.member("family", span.m_family).bytes("askedFamily", span.m_askedFamily);
  json.member("match", getMatchText(span.m_match));
  if (span.m_match == qv::svg::FontMatch::Missing) {
    json.bytes("original", span.m_original);
  } else {
    json.noBytes("original");
  }
  json.member("bold", span.m_bold).member("italic", span.m_italic);
  json.member("boldMadeUp", span.m_synthesis.m_bold).member("italicMadeUp", span.m_synthesis.m_oblique);
  json.member("rightToLeft", span.m_rightToLeft).endObject();
}

}  // namespace

void CadJson::writeViewMembers() {
  qv::qvCadAnnotationView const& view = *m_view.m_view;
  writePlane(m_json, view.m_planeOrigin, view.m_planeNormal, view.m_planeXAxis);
  m_json.key("annotations").beginArray();
  for (auto const& annotation : view.m_annotations) {
    if (annotation != nullptr) writeAnnotation(*annotation);
  }
  m_json.endArray();
}

void CadJson::writeAnnotation(qv::qvCadAnnotation const& annotation) {
  AnnotationMark const* const mark = findMark(m_view.m_marks, annotation.m_svgRoot.get());
  m_json.beginObject().textOrNull("address", mark != nullptr ? mark->m_address : std::string());
  m_json.bytes("name", annotation.GetName());
  writePoint("position", annotation.m_position);
  m_json.member("rotationAngle", annotation.m_rotationAngle).member("scale", annotation.m_scale);
  m_json.member("color", formatColor(annotation.m_color));
  writeFlags(annotation.m_flags);
  writeLeaders(annotation);
  m_json.key("svg");
  writeItem(annotation.m_svgRoot);
  m_json.endObject();
}

void CadJson::writeFlags(std::uint8_t flags) {
  m_json.member("flags", static_cast<int>(flags)).key("flagNames").beginArray();
  for (FlagText const& flag : FlagTexts) {
    if ((flags & flag.m_flag) != 0) m_json.value(flag.m_text);
  }
  m_json.endArray();
}

void CadJson::writeLeaders(qv::qvCadAnnotation const& annotation) {
  m_json.key("lineSegments").beginArray();
  for (auto const& segment : annotation.m_lineSegments) {
    m_json.beginObject();
    writePoint("from", segment.m_from);
    writePoint("to", segment.m_to);
    m_json.endObject();
  }
  m_json.endArray().key("leaderAnchors").beginArray();
  for (auto const& anchor : annotation.m_leaderAnchors) {
    m_json.beginObject();
    writePoint("origin", anchor.m_origin);
    writePoint("offset", anchor.m_offset);
    m_json.endObject();
  }
  m_json.endArray().key("shapes").beginArray();
  for (auto const& shape : annotation.m_shapes) {
    m_json.beginObject();
    writePoint("point", shape.m_point);
    m_json.key("svg");
    writeItem(shape.m_node);
    m_json.endObject();
  }
  m_json.endArray();
}

void CadJson::writeItem(std::shared_ptr<qv::svg::Node> const& root) {
  if (root == nullptr) {
    m_json.null();
  } else {
    walkItems(*root, *this, Nothing());
  }
}

std::optional<CadJson::Nothing> CadJson::enter(qv::svg::ItemInterface const& item, Nothing) {
  m_json.beginObject().member("kind", getText(KindTexts, item.getKind()));
  if (item.getKind() == qv::svg::ItemKind::Node) writeMark(findMark(m_view.m_marks, &item));
  m_json.textOrNull("class", item.m_class);
  m_json.member("border", item.m_borderColor).member("background", item.m_backgroundColor);
  m_json.member("width", item.m_width).key("transform");
  if (item.m_transform) {
    m_json.inlineArray(std::span(item.m_transform->data(), 9));
  } else {
    m_json.null();
  }
  if (item.getKind() == qv::svg::ItemKind::Node) {
    m_json.key("children").beginArray();
    return Nothing();
  }
  writeContent(item);
  m_json.endObject();
  return std::nullopt;
}

void CadJson::writeMark(AnnotationMark const* mark) {
  if (mark == nullptr) {
    m_json.key("address").null().noBytes("name");
  } else {
    m_json.member("address", mark->m_address).bytes("name", mark->m_name);
  }
}

void CadJson::leave(qv::svg::ItemInterface const&) {
  m_json.endArray().endObject();
}

void CadJson::writeContent(qv::svg::ItemInterface const& item) {
  switch (item.getKind()) {
    case qv::svg::ItemKind::Node:
      return;
    case qv::svg::ItemKind::Rect:
      writePoint("origin", static_cast<qv::svg::Rect const&>(item).m_origin);
      writePoint("size", static_cast<qv::svg::Rect const&>(item).m_size);
      return;
    case qv::svg::ItemKind::Image:
      return writeImage(item);
    case qv::svg::ItemKind::Path:
      return writePath(item);
    case qv::svg::ItemKind::Text:
      return writeText(item);
  }
}

void CadJson::writeImage(qv::svg::ItemInterface const& item) {
  auto const& image = static_cast<qv::svg::Image const&>(item);
  Image const& shown = findImage(m_view, image);
  writePoint("position", image.m_position);
  writePoint("size", image.m_size);
  m_json.textOrNull("mediaType", shown.getMediaType());
  m_json.member("byteCount", static_cast<std::uint64_t>(shown.getBytes().size()));
  m_json.member("fnv1a64", shown.getHash());
}

void CadJson::writePath(qv::svg::ItemInterface const& item) {
  m_json.key("contours").beginArray();
  for (auto const& contour : static_cast<qv::svg::Path const&>(item).m_contours) {
    m_json.beginObject();
    writePoint("start", contour.m_start);
    m_json.member("closed", contour.m_closed).key("segments").beginArray();
    for (auto const& segment : contour.m_segments) writeSegment(m_json, segment);
    m_json.endArray().endObject();
  }
  m_json.endArray();
}

void CadJson::writeText(qv::svg::ItemInterface const& item) {
  auto const& text = static_cast<qv::svg::Text const&>(item);
  m_json.member("baseline", text.m_baseline).member("size", text.m_size).key("box");
  if (text.m_box.isValid()) {
    auto const& corner = text.m_box.getMinPoint();
    auto const& opposite = text.m_box.getMaxPoint();
    m_json.inlineArray({corner.X(), corner.Y(), opposite.X(), opposite.Y()});
  } else {
    m_json.null();
  }
  m_json.key("spans").beginArray();
  for (auto const& span : text.m_spans) writeSpan(m_json, span);
  m_json.endArray();
}

void CadJson::writePoint(JsonKey key, Wm4::Vector2<float> const& point) {
  m_json.key(key).inlineArray({point.X(), point.Y()});
}

void CadJson::writePoint(JsonKey key, Wm4::Vector3<float> const& point) {
  m_json.key(key).inlineArray({point.X(), point.Y(), point.Z()});
}

}  // namespace qvToolkit
