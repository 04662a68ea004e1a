#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "ports/geometry.h"

namespace qvLegacy::migration {

/// A corner in multiples of the head size: along the leader's direction, and across it to the left.
struct HeadCorner {
  float along;
  float across;
};

/// A line through the leader's end point, in arms; not turned with the leader.
struct HeadLine {
  Wm4::Vector2<float> from;
  Wm4::Vector2<float> to;
};

/// How a head is drawn: as a filled polygon, as a filled circle, or as lines.
struct HeadRule {
  std::span<HeadCorner const> corners{};
  bool circle = false;
  std::span<HeadLine const> lines{};
  bool armsFollowSize = false;
};

/// The rule of a `LeaderHead` value; null for a value that has none.
[[nodiscard]] HeadRule const* findHeadRule(std::uint8_t head);

/// The unit direction from the leader's origin to its end point in the view plane; zero when they coincide
/// there.
[[nodiscard]] Wm4::Vector2<float> leaderDirection(Wm4::Vector3<float> const& end,
                                                  Wm4::Vector3<float> const& origin);

/// The polygon around the leader's end point as the origin.
[[nodiscard]] std::vector<Wm4::Vector2<float>> headPolygon(HeadRule const& rule, float size,
                                                           Wm4::Vector2<float> const& direction);
/// The lines through the leader's end point as the origin.
[[nodiscard]] std::vector<HeadLine> headLines(HeadRule const& rule, float size);

}  // namespace qvLegacy::migration
