#include "annotationLegacy/qvAnnotationMigration.h"
#include "migration/fail.h"
#include "ports/cad.h"
#include "ports/text.h"
#include "rules/migrationMessages.h"

namespace qvLegacy {

namespace messages = rules::migrationMessages;

qvAnnotationMigration::qvAnnotationMigration(int options, RasterCallback rasterCallback, void* userData,
                                             float headSize)
    : m_options(options),
      m_rasterCallback(rasterCallback),
      m_userData(userData),
      m_headSize(headSize),
      m_textConverter(std::make_unique<qv::text::TextSegmentToSvgConverter>()) {
}

qvAnnotationMigration::~qvAnnotationMigration() = default;

bool qvAnnotationMigration::migrateAnnotationView(qv::qvPointer<qvAnnotationView> const& view,
                                                  qv::qvPointer<qv::qvCadAnnotationView>& result) {
  if (view == nullptr || result != nullptr) return false;
  qv::qvPointer<qv::qvCadAnnotationView> const cadView(new qv::qvCadAnnotationView);
  cadView->SetName(view->GetName());
  ports::setPlane(*cadView, view->m_planeOrigin, view->m_planeNormal, view->m_planeXAxis);
  if (!view->m_metadata.empty() && (m_options & DropViewMetadata) == 0) {
    return migration::fail(messages::viewMetadata.text);
  }
  for (qv::qvPointer<qvAnnotationInterface> const& annotation : view->m_annotations) {
    if (annotation != nullptr && !migrateTopLevelAnnotation(*annotation, view->GetName(), *cadView))
      return false;
  }
  result = cadView;
  return true;
}

bool qvAnnotationMigration::migrateTopLevelAnnotation(qvAnnotationInterface const& annotation,
                                                      std::string const& viewName,
                                                      qv::qvCadAnnotationView& cadView) {
  qv::qvPointer<qv::qvCadAnnotation> cad;
  qv::svg::BoundingBox box;
  std::string const& name = annotation.GetName();
  if (!createAnnotationFrame(&annotation, cad, box)) {
    return migration::fail(messages::annotation.text + name + "' of view '" + viewName + "'");
  }
  Wm4::Vector3<float> const origin = ports::getPosition(*cad);
  if (!createLeaders(annotation.m_leaders, *cad, origin, Wm4::Vector2<float>::ZERO)) {
    return migration::fail(messages::leaders.text + name + "' of view '" + viewName + "'");
  }
  if (!createMeasureLeaders(annotation.m_measures, *cad, origin, Wm4::Vector2<float>::ZERO)) {
    return migration::fail(messages::measures.text + name + "' of view '" + viewName + "'");
  }
  ports::appendAnnotation(cadView, cad);
  return true;
}

}  // namespace qvLegacy
