#include <memory>

#include "annotationLegacy/qvAnnotationMigration.h"
#include "migration/fail.h"
#include "migration/itemTransform.h"
#include "migration/leaderHeads.h"
#include "ports/cad.h"
#include "ports/svg.h"
#include "rules/migrationMessages.h"

namespace qvLegacy {

namespace {

constexpr float fullTurn = Wm4::Math<float>::WM4_PI + Wm4::Math<float>::WM4_PI;

void drawLines(rules::HeadRule const& rule, float size, qv::svg::PathBuilder& builder) {
  for (migration::HeadLine const& line : migration::headLines(rule, size))
    builder.appendLine(line.from, line.to);
}

void drawContour(rules::HeadRule const& rule, float size, Wm4::Vector2<float> const& direction,
                 qv::svg::PathBuilder& builder) {
  if (rule.corners.empty() && !rule.circle) return;
  builder.startContour(false);
  if (rule.circle) {
    float const radius = size * 0.5F;
    builder.appendEllipse(Wm4::Vector2<float>::ZERO, {radius, radius}, 0.0F, fullTurn);
  } else {
    builder.appendSegmentListMove(migration::headPolygon(rule, size, direction));
  }
  builder.endContour();
}

/// Line heads are stroked and not filled, contour heads filled without a border. A node without children: no
/// head.
std::shared_ptr<qv::svg::Node> createHead(rules::HeadRule const& rule, float size,
                                          Wm4::Vector2<float> const& direction) {
  qv::svg::PathBuilder contours;
  qv::svg::PathBuilder lines;
  drawContour(rule, size, direction, contours);
  drawLines(rule, size, lines);
  auto node = std::make_shared<qv::svg::Node>();
  if (std::shared_ptr<ports::SvgItem> const item = lines.createPathItem(true); item != nullptr) {
    ports::setBackgroundColor(*item, "none");
    ports::setWidth(*item, 1.0F);
    ports::appendChild(*node, item);
  }
  if (std::shared_ptr<ports::SvgItem> const item = contours.createPathItem(true); item != nullptr) {
    ports::setBorderColor(*item, "none");
    ports::appendChild(*node, item);
  }
  return node;
}

}  // namespace

bool qvAnnotationMigration::createLeaders(std::vector<qvAnnotationInterface::Leader> const& leaders,
                                          qv::qvCadAnnotation& cad, Wm4::Vector3<float> const& origin,
                                          Wm4::Vector2<float> const& offset) {
  for (qvAnnotationInterface::Leader const& leader : leaders) {
    ports::appendLineSegment(cad, leader.m_position, origin);
    ports::appendLeaderAnchor(cad, origin, offset);
    rules::HeadRule const* const rule = rules::findHeadRule(leader.m_head);
    if (rule == nullptr) {
      migration::report(rules::migrationMessages::unhandledHead.text);
      continue;
    }
    auto const head = createHead(*rule, m_headSize, migration::leaderDirection(leader.m_position, origin));
    if (head->editChildren().empty()) continue;
    migration::transformItem(*head, migration::verticalMirror);
    ports::appendShape(cad, head, leader.m_position);
  }
  return true;
}

}  // namespace qvLegacy
