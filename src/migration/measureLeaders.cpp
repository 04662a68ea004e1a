#include "annotationLegacy/qvAnnotationMigration.h"
#include "migration/fail.h"
#include "migration/measureGeometry.h"
#include "ports/cad.h"
#include "rules/migrationMessages.h"

namespace qvLegacy {

bool qvAnnotationMigration::createMeasureLeaders(
    std::vector<qvAnnotationInterface::MeasureLeader> const& measures, qv::qvCadAnnotation& cad,
    Wm4::Vector3<float> const& origin, Wm4::Vector2<float> const& offset) {
  for (qvAnnotationInterface::MeasureLeader const& leader : measures) {
    auto const segments =
        migration::measureSegments({leader.m_pointA, leader.m_pointB, leader.m_offset,
                                    rules::arrowRuleOf(leader.m_arrowDir), origin, m_headSize});
    if (!segments) return migration::fail(rules::migrationMessages::perpendicular.text);
    for (migration::Segment const& segment : *segments)
      ports::appendLineSegment(cad, segment.from, segment.to);
    ports::appendLeaderAnchor(cad, origin, offset);
  }
  return true;
}

}  // namespace qvLegacy
