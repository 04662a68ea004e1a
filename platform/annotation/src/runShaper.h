#pragma once

#include <hb.h>

#include <string_view>
#include <vector>

#include "fontChain.h"
#include "qvSvg/boundingBox.h"
#include "qvSvg/text.h"
#include "textPieces.h"

namespace qv::text {

/// A laid-out run; its baseline is y = 0 and it begins at x = 0.
struct ShapedRun {
  std::vector<svg::TextSpan> m_spans;
  svg::BoundingBox m_box;  ///< ink and advance box
  float m_advance = 0.0F;
  float m_lineGap = 0.0F;  ///< what the font wants between two lines
};

/// Turns characters into positioned spans. Keeps its buffer between runs: not for two threads at once.
class RunShaper {
 public:
  RunShaper();
  ~RunShaper();
  RunShaper(RunShaper const&) = delete;
  RunShaper& operator=(RunShaper const&) = delete;

  /// Lays the text out with an em of `size`. `lineX` is where the run begins on its line, for the tab stops.
  /// The chain must have a primary font.
  ShapedRun shape(std::u32string_view text, FontChain& chain, float size, float lineX);

 private:
  /// Both add the glyphs' ink from `x` on to the box and return the advance.
  float shapePiece(TextPiece const& piece, float size, float x, svg::BoundingBox& box);
  float addGlyphs(FontFace const& face, float size, float x, svg::BoundingBox& box) const;

  hb_buffer_t* m_buffer;
};

}  // namespace qv::text
