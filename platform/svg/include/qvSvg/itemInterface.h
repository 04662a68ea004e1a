#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "qvSystem/export.h"
#include "wm4/matrix3.h"

namespace qv::svg {

/// Kind of an SVG item.
enum class ItemKind : std::uint8_t { Node, Rect, Image, Path, Text };

/// Common part of all SVG items: presentation and placement. Coordinates are SVG coordinates, y down, one
/// unit is 1 mm on paper.
///
/// What an item leaves unset it inherits from the group that holds it.
class QV_EXPORT ItemInterface {
 public:
  virtual ~ItemInterface();

  virtual ItemKind getKind() const noexcept = 0;

  /// Stroke: "#RRGGBB", "none", or unset.
  std::optional<std::string> m_borderColor;
  /// Fill: "#RRGGBB", "none", or unset.
  std::optional<std::string> m_backgroundColor;
  /// Class text; empty when none.
  std::string m_class;
  /// Width of the stroke: 0 draws no stroke of its own, 1 is a hairline that does not scale with the picture.
  float m_width = 0.0F;
  /// Maps the item's own coordinates to its parent's: an affine matrix for column vectors, third row (0, 0,
  /// 1).
  std::optional<Wm4::Matrix3<float>> m_transform;

 protected:
  ItemInterface() = default;
  ItemInterface(ItemInterface const&) = default;
  ItemInterface& operator=(ItemInterface const&) = default;
};

}  // namespace qv::svg
