#include "migration/leaderHeads.h"

#include "migration/planeVector.h"

namespace qvLegacy::migration {

namespace {

/// A factor of zero leaves the term out, so that the tip of an arrow is zero whatever size and direction are.
Wm4::Vector2<float> scaled(float factor, float size, Wm4::Vector2<float> const& v) {
  return factor == 0.0F ? Wm4::Vector2<float>::ZERO : factor * size * v;
}

}  // namespace

Wm4::Vector2<float> leaderDirection(Wm4::Vector3<float> const& end, Wm4::Vector3<float> const& origin) {
  return unitOrZero(inPlane(end - origin));
}

std::vector<Wm4::Vector2<float>> headPolygon(rules::HeadRule const& rule, float size,
                                             Wm4::Vector2<float> const& direction) {
  Wm4::Vector2<float> const left(-direction.Y(), direction.X());
  std::vector<Wm4::Vector2<float>> points;
  points.reserve(rule.corners.size());
  for (rules::HeadCorner const& corner : rule.corners) {
    points.push_back(scaled(corner.along, size, direction) + scaled(corner.across, size, left));
  }
  return points;
}

std::vector<HeadLine> headLines(rules::HeadRule const& rule, float size) {
  float const arm = rule.armsFollowSize ? size * 0.7071F * 0.5F : 1.0F;
  std::vector<HeadLine> lines;
  lines.reserve(rule.arms.size());
  for (auto const& [fromX, fromY, toX, toY] : rule.arms) {
    lines.push_back({{fromX * arm, fromY * arm}, {toX * arm, toY * arm}});
  }
  return lines;
}

}  // namespace qvLegacy::migration
