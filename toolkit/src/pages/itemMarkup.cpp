#include "pages/itemMarkup.h"

#include "pages/affine.h"
#include "pages/pathData.h"
#include "text/colorText.h"
#include "text/svgNumber.h"

namespace qvToolkit {

std::string formatNumber(float number) {
  std::string text;
  appendNumber(text, number);
  return text;
}

std::string formatNumber(double number) {
  std::string text;
  appendNumber(text, number);
  return text;
}

bool isPaint(std::optional<std::string> const& color) {
  return color && (*color == "none" || isColorText(*color));
}

std::string formatItemTransform(qv::svg::ItemInterface const& item) {
  return item.m_transform ? formatTransform(Affine::fromMatrix(*item.m_transform)) : std::string();
}

void appendTransform(std::string& list, std::string const& transform) {
  if (!list.empty() && !transform.empty()) list += ' ';
  list += transform;
}

void writeTransform(Markup& markup, std::string const& transform) {
  if (!transform.empty()) markup.rawAttribute("transform", transform);
}

void writePaint(Markup& markup, qv::svg::ItemInterface const& item) {
  if (!item.m_class.empty()) markup.attribute("class", item.m_class);
  if (isPaint(item.m_backgroundColor)) markup.rawAttribute("fill", *item.m_backgroundColor);
  if (isPaint(item.m_borderColor)) markup.rawAttribute("stroke", *item.m_borderColor);
}

}  // namespace qvToolkit
