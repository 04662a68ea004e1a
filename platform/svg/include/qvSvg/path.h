#pragma once

#include <cstdint>
#include <vector>

#include "qvSvg/itemInterface.h"
#include "wm4/vector2.h"

namespace qv::svg {

/// One piece of a contour.
struct PathSegment {
  enum class Kind : std::uint8_t { Line, Ellipse };
  Kind m_kind = Kind::Line;
  Wm4::Vector2<float> m_point;  ///< Line: its end point. Ellipse: the centre.
  Wm4::Vector2<float> m_radii;  ///< Ellipse only
  float m_startAngle = 0.0F;    ///< Ellipse only, in radians, from the x axis towards the y axis
  float m_endAngle = 0.0F;      ///< Ellipse only; a full turn or more draws the whole ellipse
};

/// A connected run of pieces.
struct PathContour {
  Wm4::Vector2<float> m_start;  ///< for a contour that begins with an ellipse: its first point
  std::vector<PathSegment> m_segments;
  bool m_closed = false;  ///< a line leads back to the start
};

/// Straight lines and elliptic arcs, stroked and filled as one item.
class QV_EXPORT Path : public ItemInterface {
 public:
  Path();
  ~Path() override;
  ItemKind getKind() const noexcept override;

  std::vector<PathContour> m_contours;
};

/// The point of the ellipse at `angle` (radians).
QV_EXPORT Wm4::Vector2<float> getEllipsePoint(PathSegment const& ellipse, float angle);

}  // namespace qv::svg
