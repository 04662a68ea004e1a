#pragma once

#include <memory>
#include <vector>

#include "qvSvg/path.h"
#include "qvSystem/export.h"

namespace qv::svg {

/// Collects contours and makes a path item of them.
class QV_EXPORT PathBuilder {
 public:
  PathBuilder();
  ~PathBuilder();

  /// Begins a contour, after ending the one before; with `open` false, `endContour` closes it by a line back
  /// to its first point. What is appended outside a contour begins an open one.
  void startContour(bool open);
  /// Appends the polyline through the points to the contour; the first point of the contour is its start.
  void appendSegmentListMove(std::vector<Wm4::Vector2<float>> points);
  /// Appends an arc of the ellipse, from the start to the end angle (radians).
  void appendEllipse(Wm4::Vector2<float> const& center, Wm4::Vector2<float> const& radii, float startAngle,
                     float endAngle);
  /// Ends the contour; one without any segment is dropped.
  void endContour();

  /// Appends one line as an open contour of its own, also while another contour is being built.
  void appendLine(Wm4::Vector2<float> const& from, Wm4::Vector2<float> const& to);

  /// Ends the contour that is being built and makes a new path item with the collected contours, or null when
  /// there are none. With `handOver` the builder gives its contours away and is empty afterwards.
  std::shared_ptr<Path> createPathItem(bool handOver);

 private:
  std::vector<PathContour> m_contours;
  PathContour m_current;
  bool m_inContour = false;
  bool m_hasStart = false;
};

}  // namespace qv::svg
