#include <memory>
#include <string>
#include <utility>

#include "annotationLegacy/qvAnnotationMigration.h"
#include "migration/color.h"
#include "migration/fail.h"
#include "ports/svg.h"
#include "rules/migrationMessages.h"
#include "rules/units.h"

namespace qvLegacy {

bool qvAnnotationMigration::migrateRasterAnnotation(qvAnnotationRaster const* annotation,
                                                    qv::svg::Node& root) {
  if (m_rasterCallback == nullptr) return migration::fail(rules::migrationMessages::noRasterCallback.text);
  std::string data;
  if (!m_rasterCallback(annotation->m_rasterName, data, m_userData)) {
    return migration::fail(rules::migrationMessages::missingRaster.text + annotation->m_rasterName + "'");
  }
  Wm4::Vector2<float> const size = annotation->m_size * rules::svgUnitsPerLegacyUnit;
  auto const image = std::make_shared<qv::svg::Image>();
  ports::setSize(*image, size);
  ports::setData(*image, std::move(data));
  auto const background = std::make_shared<qv::svg::Rect>(ports::getPosition(*image), size);
  ports::setBackgroundColor(*background, migration::colorText(migration::black));
  ports::appendChild(root, background);
  ports::appendChild(root, image);
  return true;
}

}  // namespace qvLegacy
