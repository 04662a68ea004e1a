#include "runShaper.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <new>
#include <string>
#include <utility>

#include "memoryWatch.h"
#include "utf8.h"

namespace qv::text {

namespace {

void appendAll(std::string& utf8, std::u32string_view text) {
  for (char32_t const character : text) appendUtf8(utf8, character);
}

svg::TextSpan makeSpan(TextPiece const& piece, FontChain const& chain, bool isRightToLeft) {
  FontLink const& font = *piece.m_font;
  svg::TextSpan span;
  span.m_askedFamily = chain.getAskedFamily();
  span.m_family = font.m_family;
  span.m_match = piece.m_isMissing ? svg::FontMatch::Missing : font.m_match;
  span.m_bold = chain.getStyle().m_bold;
  span.m_italic = chain.getStyle().m_italic;
  span.m_rightToLeft = isRightToLeft;
  span.m_synthesis = font.m_synthesis;
  span.m_glyphSource = font.m_outlines;
  return span;
}

/// True when the second piece's characters belong into the first one's span.
bool isSameSpan(TextPiece const& first, TextPiece const& second) {
  return first.m_isMissing == second.m_isMissing && first.m_font == second.m_font;
}

/// The pieces that belong into the span of the first one.
std::size_t countPiecesOfSpan(std::span<TextPiece const> pieces) {
  std::size_t count = 1;
  while (count < pieces.size() && isSameSpan(pieces[0], pieces[count])) ++count;
  return count;
}

/// Calls `visit` for each piece from left to right.
template <class Visit>
void visitInVisualOrder(std::span<TextPiece const> pieces, bool isRightToLeft, Visit visit) {
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    visit(pieces[isRightToLeft ? pieces.size() - 1 - i : i]);
  }
}

/// Optional ligatures: those that a script requires stay.
constexpr hb_feature_t NO_LIGATURES[] = {
    {HB_TAG('l', 'i', 'g', 'a'), 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END},
    {HB_TAG('c', 'l', 'i', 'g'), 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END},
    {HB_TAG('d', 'l', 'i', 'g'), 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END}};

hb_position_t getWidth(hb_buffer_t* buffer) {
  unsigned count = 0;
  hb_glyph_position_t const* const positions = hb_buffer_get_glyph_positions(buffer, &count);
  hb_position_t width = 0;
  for (unsigned i = 0; i < count; ++i) width += positions[i].x_advance;
  return width;
}

/// Where the buffer's clusters begin, in order.
std::vector<unsigned> listClusters(hb_buffer_t* buffer) {
  unsigned count = 0;
  hb_glyph_info_t const* const glyphs = hb_buffer_get_glyph_infos(buffer, &count);
  std::vector<unsigned> clusters;
  for (unsigned i = 0; i < count; ++i) clusters.push_back(glyphs[i].cluster);
  std::ranges::sort(clusters);
  clusters.erase(std::unique(clusters.begin(), clusters.end()), clusters.end());
  return clusters;
}

/// Finds where a span must end, glyph by glyph: within a ligature that was not used, and behind a cluster
/// with several advances, of which some renderers forget all but one.
class ClusterBreaks {
 public:
  explicit ClusterBreaks(std::vector<unsigned> parted) : m_parted(std::move(parted)) {}

  /// To be called for each glyph in turn.
  bool standBefore(unsigned cluster, hb_position_t advance) {
    bool const isNext = m_advances >= 0 && cluster != m_cluster;
    bool const breaks = isNext && (m_advances > 1 || std::ranges::binary_search(m_parted, cluster));
    if (isNext || m_advances < 0) m_advances = 0;
    if (advance != 0) ++m_advances;
    m_cluster = cluster;
    return breaks;
  }

 private:
  std::vector<unsigned> m_parted;
  unsigned m_cluster = 0;
  int m_advances = -1;  // of the current cluster; below 0 before the first glyph
};

}  // namespace

RunShaper::RunShaper(FontCatalog& catalog) : m_catalog(catalog), m_buffer(hb_buffer_create()) {
  // The buffer that stands for one that there was no memory for needs no release.
  if (hb_buffer_allocation_successful(m_buffer) == 0) throw std::bad_alloc();
}

RunShaper::~RunShaper() {
  hb_buffer_destroy(m_buffer);
}

std::shared_ptr<ShapedText const> RunShaper::shape(std::u32string_view text, FontChain& chain,
                                                   bool isRightToLeft) {
  RunKey const key{&chain, isRightToLeft, text};
  std::shared_ptr<ShapedText const> shaped = m_catalog.editRuns().find(key);
  if (shaped != nullptr) return shaped;
  shaped = std::make_shared<ShapedText const>(shapeAnew(text, chain, isRightToLeft));
  m_catalog.editRuns().store(key, shaped);
  return shaped;
}

