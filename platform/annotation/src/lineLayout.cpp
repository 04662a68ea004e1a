#include "lineLayout.h"

#include <algorithm>
#include <utility>

#include "linePieces.h"

namespace qv::text {

namespace {

/// The item for the baseline and size: the last one where they are the same.
svg::Text& editItem(LineLayout& line, float baseline, float size) {
  bool const continues = !line.m_items.empty() && line.m_items.back()->m_baseline == baseline &&
                         line.m_items.back()->m_size == size;
  if (continues) return *line.m_items.back();
  svg::Text& item = *line.m_items.emplace_back(std::make_shared<svg::Text>());
  item.m_borderColor = "none";
  item.m_baseline = baseline;
  item.m_size = size;
  return item;
}

/// Appends the spans of an em of 1 in the item's size.
void addSpans(ShapedText const& text, float x, svg::Text& item) {
  for (svg::TextSpan const& shaped : text.m_spans) {
    svg::TextSpan& span = item.m_spans.emplace_back(shaped);
    span.m_x = x + span.m_x * item.m_size;
    span.m_advance *= item.m_size;
    for (svg::Glyph& glyph : span.m_glyphs) {
      glyph.m_x *= item.m_size;
      glyph.m_y *= item.m_size;
    }
  }
}

/// The ink and the advance box.
svg::BoundingBox getBox(LinePiece const& piece) {
  FontFace const& face = *piece.m_run->m_fonts->getPrimary()->m_face;
  float const size = piece.m_size;
  svg::BoundingBox box;
  box.addPoint({0.0F, face.getDescender() * size});
  box.addPoint({piece.m_width, face.getAscender() * size});
  if (InkBox const& ink = piece.m_text->m_ink; !ink.isEmpty()) {
    box.addPoint({ink.m_left * size, ink.m_bottom * size});
    box.addPoint({ink.m_right * size, ink.m_top * size});
  }
  return box;
}

void addText(LinePiece const& piece, float x, LineLayout& line) {
  svg::Text& item = editItem(line, piece.m_baseline, piece.m_size);
  addSpans(*piece.m_text, x, item);
  if (piece.m_isTab) item.m_spans.back().m_advance = piece.m_width;
  svg::BoundingBox box = getBox(piece);
  box.translate({x, piece.m_baseline});
  item.m_box.addBox(box);
  float const gap = piece.m_run->m_fonts->getPrimary()->m_face->getLineGap() * piece.m_size;
  line.m_lineGap = std::max(line.m_lineGap, gap);
}

}  // namespace

LineLayout layoutLine(std::vector<LineRun> const& runs, RunShaper& shaper) {
  LineLayout line;
  for (LinePiece const& piece : placePieces(runs, shaper)) {
    if (piece.m_text != nullptr) addText(piece, piece.m_x, line);
    for (LinePiece const& text : piece.m_above) addText(text, piece.m_x + text.m_x, line);
    for (LinePiece const& text : piece.m_below) addText(text, piece.m_x + text.m_x, line);
  }
  for (std::shared_ptr<svg::Text> const& item : line.m_items) line.m_box.addBox(item->m_box);
  return line;
}

}  // namespace qv::text
