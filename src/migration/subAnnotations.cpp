#include "annotationLegacy/qvAnnotationMigration.h"
#include "migration/fail.h"
#include "migration/itemTransform.h"
#include "migration/placement.h"
#include "ports/cad.h"
#include "ports/svg.h"
#include "rules/migrationMessages.h"

namespace qvLegacy {

namespace messages = rules::migrationMessages;

bool qvAnnotationMigration::migrateSubAnnotations(qvAnnotationInterface const& annotation,
                                                  qv::qvCadAnnotation& cad,
                                                  qv::svg::BoundingBox const& frameBox) {
  for (qvAnnotationInterface::SubAnnot const& sub : annotation.getSubAnnots()) {
    if (sub.m_annot != nullptr && !migrateSubAnnotation(annotation, sub, cad, frameBox)) return false;
  }
  return true;
}

bool qvAnnotationMigration::migrateSubAnnotation(qvAnnotationInterface const& parent,
                                                 qvAnnotationInterface::SubAnnot const& sub,
                                                 qv::qvCadAnnotation& cad,
                                                 qv::svg::BoundingBox const& frameBox) {
  qv::qvPointer<qv::qvCadAnnotation> subCad;
  qv::svg::BoundingBox subBox;
  if (!createAnnotationFrame(sub.m_annot, subCad, subBox) || subCad == nullptr) {
    return migration::fail(messages::subAnnotation.text + parent.GetName() + "'");
  }
  auto const placement = migration::placeSubAnnotation(
      {sub.m_anchor, ports::getPosition(cad), ports::getPosition(*subCad), ports::getRotationAngle(*subCad),
       ports::getScale(*subCad), frameBox.getSize(), subBox.getSize()});
  if (!placement) return false;
  if (std::shared_ptr<qv::svg::Node> const& subRoot = ports::editSvgRoot(*subCad); subRoot != nullptr) {
    migration::transformItem(*subRoot, placement->transform);
    ports::appendChild(*ports::editSvgRoot(cad), subRoot);
  }

  // KEEP: looks before each sub-annotation, so a sub-annotation after one with leaders fails the parent. The
  // leaders of the parent itself are made later by the view walk.
  if (ports::hasLeaderDrawing(cad)) return migration::fail(messages::earlierLeaders.text);
  if (!createLeaders(sub.m_annot->m_leaders, cad, placement->leaderOrigin, placement->leaderOffset)) {
    migration::report(messages::subLeaders.text);
  }
  if (!createMeasureLeaders(sub.m_annot->m_measures, cad, placement->leaderOrigin, placement->leaderOffset)) {
    migration::report(messages::subMeasures.text);
  }
  return true;
}

}  // namespace qvLegacy
