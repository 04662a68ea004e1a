#pragma once

/// What the library needs of the platform's CAD annotation model beyond its operations: where the headers are
/// and how a view and an annotation store what is migrated into them.

#include <qvAnnotation/qvCadAnnotation.h>
#include <qvAnnotation/qvCadAnnotationView.h>

#include <cstdint>
#include <memory>
#include <utility>

#include "ports/geometry.h"
#include "ports/svg.h"

namespace qvLegacy::ports {

inline void setPlane(qv::qvCadAnnotationView& view, Wm4::Vector3<float> const& origin,
                     Wm4::Vector3<float> const& normal, Wm4::Vector3<float> const& xAxis) {
  view.m_planeOrigin = origin;
  view.m_planeNormal = normal;
  view.m_planeXAxis = xAxis;
}
inline void appendAnnotation(qv::qvCadAnnotationView& view, qv::qvPointer<qv::qvCadAnnotation> const& cad) {
  view.m_annotations.push_back(cad);
}

inline void setColor(qv::qvCadAnnotation& cad, Wm4::Vector3<unsigned char> const& color) {
  cad.m_color = color;
}
inline Wm4::Vector3<float> const& getPosition(qv::qvCadAnnotation const& cad) {
  return cad.m_position;
}
inline void setPosition(qv::qvCadAnnotation& cad, Wm4::Vector3<float> const& point) {
  cad.m_position = point;
}
inline float getRotationAngle(qv::qvCadAnnotation const& cad) {
  return cad.m_rotationAngle;
}
inline float getScale(qv::qvCadAnnotation const& cad) {
  return cad.m_scale;
}
inline std::uint8_t getFlags(qv::qvCadAnnotation const& cad) {
  return cad.m_flags;
}
inline void setFlags(qv::qvCadAnnotation& cad, std::uint8_t flags) {
  cad.m_flags = flags;
}

/// The root of the SVG content; null in a new annotation.
inline std::shared_ptr<qv::svg::Node>& editSvgRoot(qv::qvCadAnnotation& cad) {
  return cad.m_svgRoot;
}

inline void appendLineSegment(qv::qvCadAnnotation& cad, Wm4::Vector3<float> const& from,
                              Wm4::Vector3<float> const& to) {
  cad.m_lineSegments.emplace_back(from, to);
}
inline void appendShape(qv::qvCadAnnotation& cad, std::shared_ptr<qv::svg::Node> node,
                        Wm4::Vector3<float> const& point) {
  cad.m_shapes.emplace_back(std::move(node), point);
}
inline void appendLeaderAnchor(qv::qvCadAnnotation& cad, Wm4::Vector3<float> const& origin,
                               Wm4::Vector2<float> const& offset) {
  cad.m_leaderAnchors.emplace_back(origin, offset);
}
inline bool hasLeaderDrawing(qv::qvCadAnnotation const& cad) {
  return !cad.m_lineSegments.empty() || !cad.m_shapes.empty();
}

}  // namespace qvLegacy::ports
