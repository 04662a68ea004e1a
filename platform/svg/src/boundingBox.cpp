#include "qvSvg/boundingBox.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "affine.h"

namespace qv::svg {

namespace {

constexpr float INFINITE = std::numeric_limits<float>::infinity();
constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();

bool isFinite(Wm4::Vector2<float> const& point) noexcept {
  return std::isfinite(point.X()) && std::isfinite(point.Y());
}

}  // namespace

// The empty box is inside out, so that the first point becomes both corners; a spoilt one has NaN corners,
// which no comparison ever replaces.
BoundingBox::BoundingBox() noexcept : m_min(INFINITE, INFINITE), m_max(-INFINITE, -INFINITE) {
}

BoundingBox::BoundingBox(Wm4::Vector2<float> const& minPoint, Wm4::Vector2<float> const& maxPoint) noexcept
    : m_min(minPoint), m_max(maxPoint) {
}

bool BoundingBox::isValid() const noexcept {
  return isFinite(m_min) && isFinite(m_max) && m_min.X() <= m_max.X() && m_min.Y() <= m_max.Y();
}

Wm4::Vector2<float> BoundingBox::getCenterPoint() const noexcept {
  return (m_min + m_max) * 0.5F;
}

Wm4::Vector2<float> BoundingBox::getSize() const noexcept {
  return isValid() ? m_max - m_min : Wm4::Vector2<float>::ZERO;
}

float BoundingBox::getWidth() const noexcept {
  return getSize().X();
}

float BoundingBox::getHeight() const noexcept {
  return getSize().Y();
}

void BoundingBox::addMargin(Wm4::Vector2<float> margin) noexcept {
  m_min -= margin;
  m_max += margin;
}

void BoundingBox::translate(Wm4::Vector2<float> offset) noexcept {
  m_min += offset;
  m_max += offset;
}

void BoundingBox::addPoint(Wm4::Vector2<float> const& point) noexcept {
  if (!isFinite(point)) {
    m_min = m_max = {NOT_A_NUMBER, NOT_A_NUMBER};
    return;
  }
  m_min = {std::min(m_min.X(), point.X()), std::min(m_min.Y(), point.Y())};
  m_max = {std::max(m_max.X(), point.X()), std::max(m_max.Y(), point.Y())};
}

void BoundingBox::addBox(BoundingBox const& other) noexcept {
  if (!other.isValid()) return;
  addPoint(other.m_min);
  addPoint(other.m_max);
}

BoundingBox BoundingBox::transformed(Wm4::Matrix3<float> const& matrix) const noexcept {
  if (!isValid()) return *this;
  BoundingBox result;
  for (Wm4::Vector2<float> const& corner : std::array{m_min, Wm4::Vector2<float>(m_max.X(), m_min.Y()), m_max,
                                                      Wm4::Vector2<float>(m_min.X(), m_max.Y())}) {
    result.addPoint(mapPoint(matrix, corner));
  }
  return result;
}

}  // namespace qv::svg
