#include "pages/pathData.h"

#include <cmath>
#include <initializer_list>
#include <numbers>

namespace qvToolkit {

namespace {

/// A full turn in single precision may fall short by a rounding error.
constexpr double FullTurn = 2.0 * std::numbers::pi - 1e-5;

float getX(qv::svg::PathSegment const& ellipse, double angle) {
  return static_cast<float>(static_cast<double>(ellipse.m_point.X()) +
                            static_cast<double>(ellipse.m_radii.X()) * std::cos(angle));
}

float getY(qv::svg::PathSegment const& ellipse, double angle) {
  return static_cast<float>(static_cast<double>(ellipse.m_point.Y()) +
                            static_cast<double>(ellipse.m_radii.Y()) * std::sin(angle));
}

void appendNumbers(std::string& text, std::initializer_list<double> numbers) {
  for (double const number : numbers) {
    if (!text.ends_with('(')) text += ' ';
    appendNumber(text, static_cast<float>(number));
  }
}

}  // namespace

void PathData::addContour(qv::svg::PathContour const& contour) {
  moveTo(contour.m_start.X(), contour.m_start.Y());
  for (auto const& segment : contour.m_segments) {
    if (segment.m_kind == qv::svg::PathSegment::Kind::Line) {
      lineTo(segment.m_point.X(), segment.m_point.Y());
    } else {
      addEllipse(segment);
    }
  }
  if (contour.m_closed) m_text += 'Z';
}

void PathData::addPoint(char command, float x, float y) {
  m_text += command;
  appendNumber(m_text, x * m_factor);
  m_text += ' ';
  appendNumber(m_text, y * m_factor);
}

/// A whole ellipse needs two arcs: one whose ends meet would draw nothing.
void PathData::addEllipse(qv::svg::PathSegment const& ellipse) {
  auto const from = static_cast<double>(ellipse.m_startAngle);
  auto to = static_cast<double>(ellipse.m_endAngle);
  bool const isWhole = std::abs(to - from) >= FullTurn;
  if (isWhole) to = from + std::copysign(2.0 * std::numbers::pi, to - from);
  lineTo(getX(ellipse, from), getY(ellipse, from));
  double const middle = from + (to - from) / 2.0;
  addArc(ellipse, from, middle);
  addArc(ellipse, middle, to);
}

/// At most half a turn.
void PathData::addArc(qv::svg::PathSegment const& ellipse, double from, double to) {
  m_text += 'A';
  appendNumber(m_text, std::abs(ellipse.m_radii.X()) * m_factor);
  m_text += ' ';
  appendNumber(m_text, std::abs(ellipse.m_radii.Y()) * m_factor);
  m_text += to < from ? " 0 0 0 " : " 0 0 1 ";
  appendNumber(m_text, getX(ellipse, to) * m_factor);
  m_text += ' ';
  appendNumber(m_text, getY(ellipse, to) * m_factor);
}

std::string formatTransform(Affine const& map) {
  bool const isTranslation = map.m_a == 1.0 && map.m_b == 0.0 && map.m_c == 0.0 && map.m_d == 1.0;
  if (isTranslation && map.m_e == 0.0 && map.m_f == 0.0) return {};
  std::string text = isTranslation ? "translate(" : "matrix(";
  if (!isTranslation) appendNumbers(text, {map.m_a, map.m_b, map.m_c, map.m_d});
  appendNumbers(text, {map.m_e, map.m_f});
  return text + ')';
}

}  // namespace qvToolkit
