#pragma once

/// What the library needs of the platform's SVG items beyond their operations: where the headers are and how
/// an item stores its presentation.

#include <qvSvg/boundingBox.h>
#include <qvSvg/computeEstimatedBoundingBox.h>
#include <qvSvg/image.h>
#include <qvSvg/itemInterface.h>
#include <qvSvg/node.h>
#include <qvSvg/path.h>
#include <qvSvg/pathBuilder.h>
#include <qvSvg/rect.h>

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "ports/geometry.h"

namespace qvLegacy::ports {

using SvgItem = qv::svg::ItemInterface;

/// Stroke: "#RRGGBB" or "none".
inline void setBorderColor(SvgItem& item, std::string text) {
  item.m_borderColor = std::move(text);
}
/// Fill: "#RRGGBB" or "none".
inline void setBackgroundColor(SvgItem& item, std::string text) {
  item.m_backgroundColor = std::move(text);
}
inline void setClass(SvgItem& item, std::string text) {
  item.m_class = std::move(text);
}
/// Width of the stroke; 1 is a hairline.
inline void setWidth(SvgItem& item, float width) {
  item.m_width = width;
}

inline std::optional<Wm4::Matrix3<float>> const& getTransform(SvgItem const& item) {
  return item.m_transform;
}
inline void setTransform(SvgItem& item, std::optional<Wm4::Matrix3<float>> const& transform) {
  item.m_transform = transform;
}

inline Wm4::Vector2<float> const& getPosition(qv::svg::Image const& image) {
  return image.m_position;
}
inline void setSize(qv::svg::Image& image, Wm4::Vector2<float> const& size) {
  image.m_size = size;
}
inline void setData(qv::svg::Image& image, std::string data) {
  image.m_data = std::move(data);
}

inline void appendChild(qv::svg::Node& node, std::shared_ptr<SvgItem> child) {
  node.editChildren().push_back(std::move(child));
}
/// The new child is drawn first, behind all others.
inline void insertChildAtBack(qv::svg::Node& node, std::shared_ptr<SvgItem> child) {
  node.editChildren().insert(node.editChildren().begin(), std::move(child));
}

}  // namespace qvLegacy::ports
