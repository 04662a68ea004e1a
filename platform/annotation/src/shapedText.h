#pragma once

#include <cstddef>
#include <vector>

#include "inkBox.h"
#include "qvSvg/text.h"

namespace qv::text {

/// Characters of one direction, laid out for an em of 1: the baseline is y = 0 and they begin at x = 0.
struct ShapedText {
  std::vector<svg::TextSpan> m_spans;  ///< from left to right
  InkBox m_ink;
  float m_advance = 0.0F;
};

/// The memory that the text holds, roughly.
inline std::size_t countBytes(ShapedText const& text) {
  std::size_t bytes = sizeof(ShapedText) + text.m_spans.size() * sizeof(svg::TextSpan);
  for (svg::TextSpan const& span : text.m_spans) {
    bytes += span.m_glyphs.size() * sizeof(svg::Glyph) + span.m_text.size() + span.m_original.size();
    bytes += span.m_unshowable.size() * sizeof(std::string);
  }
  return bytes;
}

}  // namespace qv::text
