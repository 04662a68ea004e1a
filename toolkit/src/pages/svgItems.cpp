#include "pages/svgItems.h"

#include <algorithm>
#include <cmath>

#include "migration/itemWalk.h"
#include "pages/itemMarkup.h"
#include "pages/pathData.h"
#include "qvSvg/path.h"
#include "qvSvg/rect.h"
#include "text/base64.h"
#include "text/colorText.h"

namespace qvToolkit {

namespace {

/// A hairline's coordinates are written in quarters of a unit under a scale of a quarter. A renderer that
/// knows non-scaling strokes draws it one pixel wide, any other one 0.25 mm, which is nearly the same on a
/// page of its natural size.
constexpr float HairlineFactor = 4.0F;
constexpr char const* HairlineScale = "scale(0.25)";

bool isHairline(qv::svg::ItemInterface const& item) {
  return item.m_width == 1.0F && item.m_borderColor != "none";
}

float getFactor(qv::svg::ItemInterface const& item) {
  return isHairline(item) ? HairlineFactor : 1.0F;
}

std::string nameSymbol(std::size_t image) {
  return "image" + std::to_string(image);
}

void writeData(Markup& markup, Image const& image) {
  markup.rawAttribute("preserveAspectRatio", "none");
  markup.rawAttribute(
      "href", "data:" + std::string(image.getMediaType()) + ";base64," + encodeBase64(image.getBytes()));
}

}  // namespace

void SvgItems::writeDefinitions() {
  auto const& images = m_measure.getImages().getImages();
  bool const isImageShared =
      std::any_of(images.begin(), images.end(), [](PageImage const& image) { return image.m_uses > 1; });
  if (!isImageShared && m_measure.getGlyphs().getGlyphs().empty()) return;
  m_markup.open("defs");
  for (std::size_t i = 0; i < images.size(); ++i) {
    if (images[i].m_uses > 1) writeSymbol(i);
  }
  m_texts.writeDefinitions();
  m_markup.close();
}

void SvgItems::writeSymbol(std::size_t image) {
  m_markup.open("symbol").rawAttribute("id", nameSymbol(image));
  m_markup.rawAttribute("viewBox", "0 0 1 1").rawAttribute("preserveAspectRatio", "none");
  m_markup.open("image").rawAttribute("width", "1").rawAttribute("height", "1");
  writeData(m_markup, m_measure.getImages().getImages()[image].m_image);
  m_markup.close().close();
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
  AnnotationMark const* const mark = findMark(m_view.m_marks, annotation.m_svgRoot.get());
  if (mark != nullptr) m_markup.attribute("data-leaders-of", mark->m_address);
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
  m_fill = formatColor(annotation.m_color);
  m_markup.open("g").rawAttribute("fill", m_fill).rawAttribute("stroke", m_fill);
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
  walkItems(item, *this, static_cast<std::string const*>(&m_fill));
}

std::optional<std::string const*> SvgItems::enter(qv::svg::ItemInterface const& item,
                                                  std::string const* fill) {
  if (m_measure.isLeftOut(&item)) return std::nullopt;
  switch (item.getKind()) {
    case qv::svg::ItemKind::Node:
      openNode(item);
      return isPaint(item.m_backgroundColor) ? &*item.m_backgroundColor : fill;
    case qv::svg::ItemKind::Rect: {
      auto const& rect = static_cast<qv::svg::Rect const&>(item);
      writeRect(rect, rect.m_origin, rect.m_size);
      break;
    }
    case qv::svg::ItemKind::Image:
      writeImage(static_cast<qv::svg::Image const&>(item));
      break;
    case qv::svg::ItemKind::Path:
      writePath(item);
      break;
    case qv::svg::ItemKind::Text:
      m_texts.write(static_cast<qv::svg::Text const&>(item), *fill);
      break;
  }
  return std::nullopt;
}

void SvgItems::leave(qv::svg::ItemInterface const&) {
  m_markup.close();
}

void SvgItems::openNode(qv::svg::ItemInterface const& node) {
  m_markup.open("g");
  writeTransform(m_markup, formatItemTransform(node));
  writePaint(m_markup, node);
  AnnotationMark const* const mark = findMark(m_view.m_marks, &node);
  if (mark == nullptr) return;
  m_markup.attribute("data-name", mark->m_name).attribute("data-address", mark->m_address);
  if (!mark->m_name.empty()) m_markup.open("title").text(mark->m_name).close();
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
    writeData(m_markup, data.m_image);
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

void SvgItems::writePresentation(qv::svg::ItemInterface const& item) {
  std::string transform = formatItemTransform(item);
  if (isHairline(item)) appendTransform(transform, HairlineScale);
  writeTransform(m_markup, transform);
  writePaint(m_markup, item);
  if (isHairline(item)) {
    m_markup.rawAttribute("stroke-width", "1").rawAttribute("vector-effect", "non-scaling-stroke");
  } else if (item.m_width > 0.0F) {
    m_markup.rawAttribute("stroke-width", formatNumber(item.m_width));
  }
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
