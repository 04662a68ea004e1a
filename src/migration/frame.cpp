#include <memory>
#include <utility>
#include <vector>

#include "annotationLegacy/qvAnnotationMigration.h"
#include "migration/color.h"
#include "migration/frameGeometry.h"
#include "ports/svg.h"
#include "rules/frames.h"

namespace qvLegacy {

namespace {

using rules::FrameRule;

std::shared_ptr<ports::SvgItem> createRectangle(qv::svg::BoundingBox const& box) {
  return std::make_shared<qv::svg::Rect>(box.getMinPoint(), box.getSize());
}

/// Null when the platform's builder makes no path of the points.
std::shared_ptr<ports::SvgItem> createPolygon(std::vector<Wm4::Vector2<float>> points) {
  qv::svg::PathBuilder builder;
  builder.startContour(false);
  builder.appendSegmentListMove(std::move(points));
  builder.endContour();
  return builder.createPathItem(true);
}

/// The outline around `box`; a square grows the box.
std::shared_ptr<ports::SvgItem> createOutline(FrameRule const& rule, qv::svg::BoundingBox& box) {
  migration::Extent const extent{box.getMinPoint(), box.getMaxPoint(), box.getSize()};
  switch (rule.outline) {
    case FrameRule::Outline::Flag:
      return createPolygon(migration::flagPoints(extent, rule.pointLeft, rule.pointRight));
    case FrameRule::Outline::Parallelogram:
      return createPolygon(migration::parallelogramPoints(extent));
    case FrameRule::Outline::Square:
      box.addMargin(migration::marginToSquare(extent.size));
      break;
    case FrameRule::Outline::Box:
      break;
  }
  return createRectangle(box);
}

}  // namespace

// The contrast colour is part of the established signature; frames have no use for it.
bool qvAnnotationMigration::createFrame(int shape, qv::svg::BoundingBox const& contentBox,
                                        qv::svg::BoundingBox& frameBox, std::shared_ptr<qv::svg::Node>& root,
                                        Wm4::Vector3<unsigned char> const& color,
                                        Wm4::Vector3<unsigned char> const& /*contrastColor*/) {
  frameBox = contentBox;
  FrameRule const* const rule = rules::findFrameRule(shape);
  if (rule == nullptr) return false;
  std::shared_ptr<ports::SvgItem> const item = createOutline(*rule, frameBox);
  if (item == nullptr) return false;
  ports::setBorderColor(*item, rule->border ? migration::colorText(migration::black) : "none");
  ports::setBackgroundColor(*item, migration::colorText(color));
  ports::setWidth(*item, 1.0F);
  ports::setClass(*item, "border");
  ports::insertChildAtBack(*root, item);
  return true;
}

}  // namespace qvLegacy
