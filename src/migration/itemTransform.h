#pragma once

#include <optional>

#include "ports/svg.h"

namespace qvLegacy::migration {

/// How an SVG item is moved, turned and scaled, in SVG coordinates.
struct ItemTransform {
  /// Where the new matrix goes: before what the item has (new x existing) or after it (existing x new).
  enum class Order { NewTimesExisting, ExistingTimesNew };

  Wm4::Vector2<float> translation{0.0F, 0.0F};
  float angle = 0.0F;  ///< radians
  Wm4::Vector2<float> scale{1.0F, 1.0F};
  Order order = Order::NewTimesExisting;
};

/// Mirrors content that was laid out with y up.
inline constexpr ItemTransform verticalMirror{.scale = {1.0F, -1.0F},
                                              .order = ItemTransform::Order::ExistingTimesNew};

/// The transform of an item that had `existing`; a transform that changes nothing leaves it as it is, none
/// included.
[[nodiscard]] std::optional<Wm4::Matrix3<float>> transformed(
    std::optional<Wm4::Matrix3<float>> const& existing, ItemTransform const& transform);

inline void transformItem(ports::SvgItem& item, ItemTransform const& transform) {
  ports::setTransform(item, transformed(ports::getTransform(item), transform));
}

}  // namespace qvLegacy::migration
