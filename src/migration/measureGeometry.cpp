#include "migration/measureGeometry.h"

#include "migration/planeVector.h"

namespace qvLegacy::migration {

namespace {

using Point = Wm4::Vector2<float>;

/// Tangent of the 15 degrees between a barb and the dimension line.
constexpr float barbSlope = 0.2679F;

/// Turned by a right angle, counter-clockwise where y is up.
Point leftOf(Point const& v) {
  return {-v.Y(), v.X()};
}

std::optional<Point> intersect(Wm4::Line2<float> const& first, Wm4::Line2<float> const& second) {
  Wm4::IntrLine2Line2<float> intersection(first, second);
  if (!intersection.Find() || intersection.GetIntersectionType() != Wm4::IT_POINT) return std::nullopt;
  return intersection.GetPoint();
}

Wm4::Vector3<float> atHeight(Point const& point, float z) {
  return {point.X(), point.Y(), z};
}

/// Two lines from the origin when it lies between the feet, else one to the farther foot.
void appendDimensionLine(Measure const& measure, Feet const& feet, std::vector<Segment>& segments) {
  Point const origin = inPlane(measure.origin);
  Point const toA = feet.atA - origin;
  Point const toB = feet.atB - origin;
  float const z = measure.origin.Z();
  if (toA.Dot(toB) < 0.0F) {
    segments.push_back({measure.origin, atHeight(feet.atB, z)});
    segments.push_back({measure.origin, atHeight(feet.atA, z)});
    return;
  }
  Point const& farther = toB.SquaredLength() <= toA.SquaredLength() ? feet.atA : feet.atB;
  segments.push_back({measure.origin, atHeight(farther, z)});
}

/// Two barbs that end at the foot; `along` points from it to where they begin.
void appendArrow(Measure const& measure, Point const& foot, Point const& along, Point const& across,
                 std::vector<Segment>& segments) {
  float const z = measure.origin.Z();
  Point const back = foot + measure.headSize * along;
  Point const side = barbSlope * measure.headSize * across;
  segments.push_back({atHeight(back + side, z), atHeight(foot, z)});
  segments.push_back({atHeight(back - side, z), atHeight(foot, z)});
}

/// From a measured point to the foot or to the offset's end, whichever is farther; the foot when both are as
/// far.
void appendExtensionLine(Measure const& measure, Wm4::Vector3<float> const& point, Point const& foot,
                         std::vector<Segment>& segments) {
  Wm4::Vector3<float> const offsetEnd = point + measure.offset;
  bool const footIsFarther =
      inPlane(measure.offset).SquaredLength() <= (foot - inPlane(point)).SquaredLength();
  segments.push_back({point, footIsFarther ? atHeight(foot, offsetEnd.Z()) : offsetEnd});
}

}  // namespace

Point extensionDirection(Measure const& measure) {
  Point const offset = inPlane(measure.offset);
  if (!isDirectionless(offset)) return unitOrZero(offset);
  // KEEP: coinciding points give (-0, 0), which no line intersects.
  return leftOf(unitOrZero(inPlane(measure.pointA) - inPlane(measure.pointB)));
}

std::optional<Feet> findFeet(Measure const& measure, Point const& direction) {
  Wm4::Line2<float> const dimensionLine(inPlane(measure.origin), leftOf(direction));
  auto const atA = intersect({inPlane(measure.pointA), direction}, dimensionLine);
  auto const atB = intersect({inPlane(measure.pointB), direction}, dimensionLine);
  if (!atA || !atB) return std::nullopt;
  return Feet{*atA, *atB};
}

std::optional<std::vector<Segment>> measureSegments(Measure const& measure) {
  Point const across = extensionDirection(measure);
  auto const feet = findFeet(measure, across);
  if (!feet) return std::nullopt;
  Point const along = leftOf(across);
  std::vector<Segment> segments;
  segments.reserve(8);
  appendDimensionLine(measure, *feet, segments);
  appendArrow(measure, feet->atA, measure.arrows.atA * along, across, segments);
  appendArrow(measure, feet->atB, measure.arrows.atB * along, across, segments);
  appendExtensionLine(measure, measure.pointA, feet->atA, segments);
  appendExtensionLine(measure, measure.pointB, feet->atB, segments);
  return segments;
}

}  // namespace qvLegacy::migration
