#pragma once

#include "qvSystem/export.h"
#include "wm4/matrix3.h"
#include "wm4/vector2.h"

namespace qv::svg {

/// Axis-parallel 2D box. A new box is invalid (empty) until a point is added; a box with a corner that is not
/// finite counts as invalid, too.
class QV_EXPORT BoundingBox {
 public:
  BoundingBox() noexcept;
  BoundingBox(Wm4::Vector2<float> const& minPoint, Wm4::Vector2<float> const& maxPoint) noexcept;

  /// True when both corners are finite and the minimum does not exceed the maximum on either axis.
  bool isValid() const noexcept;

  Wm4::Vector2<float> const& getMinPoint() const noexcept { return m_min; }
  Wm4::Vector2<float> const& getMaxPoint() const noexcept { return m_max; }
  Wm4::Vector2<float> getCenterPoint() const noexcept;
  Wm4::Vector2<float> getSize() const noexcept;
  float getWidth() const noexcept;
  float getHeight() const noexcept;

  /// Grows the box by the margin on both sides of each axis.
  void addMargin(Wm4::Vector2<float> margin) noexcept;
  void translate(Wm4::Vector2<float> offset) noexcept;
  /// Extends the box to hold the point, or the other box; a point with NaN makes the box invalid for good, an
  /// invalid other box changes nothing.
  void addPoint(Wm4::Vector2<float> const& point) noexcept;
  void addBox(BoundingBox const& other) noexcept;

  /// The box of the four corners mapped by the affine matrix; an invalid box stays as it is.
  BoundingBox transformed(Wm4::Matrix3<float> const& matrix) const noexcept;

 private:
  Wm4::Vector2<float> m_min;
  Wm4::Vector2<float> m_max;
};

}  // namespace qv::svg
