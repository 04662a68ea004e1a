#pragma once

#include <vector>

#include "ports/geometry.h"
#include "rules/heads.h"

namespace qvLegacy::migration {

/// A line of a head, from one point to another.
struct HeadLine {
  Wm4::Vector2<float> from;
  Wm4::Vector2<float> to;
};

/// The unit direction from the leader's origin to its end point in the view plane; zero when they coincide
/// there.
[[nodiscard]] Wm4::Vector2<float> leaderDirection(Wm4::Vector3<float> const& end,
                                                  Wm4::Vector3<float> const& origin);

/// The polygon around the leader's end point as the origin.
[[nodiscard]] std::vector<Wm4::Vector2<float>> headPolygon(rules::HeadRule const& rule, float size,
                                                           Wm4::Vector2<float> const& direction);
/// The lines through the leader's end point as the origin.
[[nodiscard]] std::vector<HeadLine> headLines(rules::HeadRule const& rule, float size);

}  // namespace qvLegacy::migration
