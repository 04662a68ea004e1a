#include "qvSvg/computeEstimatedBoundingBox.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <vector>

#include "affine.h"
#include "qvSvg/image.h"
#include "qvSvg/node.h"
#include "qvSvg/path.h"
#include "qvSvg/rect.h"
#include "qvSvg/text.h"

namespace qv::svg {

namespace {

using Matrix = Wm4::Matrix3<float>;
using Point = Wm4::Vector2<float>;

constexpr double FULL_TURN = 2.0 * std::numbers::pi;
/// A turn whose ends were rounded to single precision still counts as full.
constexpr double TURN_TOLERANCE = 1e-6;

/// An item with the map from its parent's coordinates to those of the box.
struct Pending {
  ItemInterface const* m_item;
  Matrix m_matrix;
};

void addRectangle(BoundingBox& box, Matrix const& matrix, Point const& origin, Point const& size) {
  Point const far = origin + size;
  for (Point const& corner :
       std::array{origin, Point(far.X(), origin.Y()), far, Point(origin.X(), far.Y())}) {
    box.addPoint(mapPoint(matrix, corner));
  }
}

/// True when the arc passes the angle.
bool isOnArc(double start, double sweep, double angle) {
  double const turns = std::floor((angle - start) / FULL_TURN);
  return sweep >= FULL_TURN - TURN_TOLERANCE || angle - start - turns * FULL_TURN <= sweep;
}

/// Adds the arc's points at which one coordinate of the box turns back: along row `row` of the matrix the arc
/// is a cosine wave, whose two extremes lie half a turn apart.
void addArcExtremes(BoundingBox& box, Matrix const& matrix, PathSegment const& arc, std::size_t row) {
  double const start = static_cast<double>(std::min(arc.m_startAngle, arc.m_endAngle));
  double const end = static_cast<double>(std::max(arc.m_startAngle, arc.m_endAngle));
  double const crest = std::atan2(static_cast<double>(matrix(row, 1) * arc.m_radii.Y()),
                                  static_cast<double>(matrix(row, 0) * arc.m_radii.X()));
  for (double const angle : {crest, crest + std::numbers::pi}) {
    if (!isOnArc(start, end - start, angle)) continue;
    Point const direction(static_cast<float>(std::cos(angle)), static_cast<float>(std::sin(angle)));
    box.addPoint(mapPoint(
        matrix, arc.m_point + Point(arc.m_radii.X() * direction.X(), arc.m_radii.Y() * direction.Y())));
  }
}

void addArc(BoundingBox& box, Matrix const& matrix, PathSegment const& arc) {
  box.addPoint(mapPoint(matrix, getEllipsePoint(arc, arc.m_startAngle)));
  box.addPoint(mapPoint(matrix, getEllipsePoint(arc, arc.m_endAngle)));
  addArcExtremes(box, matrix, arc, 0);
  addArcExtremes(box, matrix, arc, 1);
}

void addContour(BoundingBox& box, Matrix const& matrix, PathContour const& contour) {
  if (contour.m_segments.empty()) return;
  box.addPoint(mapPoint(matrix, contour.m_start));
  for (PathSegment const& segment : contour.m_segments) {
    if (segment.m_kind == PathSegment::Kind::Ellipse) {
      addArc(box, matrix, segment);
    } else {
      box.addPoint(mapPoint(matrix, segment.m_point));
    }
  }
}

void addText(BoundingBox& box, Matrix const& matrix, Text const& text) {
  if (text.m_box.isValid()) addRectangle(box, matrix, text.m_box.getMinPoint(), text.m_box.getSize());
}

/// Adds the item's own extent; a group has none.
void addItem(BoundingBox& box, Matrix const& matrix, ItemInterface const& item) {
  switch (item.getKind()) {
    case ItemKind::Node:
      break;
    case ItemKind::Rect: {
      auto const& rect = static_cast<Rect const&>(item);
      addRectangle(box, matrix, rect.m_origin, rect.m_size);
      break;
    }
    case ItemKind::Image: {
      auto const& image = static_cast<Image const&>(item);
      addRectangle(box, matrix, image.m_position, image.m_size);
      break;
    }
    case ItemKind::Path:
      for (PathContour const& contour : static_cast<Path const&>(item).m_contours)
        addContour(box, matrix, contour);
      break;
    case ItemKind::Text:
      addText(box, matrix, static_cast<Text const&>(item));
      break;
  }
}

}  // namespace

void ComputeEstimatedBoundingBox(ItemInterface const& item, BoundingBox& box,
                                 bool (*filter)(ItemInterface const*), Matrix const* matrix) {
  // A work list instead of recursion: documents may nest deeper than the stack allows.
  std::vector<Pending> pending{{&item, matrix != nullptr ? *matrix : Matrix::IDENTITY}};
  while (!pending.empty()) {
    Pending const current = pending.back();
    pending.pop_back();
    if (filter != nullptr && !filter(current.m_item)) continue;
    Matrix const own =
        current.m_item->m_transform ? current.m_matrix * *current.m_item->m_transform : current.m_matrix;
    addItem(box, own, *current.m_item);
    if (current.m_item->getKind() != ItemKind::Node) continue;
    for (std::shared_ptr<ItemInterface> const& child :
         static_cast<Node const&>(*current.m_item).getChildren()) {
      if (child != nullptr) pending.push_back({child.get(), own});
    }
  }
}

}  // namespace qv::svg
