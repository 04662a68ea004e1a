#pragma once

#include <string>
#include <vector>

#include "pages/affine.h"
#include "qvSvg/path.h"

namespace qvToolkit {

/// SVG path data, built command by command; all coordinates are multiplied by `factor`.
class PathData {
 public:
  explicit PathData(float factor) : m_factor(factor) {}

  void moveTo(float x, float y) { addPoint('M', x, y); }
  void lineTo(float x, float y) { addPoint('L', x, y); }
  void addContour(qv::svg::PathContour const& contour);
  std::string const& getText() const noexcept { return m_text; }

 private:
  void addPoint(char command, float x, float y);
  void addEllipse(qv::svg::PathSegment const& ellipse);
  void addArc(qv::svg::PathSegment const& ellipse, double from, double to);

  float m_factor;
  std::string m_text;
};

/// The value of a transform attribute: matrix(), or translate() where that is enough; empty for the identity.
std::string formatTransform(Affine const& map);

}  // namespace qvToolkit
