#include <memory>

#include "annotationLegacy/qvAnnotationMigration.h"
#include "migration/color.h"
#include "migration/fail.h"
#include "migration/flags.h"
#include "migration/itemTransform.h"
#include "ports/cad.h"
#include "ports/svg.h"
#include "rules/migrationMessages.h"

namespace qvLegacy {

namespace {

constexpr Wm4::Vector2<float> textMargin(2.0F, 2.0F);

std::shared_ptr<qv::svg::Node> createRoot() {
  auto root = std::make_shared<qv::svg::Node>();
  ports::setBorderColor(*root, migration::colorText(migration::black));
  ports::setBackgroundColor(*root, migration::colorText(migration::black));
  return root;
}

/// Moves content and box so that the box's centre is the origin.
void centerContent(qv::svg::Node& root, qv::svg::BoundingBox& box) {
  migration::ItemTransform const toOrigin{.translation = -box.getCenterPoint()};
  for (std::shared_ptr<ports::SvgItem> const& item : root.editChildren()) {
    migration::transformItem(*item, toOrigin);
  }
  box.translate(toOrigin.translation);
}

}  // namespace

bool qvAnnotationMigration::createAnnotationFrame(qvAnnotationInterface const* annotation,
                                                  qv::qvPointer<qv::qvCadAnnotation>& result,
                                                  qv::svg::BoundingBox& box) {
  if (annotation == nullptr) return false;
  qv::qvPointer<qv::qvCadAnnotation> const cad(new qv::qvCadAnnotation);
  cad->SetName(annotation->GetName());
  ports::setColor(*cad, migration::black);
  ports::setPosition(*cad, annotation->m_position);
  if (!screenMetadata(*annotation)) return false;

  ports::editSvgRoot(*cad) = createRoot();
  if (!createFramedContent(*annotation, ports::editSvgRoot(*cad), box)) return false;
  if (!migrateSubAnnotations(*annotation, *cad, box)) return false;
  ports::setFlags(*cad, migration::migratedFlags(ports::getFlags(*cad), annotation->m_style));
  result = cad;
  return true;
}

bool qvAnnotationMigration::createFramedContent(qvAnnotationInterface const& annotation,
                                                std::shared_ptr<qv::svg::Node>& root,
                                                qv::svg::BoundingBox& frameBox) {
  migration::Color const contrastColor = migration::contrastColor(annotation.m_color);
  Wm4::Vector2<float> margin;
  if (!migrateContent(annotation, *root, contrastColor, margin)) return false;

  qv::svg::BoundingBox contentBox;
  qv::svg::ComputeEstimatedBoundingBox(*root, contentBox, nullptr, nullptr);
  if (!contentBox.isValid()) return migration::fail(rules::migrationMessages::emptyFrame.text);
  contentBox.addMargin(margin);
  centerContent(*root, contentBox);
  int const shape = annotation.m_style & qvAnnotationInterface::FrameShapeMask;
  return createFrame(shape, contentBox, frameBox, root, annotation.m_color, contrastColor);
}

bool qvAnnotationMigration::migrateContent(qvAnnotationInterface const& annotation, qv::svg::Node& root,
                                           Wm4::Vector3<unsigned char> const& contrastColor,
                                           Wm4::Vector2<float>& margin) {
  switch (annotation.m_type) {
    case qvAnnotationInterface::Text:
      margin = textMargin;
      return migrateTextAnnotation(static_cast<qvAnnotationText const*>(&annotation), root, contrastColor);
    case qvAnnotationInterface::Raster:
      margin = Wm4::Vector2<float>::ZERO;
      return migrateRasterAnnotation(static_cast<qvAnnotationRaster const*>(&annotation), root);
    default:
      return false;
  }
}

}  // namespace qvLegacy
