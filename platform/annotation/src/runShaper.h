#pragma once

#include <hb.h>

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "fontCatalog.h"
#include "fontChain.h"
#include "glyphInk.h"
#include "shapedText.h"
#include "spanBreaks.h"
#include "textPieces.h"

namespace qv::text {

/// Turns characters into positioned spans. Keeps its buffer between texts: not for two threads at once; the
/// texts that it shaped are kept in the catalogue.
class RunShaper {
 public:
  explicit RunShaper(FontCatalog& catalog);
  ~RunShaper();
  RunShaper(RunShaper const&) = delete;
  RunShaper& operator=(RunShaper const&) = delete;

  /// Lays out text of one direction, without tabs. The chain belongs to the catalogue and must have a primary
  /// font.
  std::shared_ptr<ShapedText const> shape(std::u32string_view text, FontChain& chain, bool isRightToLeft);

 private:
  ShapedText shapeAnew(std::u32string_view text, FontChain& chain, bool isRightToLeft);
  /// Appends the span of pieces that one font draws.
  void addSpan(std::span<TextPiece const> pieces, FontChain const& chain, bool isRightToLeft,
               ShapedText& text);
  /// Appends the piece's glyphs to the span, their ink to the box, and where the span must end. The piece
  /// begins with the span's character number `first`.
  void addPiece(TextPiece const& piece, bool isRightToLeft, std::size_t first, svg::TextSpan& span,
                InkBox& ink, std::vector<SpanBreak>& breaks);
  /// Fills the buffer with the piece's glyphs. Without ligatures where they change the width, since not every
  /// renderer knows them; the numbers of the characters that then stand alone, but would be joined to the one
  /// before, are returned.
  std::vector<unsigned> fillBuffer(TextPiece const& piece, bool isRightToLeft);
  void shapePiece(TextPiece const& piece, bool isRightToLeft, std::span<hb_feature_t const> features);

  FontCatalog& m_catalog;
  hb_buffer_t* m_buffer;
  GlyphInk m_ink;
};

}  // namespace qv::text
