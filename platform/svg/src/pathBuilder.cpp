#include "qvSvg/pathBuilder.h"

#include <utility>

namespace qv::svg {

PathBuilder::PathBuilder() = default;
PathBuilder::~PathBuilder() = default;

void PathBuilder::startContour(bool open) {
  endContour();
  m_inContour = true;
  m_current.m_closed = !open;
}

void PathBuilder::appendSegmentListMove(std::vector<Wm4::Vector2<float>> points) {
  if (!m_inContour) startContour(true);
  for (Wm4::Vector2<float> const& point : points) {
    if (m_hasStart) {
      m_current.m_segments.push_back({.m_kind = PathSegment::Kind::Line, .m_point = point, .m_radii = {}});
    } else {
      m_current.m_start = point;
      m_hasStart = true;
    }
  }
}

void PathBuilder::appendEllipse(Wm4::Vector2<float> const& center, Wm4::Vector2<float> const& radii,
                                float startAngle, float endAngle) {
  if (!m_inContour) startContour(true);
  PathSegment const arc{PathSegment::Kind::Ellipse, center, radii, startAngle, endAngle};
  if (!m_hasStart) m_current.m_start = getEllipsePoint(arc, startAngle);
  m_hasStart = true;
  m_current.m_segments.push_back(arc);
}

void PathBuilder::endContour() {
  if (!m_current.m_segments.empty()) m_contours.push_back(std::move(m_current));
  m_current = {};
  m_inContour = false;
  m_hasStart = false;
}

void PathBuilder::appendLine(Wm4::Vector2<float> const& from, Wm4::Vector2<float> const& to) {
  PathContour line;
  line.m_start = from;
  line.m_segments.push_back({.m_kind = PathSegment::Kind::Line, .m_point = to, .m_radii = {}});
  m_contours.push_back(std::move(line));
}

std::shared_ptr<Path> PathBuilder::createPathItem(bool handOver) {
  endContour();
  if (m_contours.empty()) return nullptr;
  auto path = std::make_shared<Path>();
  if (handOver) {
    path->m_contours = std::exchange(m_contours, {});
  } else {
    path->m_contours = m_contours;
  }
  return path;
}

}  // namespace qv::svg
