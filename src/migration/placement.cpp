#include "migration/placement.h"

#include "rules/anchors.h"

namespace qvLegacy::migration {

namespace {

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

Placement placeByRule(PlacementInput const& input, rules::AnchorRule const& rule) {
  Wm4::Vector2<float> const offset(
      rule.parentWidths * input.parentSize.X() + rule.subWidths * input.subSize.X(),
      rule.parentHeights * input.parentSize.Y() + rule.subHeights * input.subSize.Y());
  return placementAt(input, offset,
                     {offset, 0.0F, Wm4::Vector2<float>::ONE, ItemTransform::Order::ExistingTimesNew});
}

}  // namespace

std::optional<Placement> placeSubAnnotation(PlacementInput const& input) {
  if (input.anchor == rules::freeAnchor) return placeFreely(input);
  rules::AnchorRule const* const rule = rules::findAnchorRule(input.anchor);
  return rule == nullptr ? std::nullopt : std::optional(placeByRule(input, *rule));
}

}  // namespace qvLegacy::migration
