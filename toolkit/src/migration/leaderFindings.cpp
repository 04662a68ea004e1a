#include <cmath>

#include "migration/migrationFindings.h"
#include "wm4/math.h"

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationInterface;
using Leader = qvAnnotationInterface::Leader;
using MeasureLeader = qvAnnotationInterface::MeasureLeader;

constexpr float Tolerance = Wm4::Math<float>::ZERO_TOLERANCE;

bool turnsWithLeader(std::uint8_t head) {
  return head == qvAnnotationInterface::SquareHead || head == qvAnnotationInterface::ArrowHead ||
         head == qvAnnotationInterface::TriangleHead;
}

float getLengthInPlane(Wm4::Vector3<float> const& v) {
  return std::sqrt(v.X() * v.X() + v.Y() * v.Y());
}

/// The leader's end minus its origin. The leaders of a sub-annotation are the first segments of the CAD
/// annotation, since nothing else may stand there before them; those of the annotation itself run from its
/// position.
Wm4::Vector3<float> getLeaderVector(AnnotationPair const& pair, std::size_t index) {
  if (pair.m_depth == 0 || index >= pair.m_cad->m_lineSegments.size()) {
    return pair.m_legacy->m_leaders[index].m_position - pair.m_cad->m_position;
  }
  auto const& segment = pair.m_cad->m_lineSegments[index];
  return segment.m_from - segment.m_to;
}

void reportHeads(AnnotationPair const& pair, FindingList& findings) {
  auto const& leaders = pair.m_legacy->m_leaders;
  for (std::size_t i = 0; i < leaders.size(); ++i) {
    if (leaders[i].m_head > qvAnnotationInterface::TriangleHead) {
      findings.add(FindingCode::LeaderHeadUnknown, Severity::Warning, pair.m_address,
                   "leader head " + std::to_string(leaders[i].m_head) + " is unknown and not drawn");
    }
    if (pair.m_depth > 1 || !turnsWithLeader(leaders[i].m_head)) continue;
    if (getLengthInPlane(getLeaderVector(pair, i)) <= Tolerance) {
      findings.add(FindingCode::LeaderHeadCollapsed, Severity::Warning, pair.m_address,
                   "leader " + std::to_string(i) +
                       " ends where it begins, so that its head has no direction and collapses into a point");
    }
  }
}

/// Whether the measure leader's extension lines have a direction, as the migration computes it.
bool hasDirection(MeasureLeader const& measure) {
  float const offset = getLengthInPlane(measure.m_offset);
  if (offset > Tolerance) return std::isfinite(offset);
  float const distance = getLengthInPlane(measure.m_pointA - measure.m_pointB);
  return distance > Tolerance && std::isfinite(distance);
}

std::string countThings(std::size_t count, std::string const& thing) {
  return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

std::string countLeaders(std::size_t leaders, std::size_t measures) {
  if (measures == 0) return countThings(leaders, "leader");
  if (leaders == 0) return countThings(measures, "measure leader");
  return countThings(leaders, "leader") + " and " + countThings(measures, "measure leader");
}

/// The migration gives leaders of sub-annotations to the CAD annotation of their parent, which lives on only
/// where that is an annotation of the view.
void reportLostWithParent(AnnotationPair const& pair, FindingList& findings) {
  std::size_t const leaders = pair.m_legacy->m_leaders.size();
  std::size_t const measures = pair.m_legacy->m_measures.size();
  if (leaders + measures == 0) return;
  findings.add(FindingCode::LeaderLost, Severity::Warning, pair.m_address,
               "lost, since only an annotation of the view and its direct sub-annotations keep theirs: " +
                   countLeaders(leaders, measures));
}

/// The first measure leader without direction ends the measure leaders of a sub-annotation.
void reportFailedMeasures(AnnotationPair const& pair, FindingList& findings) {
  auto const& measures = pair.m_legacy->m_measures;
  for (std::size_t i = 0; i < measures.size(); ++i) {
    if (hasDirection(measures[i])) continue;
    findings.add(FindingCode::LeaderLost, Severity::Warning, pair.m_address,
                 "measure leader " + std::to_string(i) + " has no direction; it and those behind it, " +
                     std::to_string(measures.size() - i) + " in all, are lost");
    return;
  }
}

}  // namespace

void reportLeaders(AnnotationPair const& pair, FindingList& findings) {
  reportHeads(pair, findings);
  if (pair.m_depth > 1) reportLostWithParent(pair, findings);
  if (pair.m_depth == 1) reportFailedMeasures(pair, findings);
}

}  // namespace qvToolkit
