#include "runShaper.h"

#include <cmath>
#include <string>
#include <utility>

#include "utf8.h"

namespace qv::text {

namespace {

constexpr float BLANKS_PER_TAB = 8.0F;

std::string encode(std::u32string_view text) {
  std::string utf8;
  for (char32_t const character : text) appendUtf8(utf8, character);
  return utf8;
}

/// The distance from `x` to the next tab stop.
float getTabAdvance(float x, float tabWidth) {
  if (!(tabWidth > 0.0F)) return 0.0F;
  float const advance = (std::floor(x / tabWidth) + 1.0F) * tabWidth - x;
  return advance > 0.0F ? advance : tabWidth;
}

svg::TextSpan makeSpan(TextPiece const& piece, FontChain const& chain, float x) {
  svg::TextSpan span;
  span.m_text = encode(piece.m_text);
  span.m_askedFamily = chain.getAskedFamily();
  span.m_family = piece.m_font->m_family;
  span.m_x = x;
  span.m_match = piece.m_kind == TextPiece::Kind::Missing ? svg::FontMatch::Missing : piece.m_font->m_match;
  span.m_bold = chain.getStyle().m_bold;
  span.m_italic = chain.getStyle().m_italic;
  span.m_original = encode(piece.m_original);
  return span;
}

/// True when the second piece's characters belong into the first one's span.
bool isSameSpan(TextPiece const& first, TextPiece const& second) {
  return first.m_kind != TextPiece::Kind::Tab && first.m_kind == second.m_kind &&
         first.m_font == second.m_font && first.isRightToLeft() == second.isRightToLeft();
}

void addSpan(svg::TextSpan&& span, bool joins, std::vector<svg::TextSpan>& spans) {
  if (!joins) {
    spans.push_back(std::move(span));
    return;
  }
  spans.back().m_text += span.m_text;
  spans.back().m_original += span.m_original;
  spans.back().m_advance += span.m_advance;
}

}  // namespace

RunShaper::RunShaper() : m_buffer(hb_buffer_create()) {
}

RunShaper::~RunShaper() {
  hb_buffer_destroy(m_buffer);
}

ShapedRun RunShaper::shape(std::u32string_view text, FontChain& chain, float size, float lineX) {
  ShapedRun run;
  TextPiece const* previous = nullptr;
  std::vector<TextPiece> const pieces = splitIntoPieces(text, chain);
  for (TextPiece const& piece : pieces) {
    svg::TextSpan span = makeSpan(piece, chain, run.m_advance);
    if (piece.m_kind == TextPiece::Kind::Tab) {
      float const tabWidth = BLANKS_PER_TAB * piece.m_font->m_face->getBlankAdvance() * size;
      span.m_advance = getTabAdvance(lineX + run.m_advance, tabWidth);
    } else {
      span.m_advance = shapePiece(piece, size, run.m_advance, run.m_box);
    }
    run.m_advance += span.m_advance;
    addSpan(std::move(span), previous != nullptr && isSameSpan(*previous, piece), run.m_spans);
    previous = &piece;
  }
  FontFace const& face = *chain.getPrimary()->m_face;
  run.m_box.addPoint({0.0F, face.getDescender() * size});
  run.m_box.addPoint({run.m_advance, face.getAscender() * size});
  run.m_lineGap = face.getLineGap() * size;
  return run;
}

float RunShaper::shapePiece(TextPiece const& piece, float size, float x, svg::BoundingBox& box) {
  hb_buffer_clear_contents(m_buffer);
  auto const length = static_cast<int>(piece.m_text.size());
  hb_buffer_add_codepoints(m_buffer, reinterpret_cast<hb_codepoint_t const*>(piece.m_text.data()), length, 0,
                           length);
  hb_buffer_set_script(m_buffer, piece.m_script);
  hb_buffer_set_direction(m_buffer, piece.isRightToLeft() ? HB_DIRECTION_RTL : HB_DIRECTION_LTR);
  hb_shape(piece.m_font->m_face->getFont(), m_buffer, nullptr, 0);
  return addGlyphs(*piece.m_font->m_face, size, x, box);
}

float RunShaper::addGlyphs(FontFace const& face, float size, float x, svg::BoundingBox& box) const {
  unsigned count = 0;
  hb_glyph_info_t const* const glyphs = hb_buffer_get_glyph_infos(m_buffer, &count);
  hb_glyph_position_t const* const positions = hb_buffer_get_glyph_positions(m_buffer, &count);
  float const scale = face.getUnit() * size;
  hb_position_t pen = 0;
  for (unsigned i = 0; i < count; ++i) {
    hb_glyph_extents_t ink{};
    bool const isKnown = hb_font_get_glyph_extents(face.getFont(), glyphs[i].codepoint, &ink) != 0;
    if (isKnown && (ink.width != 0 || ink.height != 0)) {
      auto const left = static_cast<float>(pen + positions[i].x_offset + ink.x_bearing);
      auto const top = static_cast<float>(positions[i].y_offset + ink.y_bearing);
      box.addPoint({x + left * scale, top * scale});
      box.addPoint({x + (left + static_cast<float>(ink.width)) * scale,
                    (top + static_cast<float>(ink.height)) * scale});
    }
    pen += positions[i].x_advance;
  }
  return static_cast<float>(pen) * scale;
}

}  // namespace qv::text
