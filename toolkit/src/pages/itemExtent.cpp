#include "pages/itemExtent.h"

#include "qvSvg/image.h"
#include "qvSvg/path.h"
#include "qvSvg/rect.h"
#include "qvSvg/text.h"

namespace qvToolkit {

namespace {

/// Adds up points and remembers whether every number was drawable.
class Measure {
 public:
  void addNumber(float number) { m_isDrawable = m_isDrawable && isDrawable(number); }
  void addPoint(Wm4::Vector2<float> const& point) {
    addPoint(static_cast<double>(point.X()), static_cast<double>(point.Y()));
  }
  void addPoint(double x, double y) {
    if (isDrawable(PagePoint{x, y})) {
      m_extent.add(PagePoint{x, y});
    } else {
      m_isDrawable = false;
    }
  }
  void addBox(Wm4::Vector2<float> const& origin, Wm4::Vector2<float> const& size) {
    addPoint(origin);
    addPoint(origin + size);
  }
  std::optional<Extent> getResult() const { return m_isDrawable ? std::optional(m_extent) : std::nullopt; }

 private:
  Extent m_extent;
  bool m_isDrawable = true;
};

void measureSegment(qv::svg::PathSegment const& segment, Measure& measure) {
  if (segment.m_kind == qv::svg::PathSegment::Kind::Line) {
    measure.addPoint(segment.m_point);
    return;
  }
  measure.addPoint(segment.m_point - segment.m_radii);
  measure.addPoint(segment.m_point + segment.m_radii);
  measure.addNumber(segment.m_startAngle);
  measure.addNumber(segment.m_endAngle);
}

void measurePath(qv::svg::Path const& path, Measure& measure) {
  for (auto const& contour : path.m_contours) {
    measure.addPoint(contour.m_start);
    for (auto const& segment : contour.m_segments) measureSegment(segment, measure);
  }
}

void measureText(qv::svg::Text const& text, Measure& measure) {
  measure.addNumber(text.m_size);
  for (auto const& span : text.m_spans) {
    measure.addPoint({span.m_x, text.m_baseline});
    measure.addPoint({span.m_x + span.m_advance, text.m_baseline});
    for (auto const& glyph : span.m_glyphs) {
      measure.addNumber(glyph.m_x);
      measure.addNumber(glyph.m_y);
    }
  }
  if (!text.m_box.isValid()) return;
  measure.addPoint(text.m_box.getMinPoint());
  measure.addPoint(text.m_box.getMaxPoint());
}

}  // namespace

std::optional<Extent> measureOwnExtent(qv::svg::ItemInterface const& item) {
  Measure measure;
  measure.addNumber(item.m_width);
  if (auto const* rect = dynamic_cast<qv::svg::Rect const*>(&item)) {
    measure.addBox(rect->m_origin, rect->m_size);
  } else if (auto const* image = dynamic_cast<qv::svg::Image const*>(&item)) {
    measure.addBox(image->m_position, image->m_size);
  } else if (auto const* path = dynamic_cast<qv::svg::Path const*>(&item)) {
    measurePath(*path, measure);
  } else if (auto const* text = dynamic_cast<qv::svg::Text const*>(&item)) {
    measureText(*text, measure);
  }
  return measure.getResult();
}

}  // namespace qvToolkit
