#pragma once

#include <cstddef>
#include <vector>

#include "qvSvg/text.h"

namespace qv::text {

/// Where a span must end so that every renderer draws it alike.
struct SpanBreak {
  std::size_t m_character;  ///< of the span, which begins the next one
  std::size_t m_glyph;      ///< of the span, likewise
  float m_x;                ///< where the next one begins
};

/// Cuts the last span at the breaks, which stand in order. A span whose characters stand for others stays
/// whole.
void cutLastSpan(std::vector<SpanBreak> const& breaks, std::vector<svg::TextSpan>& spans);

}  // namespace qv::text
