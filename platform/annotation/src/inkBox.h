#pragma once

#include <algorithm>
#include <limits>

namespace qv::text {

/// Where glyphs leave ink; empty until something is added.
struct InkBox {
  bool isEmpty() const noexcept { return !(m_left <= m_right); }

  void add(InkBox const& other, float x, float y) noexcept {
    m_left = std::min(m_left, other.m_left + x);
    m_right = std::max(m_right, other.m_right + x);
    m_bottom = std::min(m_bottom, other.m_bottom + y);
    m_top = std::max(m_top, other.m_top + y);
  }

  float m_left = std::numeric_limits<float>::infinity();
  float m_bottom = std::numeric_limits<float>::infinity();
  float m_right = -std::numeric_limits<float>::infinity();
  float m_top = -std::numeric_limits<float>::infinity();
};

}  // namespace qv::text
