#include "migration/leaderHeads.h"

#include <array>

#include "migration/planeVector.h"

namespace qvLegacy::migration {

namespace {

constexpr std::array<HeadCorner, 4> squareCorners{
    {{-0.5F, -0.5F}, {-0.5F, 0.5F}, {0.5F, 0.5F}, {0.5F, -0.5F}}};
constexpr std::array<HeadCorner, 3> arrowCorners{{{-1.0F, 0.3F}, {0.0F, 0.0F}, {-1.0F, -0.3F}}};
constexpr std::array<HeadCorner, 3> triangleCorners{{{0.0F, -0.5F}, {-1.0F, 0.0F}, {0.0F, 0.5F}}};

constexpr std::array<HeadLine, 2> plusLines{{{{-1.0F, 0.0F}, {1.0F, 0.0F}}, {{0.0F, -1.0F}, {0.0F, 1.0F}}}};
constexpr std::array<HeadLine, 2> crossLines{
    {{{-1.0F, -1.0F}, {1.0F, 1.0F}}, {{1.0F, -1.0F}, {-1.0F, 1.0F}}}};

/// In the order of `LeaderHead`.
constexpr std::array<HeadRule, 7> headRules{{
    {},                                             // none
    {.corners = squareCorners},                     // square
    {.circle = true},                               // circle
    {.corners = arrowCorners},                      // arrow
    {.lines = plusLines},                           // plus. KEEP: the one head whose size is fixed
    {.lines = crossLines, .armsFollowSize = true},  // cross
    {.corners = triangleCorners},                   // triangle
}};

/// A factor of zero leaves the term out, so that the tip of an arrow is zero whatever size and direction are.
Wm4::Vector2<float> scaled(float factor, float size, Wm4::Vector2<float> const& v) {
  return factor == 0.0F ? Wm4::Vector2<float>::ZERO : factor * size * v;
}

}  // namespace

HeadRule const* findHeadRule(std::uint8_t head) {
  return head < headRules.size() ? &headRules[head] : nullptr;
}

Wm4::Vector2<float> leaderDirection(Wm4::Vector3<float> const& end, Wm4::Vector3<float> const& origin) {
  return unitOrZero(inPlane(end - origin));
}

std::vector<Wm4::Vector2<float>> headPolygon(HeadRule const& rule, float size,
                                             Wm4::Vector2<float> const& direction) {
  Wm4::Vector2<float> const left(-direction.Y(), direction.X());
  std::vector<Wm4::Vector2<float>> points;
  points.reserve(rule.corners.size());
  for (HeadCorner const& corner : rule.corners) {
    points.push_back(scaled(corner.along, size, direction) + scaled(corner.across, size, left));
  }
  return points;
}

std::vector<HeadLine> headLines(HeadRule const& rule, float size) {
  float const arm = rule.armsFollowSize ? size * 0.7071F * 0.5F : 1.0F;
  std::vector<HeadLine> lines;
  lines.reserve(rule.lines.size());
  for (HeadLine const& line : rule.lines) lines.push_back({line.from * arm, line.to * arm});
  return lines;
}

}  // namespace qvLegacy::migration
