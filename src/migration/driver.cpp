#include "annotationLegacy/qvAnnotationMigration.h"
#include "migration/fail.h"
#include "ports/cad.h"
#include "ports/text.h"

namespace qvLegacy {

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
    return migration::fail("Found metadata in annotation view");
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
    return migration::fail("Fail to migrate annotation '" + name + "' of view '" + viewName + "'");
  }
  Wm4::Vector3<float> const origin = ports::getPosition(*cad);
  if (!createLeaders(annotation.m_leaders, *cad, origin, Wm4::Vector2<float>::ZERO)) {
    return migration::fail("Fail to migrate leaders of annotation '" + name + "' of view '" + viewName + "'");
  }
  if (!createMeasureLeaders(annotation.m_measures, *cad, origin, Wm4::Vector2<float>::ZERO)) {
    return migration::fail("Fail to migrate measure leaders of annotation '" + name + "' of view '" +
                           viewName + "'");
  }
  ports::appendAnnotation(cadView, cad);
  return true;
}

}  // namespace qvLegacy
