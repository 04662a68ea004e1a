#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <optional>

#include "text/svgNumber.h"
#include "wm4/matrix3.h"

namespace qvToolkit {

struct PagePoint {
  double m_x = 0.0;
  double m_y = 0.0;
};

inline bool isDrawable(PagePoint const& point) {
  return isDrawable(point.m_x) && isDrawable(point.m_y);
}

/// An affine map of the plane: x' = a x + c y + e, y' = b x + d y + f, the order of SVG's matrix().
struct Affine {
  double m_a = 1.0, m_b = 0.0, m_c = 0.0, m_d = 1.0, m_e = 0.0, m_f = 0.0;

  static Affine fromMatrix(Wm4::Matrix3<float> const& m) {
    auto const get = [&m](std::size_t row, std::size_t column) {
      return static_cast<double>(m(row, column));
    };
    return {get(0, 0), get(1, 0), get(0, 1), get(1, 1), get(0, 2), get(1, 2)};
  }

  PagePoint apply(PagePoint const& p) const {
    return {m_a * p.m_x + m_c * p.m_y + m_e, m_b * p.m_x + m_d * p.m_y + m_f};
  }

  /// The map that applies `inner` first.
  Affine operator*(Affine const& inner) const {
    return {m_a * inner.m_a + m_c * inner.m_b,       m_b * inner.m_a + m_d * inner.m_b,
            m_a * inner.m_c + m_c * inner.m_d,       m_b * inner.m_c + m_d * inner.m_d,
            m_a * inner.m_e + m_c * inner.m_f + m_e, m_b * inner.m_e + m_d * inner.m_f + m_f};
  }

  bool isDrawable() const {
    return qvToolkit::isDrawable(PagePoint{m_a, m_b}) && qvToolkit::isDrawable(PagePoint{m_c, m_d}) &&
           qvToolkit::isDrawable(PagePoint{m_e, m_f});
  }
};

/// An axis-parallel box of page points; empty until one is added.
struct Extent {
  double m_minX = std::numeric_limits<double>::infinity();
  double m_minY = std::numeric_limits<double>::infinity();
  double m_maxX = -std::numeric_limits<double>::infinity();
  double m_maxY = -std::numeric_limits<double>::infinity();

  bool isEmpty() const { return !(m_minX <= m_maxX); }

  void add(PagePoint const& point) {
    m_minX = std::min(m_minX, point.m_x);
    m_minY = std::min(m_minY, point.m_y);
    m_maxX = std::max(m_maxX, point.m_x);
    m_maxY = std::max(m_maxY, point.m_y);
  }
  void add(Extent const& other) {
    if (other.isEmpty()) return;
    add(PagePoint{other.m_minX, other.m_minY});
    add(PagePoint{other.m_maxX, other.m_maxY});
  }

  /// The box of the four mapped corners; nothing when one of them, or of the corners themselves, is not
  /// drawable.
  std::optional<Extent> map(Affine const& map) const {
    Extent mapped;
    for (double const x : {m_minX, m_maxX}) {
      for (double const y : {m_minY, m_maxY}) {
        PagePoint const corner = map.apply({x, y});
        if (!isDrawable(PagePoint{x, y}) || !isDrawable(corner)) return std::nullopt;
        mapped.add(corner);
      }
    }
    return mapped;
  }
};

}  // namespace qvToolkit
