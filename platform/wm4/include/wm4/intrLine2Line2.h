#pragma once

#include <cmath>

#include "wm4/line2.h"
#include "wm4/math.h"
#include "wm4/vector2.h"

namespace Wm4 {

/// Kind of an intersection.
enum IntersectionType { IT_EMPTY, IT_POINT, IT_LINE };

/// Intersection of two lines in 2D. Keeps references to the lines: they must outlive the query.
template <class Real>
class IntrLine2Line2 {
 public:
  IntrLine2Line2(Line2<Real> const& line0, Line2<Real> const& line1) noexcept
      : m_line0(line0), m_line1(line1) {}

  /// Finds the intersection; true when there is one. A point exists exactly when
  /// |D0.x * D1.y - D0.y * D1.x| > ZERO_TOLERANCE, so never with a NaN. Otherwise the lines are coincident
  /// (true, type line) when the normalised difference of the origins has a perpendicular product with D1 of
  /// at most ZERO_TOLERANCE, else distinct (false).
  bool Find() noexcept {
    Vector2<Real> const difference = m_line1.Origin - m_line0.Origin;
    Real const perpendicular = m_line0.Direction.DotPerp(m_line1.Direction);
    if (std::abs(perpendicular) > Math<Real>::ZERO_TOLERANCE) {
      Real const parameter = difference.DotPerp(m_line1.Direction) / perpendicular;
      m_point = m_line0.Origin + parameter * m_line0.Direction;
      m_type = IT_POINT;
      return true;
    }
    bool const coincident =
        std::abs(normalized(difference).DotPerp(m_line1.Direction)) <= Math<Real>::ZERO_TOLERANCE;
    m_type = coincident ? IT_LINE : IT_EMPTY;
    return coincident;
  }

  IntersectionType GetIntersectionType() const noexcept { return m_type; }

  /// The point; defined after a `Find` with the type point.
  Vector2<Real> const& GetPoint() const noexcept { return m_point; }

 private:
  static Vector2<Real> normalized(Vector2<Real> const& v) noexcept {
    Real const length = v.Length();
    return length > Math<Real>::ZERO_TOLERANCE ? v * (Real(1) / length) : Vector2<Real>::ZERO;
  }

  Line2<Real> const& m_line0;
  Line2<Real> const& m_line1;
  Vector2<Real> m_point;
  IntersectionType m_type = IT_EMPTY;
};

}  // namespace Wm4
