#include "svgItems.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "base64.h"
#include "colorText.h"
#include "fontFamily.h"
#include "pathData.h"
#include "qvSvg/path.h"
#include "qvSvg/rect.h"
#include "qvSvg/text.h"

namespace qvToolkit {

namespace {

/// A hairline's coordinates are written in quarters of a unit under a scale of a quarter. A renderer that
/// knows non-scaling strokes draws it one pixel wide, any other one 0.25 mm, which is nearly the same on a
/// page of its natural size.
constexpr float HairlineFactor = 4.0F;
constexpr char const* HairlineScale = "scale(0.25)";

bool isPaint(std::optional<std::string> const& color) {
  return color && (*color == "none" || isColorText(*color));
}

bool isHairline(qv::svg::ItemInterface const& item) {
  return item.m_width == 1.0F && item.m_borderColor != "none";
}

float getFactor(qv::svg::ItemInterface const& item) {
  return isHairline(item) ? HairlineFactor : 1.0F;
}

std::string formatNumber(float number) {
  std::string text;
  appendNumber(text, number);
  return text;
}

void appendTransform(std::string& list, std::string const& transform) {
  if (!list.empty() && !transform.empty()) list += ' ';
  list += transform;
}

std::string formatItemTransform(qv::svg::ItemInterface const& item) {
  return item.m_transform ? formatTransform(Affine::fromMatrix(*item.m_transform)) : std::string();
}

std::string nameSymbol(std::size_t image) {
  return "image" + std::to_string(image);
}

void writeTransform(Markup& markup, std::string const& transform) {
  if (!transform.empty()) markup.rawAttribute("transform", transform);
}

void writeData(Markup& markup, PageImage const& image) {
  markup.rawAttribute("preserveAspectRatio", "none");
  markup.rawAttribute("href",
                      "data:" + std::string(image.m_mediaType) + ";base64," + encodeBase64(image.m_bytes));
}

}  // namespace

void SvgItems::writeDefinitions() {
  auto const& images = m_measure.getImages().getImages();
  if (std::none_of(images.begin(), images.end(), [](PageImage const& image) { return image.m_uses > 1; }))
    return;
  m_markup.open("defs");
  for (std::size_t i = 0; i < images.size(); ++i) {
    if (images[i].m_uses < 2) continue;
    m_markup.open("symbol").rawAttribute("id", nameSymbol(i));
    m_markup.rawAttribute("viewBox", "0 0 1 1").rawAttribute("preserveAspectRatio", "none");
    m_markup.open("image").rawAttribute("width", "1").rawAttribute("height", "1");
    writeData(m_markup, images[i]);
    m_markup.close().close();
  }
  m_markup.close();
}

void SvgItems::writeContent(qv::qvCadAnnotation const& annotation) {
  if (annotation.m_svgRoot == nullptr || m_measure.isLeftOut(annotation.m_svgRoot.get())) return;
  openColored(annotation);
  writeTransform(m_markup, formatTransform(getPlacement(annotation)));
  writeItem(*annotation.m_svgRoot);
  m_markup.close();
}

void SvgItems::writeLeaders(qv::qvCadAnnotation const& annotation) {
  if (annotation.m_lineSegments.empty() && annotation.m_shapes.empty()) return;
  openColored(annotation);
  auto const mark = m_view.m_marks.find(annotation.m_svgRoot.get());
  if (mark != m_view.m_marks.end()) m_markup.attribute("data-leaders-of", mark->second.m_address);
  writeSegments(annotation);
  for (auto const& shape : annotation.m_shapes) {
    if (shape.m_node == nullptr || m_measure.isLeftOut(shape.m_node.get())) continue;
    m_markup.open("g");
    writeTransform(m_markup, formatTransform(getPlacement(shape)));
    writeItem(*shape.m_node);
    m_markup.close();
  }
  m_markup.close();
}

void SvgItems::openColored(qv::qvCadAnnotation const& annotation) {
  std::string const color = formatColor(annotation.m_color);
  m_markup.open("g").rawAttribute("fill", color).rawAttribute("stroke", color);
  m_markup.rawAttribute("stroke-width", "0");
}

void SvgItems::writeSegments(qv::qvCadAnnotation const& annotation) {
  PathData data(HairlineFactor);
  for (auto const& segment : annotation.m_lineSegments) {
    if (!isDrawable(segment)) continue;
    data.moveTo(segment.m_from.X(), -segment.m_from.Y());
    data.lineTo(segment.m_to.X(), -segment.m_to.Y());
  }
  if (data.getText().empty()) return;
  m_markup.open("path").rawAttribute("transform", HairlineScale).rawAttribute("fill", "none");
  m_markup.rawAttribute("stroke-width", "1").rawAttribute("vector-effect", "non-scaling-stroke");
  m_markup.rawAttribute("d", data.getText()).close();
}

void SvgItems::writeItem(qv::svg::ItemInterface const& item) {
  if (m_measure.isLeftOut(&item)) return;
  switch (item.getKind()) {
    case qv::svg::ItemKind::Node:
      return writeNode(static_cast<qv::svg::Node const&>(item));
    case qv::svg::ItemKind::Rect: {
      auto const& rect = static_cast<qv::svg::Rect const&>(item);
      return writeRect(rect, rect.m_origin, rect.m_size);
    }
    case qv::svg::ItemKind::Image:
      return writeImage(static_cast<qv::svg::Image const&>(item));
    case qv::svg::ItemKind::Path:
      return writePath(item);
    case qv::svg::ItemKind::Text:
      return writeText(item);
  }
}

void SvgItems::writeNode(qv::svg::Node const& node) {
  m_markup.open("g");
  writeTransform(m_markup, formatItemTransform(node));
  writePaint(node);
  writeMark(node);
  for (auto const& child : node.getChildren()) {
    if (child != nullptr) writeItem(*child);
  }
  m_markup.close();
}

void SvgItems::writeMark(qv::svg::Node const& node) {
  auto const mark = m_view.m_marks.find(&node);
  if (mark == m_view.m_marks.end()) return;
  m_markup.attribute("data-name", mark->second.m_name).attribute("data-address", mark->second.m_address);
  if (!mark->second.m_name.empty()) m_markup.open("title").text(mark->second.m_name).close();
}

void SvgItems::writeRect(qv::svg::ItemInterface const& item, Wm4::Vector2<float> const& origin,
                         Wm4::Vector2<float> const& size) {
  m_markup.open("rect");
  writePresentation(item);
  writeBox(origin, size, getFactor(item));
  m_markup.close();
}

void SvgItems::writeImage(qv::svg::Image const& image) {
  std::size_t const index = m_measure.getImages().find(image);
  if (index == PageImages::npos) return;
  PageImage const& data = m_measure.getImages().getImages()[index];
  bool const isShared = data.m_uses > 1;
  m_markup.open(isShared ? "use" : "image");
  writeTransform(m_markup, formatItemTransform(image));
  writeBox(image.m_position, image.m_size, 1.0F);
  if (isShared) {
    m_markup.rawAttribute("href", "#" + nameSymbol(index));
  } else {
    writeData(m_markup, data);
  }
  m_markup.close();
}

void SvgItems::writePath(qv::svg::ItemInterface const& item) {
  PathData data(getFactor(item));
  for (auto const& contour : static_cast<qv::svg::Path const&>(item).m_contours) data.addContour(contour);
  m_markup.open("path");
  writePresentation(item);
  m_markup.rawAttribute("d", data.getText()).close();
}

/// The item's y axis points up, but letters grow against y in SVG, so the text mirrors itself about its
/// baseline.
void SvgItems::writeText(qv::svg::ItemInterface const& item) {
  auto const& text = static_cast<qv::svg::Text const&>(item);
  if (text.m_spans.empty()) return;
  std::string transform = formatItemTransform(text);
  appendTransform(transform,
                  formatTransform({1.0, 0.0, 0.0, -1.0, 0.0, static_cast<double>(text.m_baseline)}));
  m_markup.open("text");
  writeTransform(m_markup, transform);
  writePaint(text);
  m_markup.rawAttribute("font-size", formatNumber(text.m_size)).rawAttribute("xml:space", "preserve");
  for (qv::svg::TextSpan const& span : text.m_spans) {
    m_markup.open("tspan").rawAttribute("x", formatNumber(span.m_x));
    m_markup.attribute("font-family", formatFontFamily(span.m_family));
    if (span.m_bold) m_markup.rawAttribute("font-weight", "bold");
    if (span.m_italic) m_markup.rawAttribute("font-style", "italic");
    m_markup.text(span.m_text).close();
  }
  m_markup.close();
}

void SvgItems::writePresentation(qv::svg::ItemInterface const& item) {
  std::string transform = formatItemTransform(item);
  if (isHairline(item)) appendTransform(transform, HairlineScale);
  writeTransform(m_markup, transform);
  writePaint(item);
  if (isHairline(item)) {
    m_markup.rawAttribute("stroke-width", "1").rawAttribute("vector-effect", "non-scaling-stroke");
  } else if (item.m_width > 0.0F) {
    m_markup.rawAttribute("stroke-width", formatNumber(item.m_width));
  }
}

void SvgItems::writePaint(qv::svg::ItemInterface const& item) {
  if (!item.m_class.empty()) m_markup.attribute("class", item.m_class);
  if (isPaint(item.m_backgroundColor)) m_markup.rawAttribute("fill", *item.m_backgroundColor);
  if (isPaint(item.m_borderColor)) m_markup.rawAttribute("stroke", *item.m_borderColor);
}

/// A size below zero extends the box to the other side, which SVG has no form for.
void SvgItems::writeBox(Wm4::Vector2<float> const& origin, Wm4::Vector2<float> const& size, float factor) {
  float const x = std::min(origin.X(), origin.X() + size.X());
  float const y = std::min(origin.Y(), origin.Y() + size.Y());
  m_markup.rawAttribute("x", formatNumber(x * factor)).rawAttribute("y", formatNumber(y * factor));
  m_markup.rawAttribute("width", formatNumber(std::abs(size.X()) * factor));
  m_markup.rawAttribute("height", formatNumber(std::abs(size.Y()) * factor));
}

}  // namespace qvToolkit
