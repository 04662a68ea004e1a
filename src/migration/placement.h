#pragma once

#include <cstdint>
#include <optional>

#include "migration/itemTransform.h"
#include "ports/geometry.h"

namespace qvLegacy::migration {

/// What the place of a sub-annotation depends on.
struct PlacementInput {
  std::uint32_t anchor;                ///< `AnchorLocation`, or any other value
  Wm4::Vector3<float> parentPosition;  ///< in the view plane, y up
  Wm4::Vector3<float> subPosition;     ///< for the free anchor: relative to the parent, y up
  float subAngle;                      ///< for the free anchor: radians
  float subScale;                      ///< for the free anchor
  Wm4::Vector2<float> parentSize;      ///< of the frame boxes
  Wm4::Vector2<float> subSize;
};

/// Where a sub-annotation goes.
struct Placement {
  ItemTransform transform;           ///< of its content within the parent's
  Wm4::Vector3<float> leaderOrigin;  ///< where its leaders begin, in the view plane
  Wm4::Vector2<float> leaderOffset;  ///< the same place relative to the parent, in SVG coordinates
};

/// None for an anchor that does not exist.
[[nodiscard]] std::optional<Placement> placeSubAnnotation(PlacementInput const& input);

}  // namespace qvLegacy::migration