ShapedText RunShaper::shapeAnew(std::u32string_view text, FontChain& chain, bool isRightToLeft) {
  std::vector<TextPiece> const pieces = splitIntoPieces(text, chain, isRightToLeft);
  std::vector<std::span<TextPiece const>> spans;
  for (std::span<TextPiece const> rest = pieces; !rest.empty(); rest = rest.subspan(spans.back().size())) {
    spans.push_back(rest.first(countPiecesOfSpan(rest)));
  }
  if (isRightToLeft) std::ranges::reverse(spans);
  ShapedText shaped;
  shaped.m_spans.reserve(spans.size());
  for (std::span<TextPiece const> const span : spans) addSpan(span, chain, isRightToLeft, shaped);
  return shaped;
}

void RunShaper::addSpan(std::span<TextPiece const> pieces, FontChain const& chain, bool isRightToLeft,
                        ShapedText& text) {
  svg::TextSpan& span = text.m_spans.emplace_back(makeSpan(pieces.front(), chain, isRightToLeft));
  for (TextPiece const& piece : pieces) {
    appendAll(span.m_text, piece.m_text);
    appendAll(span.m_original, piece.m_original);
    span.m_unshowable.insert(span.m_unshowable.end(), piece.m_unshowable.begin(), piece.m_unshowable.end());
  }
  InkBox ink;
  std::vector<SpanBreak> breaks;
  std::size_t first = 0;
  visitInVisualOrder(pieces, isRightToLeft, [&](TextPiece const& piece) {
    addPiece(piece, isRightToLeft, first, span, ink, breaks);
    first += piece.m_text.size();
  });
  span.m_x = text.m_advance;
  text.m_advance += span.m_advance;
  text.m_ink.add(ink, span.m_x, 0.0F);
  cutLastSpan(breaks, text.m_spans);
}

void RunShaper::shapePiece(TextPiece const& piece, bool isRightToLeft,
                           std::span<hb_feature_t const> features) {
  FontFace const& face = *piece.m_font->m_face;
  MemoryWatch const watch;
  hb_buffer_clear_contents(m_buffer);
  auto const length = static_cast<int>(piece.m_text.size());
  hb_buffer_add_codepoints(m_buffer, reinterpret_cast<hb_codepoint_t const*>(piece.m_text.data()), length, 0,
                           length);
  hb_buffer_set_script(m_buffer, piece.m_script);
  hb_buffer_set_direction(m_buffer, isRightToLeft ? HB_DIRECTION_RTL : HB_DIRECTION_LTR);
  hb_bool_t const isShaped = hb_shape_full(face.getFont(), m_buffer, features.data(),
                                           static_cast<unsigned>(features.size()), nullptr);
  face.checkMemory(watch);
  // Without memory for its plan the text stays unshaped; a buffer without memory would hold a part of it.
  if (isShaped == 0 || hb_buffer_allocation_successful(m_buffer) == 0) throw std::bad_alloc();
}

std::vector<unsigned> RunShaper::fillBuffer(TextPiece const& piece, bool isRightToLeft) {
  shapePiece(piece, isRightToLeft, {});
  bool const mayBeJoined = !isRightToLeft && hb_buffer_get_length(m_buffer) < piece.m_text.size();
  if (!mayBeJoined) return {};
  hb_position_t const width = getWidth(m_buffer);
  std::vector<unsigned> const joined = listClusters(m_buffer);
  shapePiece(piece, isRightToLeft, NO_LIGATURES);
  if (getWidth(m_buffer) == width) {
    shapePiece(piece, isRightToLeft, {});
    return {};
  }
  std::vector<unsigned> const single = listClusters(m_buffer);
  std::vector<unsigned> parted;
  std::ranges::set_difference(single, joined, std::back_inserter(parted));
  return parted;
}

void RunShaper::addPiece(TextPiece const& piece, bool isRightToLeft, std::size_t first, svg::TextSpan& span,
                         InkBox& ink, std::vector<SpanBreak>& breaks) {
  FontFace const& face = *piece.m_font->m_face;
  ClusterBreaks clusterBreaks(fillBuffer(piece, isRightToLeft));
  unsigned count = 0;
  hb_glyph_info_t const* const glyphs = hb_buffer_get_glyph_infos(m_buffer, &count);
  hb_glyph_position_t const* const positions = hb_buffer_get_glyph_positions(m_buffer, &count);
  float const unit = face.getUnit();
  span.m_glyphs.reserve(span.m_glyphs.size() + count);
  hb_position_t pen = 0;
  for (unsigned i = 0; i < count; ++i) {
    InkBox const& glyphInk = m_ink.get(*piece.m_font, glyphs[i].codepoint);
    float const x = span.m_advance + static_cast<float>(pen + positions[i].x_offset) * unit;
    float const y = static_cast<float>(positions[i].y_offset) * unit;
    bool const breaksHere = clusterBreaks.standBefore(glyphs[i].cluster, positions[i].x_advance);
    if (breaksHere && !isRightToLeft) {
      breaks.push_back(
          {first + glyphs[i].cluster, span.m_glyphs.size(), span.m_advance + static_cast<float>(pen) * unit});
    }
    pen += positions[i].x_advance;
    if (glyphInk.isEmpty()) continue;
    span.m_glyphs.push_back({glyphs[i].codepoint, x, y});
    ink.add(glyphInk, x, y);
  }
  span.m_advance += static_cast<float>(pen) * unit;
}

}  // namespace qv::text
