#include "pages/pageMeasure.h"

#include <cmath>

#include "migration/itemWalk.h"
#include "pages/itemExtent.h"
#include "text/countText.h"

namespace qvToolkit {

void PageImages::addUse(qv::svg::Image const& item) {
  Image const& image = findImage(m_view, item);
  auto known = m_indices.find(&image);
  if (known == m_indices.end()) known = m_indices.emplace(&image, add(image)).first;
  if (known->second != npos) ++m_images[known->second].m_uses;
}

std::size_t PageImages::find(qv::svg::Image const& item) const {
  auto const known = m_indices.find(&findImage(m_view, item));
  return known == m_indices.end() ? npos : known->second;
}

std::size_t PageImages::add(Image const& image) {
  if (!image.isShowable()) return npos;
  auto const [known, isNew] = m_byContent.emplace(image.getBytes(), m_images.size());
  if (isNew) m_images.push_back({image, 0});
  return known->second;
}

Affine getPlacement(qv::qvCadAnnotation const& annotation) {
  auto const scale = static_cast<double>(annotation.m_scale);
  double const cosine = std::cos(static_cast<double>(annotation.m_rotationAngle)) * scale;
  double const sine = std::sin(static_cast<double>(annotation.m_rotationAngle)) * scale;
  PagePoint const position = project(annotation.m_position);
  // Counter-clockwise in the view plane, whose y axis points up.
  return {cosine, -sine, sine, cosine, position.m_x, position.m_y};
}

Affine getPlacement(qv::qvCadAnnotation::Shape const& shape) {
  PagePoint const point = project(shape.m_point);
  return {1.0, 0.0, 0.0, 1.0, point.m_x, point.m_y};
}

bool isDrawable(qv::qvCadAnnotation::LineSegment const& segment) {
  return isDrawable(project(segment.m_from)) && isDrawable(project(segment.m_to));
}

PageMeasure::PageMeasure(MigratedView const& view, bool hasOutlines)
    : m_view(view), m_hasOutlines(hasOutlines), m_images(view) {
  for (auto const& annotation : view.m_view->m_annotations) {
    if (annotation != nullptr) measureAnnotation(*annotation);
  }
}

void PageMeasure::measureAnnotation(qv::qvCadAnnotation const& annotation) {
  AnnotationMark const* const mark = findMark(m_view.m_marks, annotation.m_svgRoot.get());
  std::string const address = mark == nullptr ? std::string() : mark->m_address;
  for (auto const& segment : annotation.m_lineSegments) {
    if (!isDrawable(segment)) {
      leaveOut(address, false);
      continue;
    }
    m_extent.add(project(segment.m_from));
    m_extent.add(project(segment.m_to));
  }
  for (auto const& shape : annotation.m_shapes) {
    if (shape.m_node != nullptr) walkItems(*shape.m_node, *this, Place{getPlacement(shape), &address});
  }
  if (annotation.m_svgRoot != nullptr)
    walkItems(*annotation.m_svgRoot, *this, Place{getPlacement(annotation), &address});
}

std::optional<PageMeasure::Place> PageMeasure::enter(qv::svg::ItemInterface const& item, Place const& outer) {
  AnnotationMark const* const mark = findMark(m_view.m_marks, &item);
  std::string const& address = mark == nullptr ? *outer.m_address : mark->m_address;
  Affine const map = item.m_transform ? outer.m_map * Affine::fromMatrix(*item.m_transform) : outer.m_map;
  std::optional<Extent> extent = measureOwnExtent(item);
  if (extent && !extent->isEmpty()) extent = extent->map(map);
  if (!extent || !map.isDrawable() || !outer.m_map.isDrawable()) {
    m_leftOut.insert(&item);
    leaveOut(address, mark != nullptr);
    return std::nullopt;
  }
  m_extent.add(*extent);
  if (item.getKind() == qv::svg::ItemKind::Image) m_images.addUse(static_cast<qv::svg::Image const&>(item));
  if (m_hasOutlines && item.getKind() == qv::svg::ItemKind::Text)
    m_glyphs.add(static_cast<qv::svg::Text const&>(item));
  return Place{map, &address};
}

void PageMeasure::leaveOut(std::string const& address, bool isAnnotation) {
  auto const [place, isNew] = m_leftOutPlaces.emplace(address, m_leftOutCounts.size());
  if (isNew) m_leftOutCounts.push_back({address, 0, false});
  LeftOutCount& count = m_leftOutCounts[place->second];
  ++count.m_items;
  count.m_isAnnotation = count.m_isAnnotation || isAnnotation;
}

Findings PageMeasure::listFindings() const {
  FindingList findings;
  for (LeftOutCount const& count : m_leftOutCounts) {
    std::string const what = count.m_isAnnotation ? "the annotation, with all that belongs to it, is"
                             : count.m_items == 1 ? "an item is"
                                                  : formatCountIs(count.m_items, "item");
    findings.add(FindingCode::NumberNotFinite,
                 what + " left out of the page, since a number is not finite or beyond 1000000000",
                 count.m_address);
  }
  return findings.takeFindings();
}

}  // namespace qvToolkit
