#include "migration/placement.h"

#include <array>

namespace qvLegacy::migration {

namespace {

/// The offset of an anchored sub-annotation's centre from its parent's, in multiples of both sizes.
struct AnchorRule {
  float parentWidths;
  float subWidths;
  float parentHeights;
  float subHeights;
};

/// From anchor 1 on; SVG coordinates, so that positive heights lie below.
constexpr std::array<AnchorRule, 12> anchorRules{{
    {-0.5F, 0.5F, 0.5F, 0.5F},    // bottom, left edges aligned
    {0.0F, 0.0F, 0.5F, 0.5F},     // bottom, centred
    {0.5F, -0.5F, 0.5F, 0.5F},    // bottom, right edges aligned
    {-0.5F, 0.5F, -0.5F, -0.5F},  // top, left edges aligned
    {0.0F, 0.0F, -0.5F, -0.5F},   // top, centred
    {0.5F, -0.5F, -0.5F, -0.5F},  // top, right edges aligned
    {-0.5F, -0.5F, 0.5F, -0.5F},  // left, bottom edges aligned
    {-0.5F, -0.5F, 0.0F, 0.0F},   // left, centred
    {-0.5F, -0.5F, -0.5F, 0.5F},  // left, top edges aligned
    {0.5F, 0.5F, 0.5F, -0.5F},    // right, bottom edges aligned
    {0.5F, 0.5F, 0.0F, 0.0F},     // right, centred
    {0.5F, 0.5F, -0.5F, 0.5F},    // right, top edges aligned
}};

/// The leader origin at an offset from the parent: y turns from down to up.
Placement placementAt(PlacementInput const& input, Wm4::Vector2<float> const& offset,
                      ItemTransform const& transform) {
  Wm4::Vector3<float> const& parent = input.parentPosition;
  return {transform, {parent.X() + offset.X(), parent.Y() - offset.Y(), parent.Z()}, offset};
}

Placement placeFreely(PlacementInput const& input) {
  Wm4::Vector2<float> const offset(input.subPosition.X(), -input.subPosition.Y());
  Wm4::Vector2<float> const scale(input.subScale, input.subScale);
  return placementAt(input, offset, {offset, input.subAngle, scale, ItemTransform::Order::NewTimesExisting});
}

Placement placeByRule(PlacementInput const& input, AnchorRule const& rule) {
  Wm4::Vector2<float> const offset(
      rule.parentWidths * input.parentSize.X() + rule.subWidths * input.subSize.X(),
      rule.parentHeights * input.parentSize.Y() + rule.subHeights * input.subSize.Y());
  return placementAt(input, offset,
                     {offset, 0.0F, Wm4::Vector2<float>::ONE, ItemTransform::Order::ExistingTimesNew});
}

}  // namespace

std::optional<Placement> placeSubAnnotation(PlacementInput const& input) {
  if (input.anchor == 0) return placeFreely(input);
  if (input.anchor > anchorRules.size()) return std::nullopt;
  return placeByRule(input, anchorRules[input.anchor - 1]);
}

}  // namespace qvLegacy::migration
