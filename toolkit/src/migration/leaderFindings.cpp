#include <algorithm>
#include <cmath>

#include "migration/migrationFindings.h"
#include "rules/arrows.h"
#include "rules/directions.h"
#include "rules/heads.h"
#include "text/countText.h"

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationInterface;
using Leader = qvAnnotationInterface::Leader;
using MeasureLeader = qvAnnotationInterface::MeasureLeader;

namespace rules = qvLegacy::rules;

/// Whether a vector has a direction in the view's plane, and one that can be computed.
bool hasDirection(Wm4::Vector3<float> const& v) {
  return rules::hasDirection(v.X(), v.Y()) && std::isfinite(v.X() * v.X() + v.Y() * v.Y());
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
    rules::HeadRule const* const head = rules::findHeadRule(leaders[i].m_head);
    if (head == nullptr) {
      findings.add(FindingCode::LeaderHeadUnknown,
                   "leader head " + std::to_string(leaders[i].m_head) + " is unknown and not drawn",
                   pair.m_address);
    }
    if (pair.m_depth > 1 || head == nullptr || !head->turnsWithLeader()) continue;
    if (!hasDirection(getLeaderVector(pair, i))) {
      findings.add(FindingCode::LeaderHeadCollapsed,
                   "leader " + std::to_string(i) +
                       " ends where it begins, so that its head has no direction and collapses into a point",
                   pair.m_address);
    }
  }
}

/// Whether the measure leader's extension lines have a direction, as the migration computes it.
bool hasExtensionDirection(MeasureLeader const& measure) {
  bool const hasOffset = rules::hasDirection(measure.m_offset.X(), measure.m_offset.Y());
  return hasDirection(hasOffset ? measure.m_offset : measure.m_pointA - measure.m_pointB);
}

std::string countLeaders(std::size_t leaders, std::size_t measures) {
  if (measures == 0) return formatCount(leaders, "leader");
  if (leaders == 0) return formatCount(measures, "measure leader");
  return formatCount(leaders, "leader") + " and " + formatCount(measures, "measure leader");
}

/// The migration gives leaders of sub-annotations to the CAD annotation of their parent, which lives on only
/// where that is an annotation of the view.
void reportLostWithParent(AnnotationPair const& pair, FindingList& findings) {
  std::size_t const leaders = pair.m_legacy->m_leaders.size();
  std::size_t const measures = pair.m_legacy->m_measures.size();
  if (leaders + measures == 0) return;
  findings.add(
      makeFinding(FindingCode::LeaderLost,
                  "lost, since only an annotation of the view and its direct sub-annotations keep theirs: " +
                      countLeaders(leaders, measures),
                  pair.m_address));
}

/// The first measure leader without direction ends the measure leaders of a sub-annotation.
void reportFailedMeasures(AnnotationPair const& pair, FindingList& findings) {
  std::size_t const count = pair.m_legacy->m_measures.size();
  std::size_t const failed = findFailedMeasure(*pair.m_legacy);
  if (failed == count) return;
  findings.add(FindingCode::LeaderLost,
               "measure leader " + std::to_string(failed) + " has no direction; it and those behind it, " +
                   std::to_string(count - failed) + " in all, are lost",
               pair.m_address);
}

void reportArrows(AnnotationPair const& pair, FindingList& findings) {
  for (MeasureLeader const& measure : pair.m_legacy->m_measures) {
    if (measure.m_arrowDir < rules::arrowRules.size()) continue;
    findings.add(FindingCode::ValueUnknown,
                 "arrow direction " + std::to_string(measure.m_arrowDir) + " is unknown, expected 0 to " +
                     std::to_string(rules::arrowRules.size() - 1) + "; the arrows are drawn as for " +
                     std::to_string(rules::otherArrowDirection),
                 pair.m_address);
  }
}

/// The leaders of a whole tree are those of its CAD annotation.
void reportDepths(AnnotationPair const& pair, FindingList& findings) {
  auto const count = std::ranges::count_if(pair.m_cad->m_lineSegments, [](auto const& segment) {
    return lacksDepth(segment.m_from) || lacksDepth(segment.m_to);
  });
  if (count == 0) return;
  findings.add(FindingCode::NumberNotFinite,
               "the depth of " + formatCount(static_cast<std::uint64_t>(count), "leader line") +
                   " is lost: it is not finite; the migrated model holds null",
               pair.m_address);
}

}  // namespace

std::size_t findFailedMeasure(qvAnnotationInterface const& annotation) {
  auto const failed = std::ranges::find_if_not(annotation.m_measures, hasExtensionDirection);
  return static_cast<std::size_t>(failed - annotation.m_measures.begin());
}

void reportLeaders(AnnotationPair const& pair, FindingList& findings) {
  reportHeads(pair, findings);
  reportArrows(pair, findings);
  if (pair.m_depth == 0) reportDepths(pair, findings);
  if (pair.m_depth > 1) reportLostWithParent(pair, findings);
  if (pair.m_depth == 1) reportFailedMeasures(pair, findings);
}

}  // namespace qvToolkit
