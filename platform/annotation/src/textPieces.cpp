#include "textPieces.h"

#include <cstddef>
#include <utility>

#include "textClusters.h"

namespace qv::text {

namespace {

/// Collects pieces, continuing the last one where it fits.
class PieceList {
 public:
  explicit PieceList(FontChain& chain) : m_chain(chain) {}

  void addTab() {
    m_pieces.push_back(
        {.m_kind = TextPiece::Kind::Tab, .m_font = m_chain.getPrimary(), .m_text = U" ", .m_original = {}});
  }

  void addCluster(std::u32string_view cluster) {
    FontLink const* const font = chooseFont(cluster);
    if (font != nullptr) {
      edit(TextPiece::Kind::Drawn, *font, getScript(cluster.front())).m_text += cluster;
    } else if (cluster.size() > 1) {
      for (char32_t const& character : cluster) addCluster({&character, 1});
    } else {
      TextPiece& piece = edit(TextPiece::Kind::Missing, m_chain.getReplacementFont(), HB_SCRIPT_COMMON);
      piece.m_text += m_chain.getReplacementCharacter();
      piece.m_original += cluster;
    }
  }

  std::vector<TextPiece> take() { return std::move(m_pieces); }

 private:
  /// A blank inside right-to-left text keeps its neighbour's font, so that the words are shaped in one go.
  FontLink const* chooseFont(std::u32string_view cluster) {
    if (cluster == U" " && !m_pieces.empty() && m_pieces.back().isRightToLeft() &&
        m_pieces.back().m_font->m_face->hasGlyph(U' ')) {
      return m_pieces.back().m_font;
    }
    return m_chain.findFont(cluster);
  }

  TextPiece& edit(TextPiece::Kind kind, FontLink const& font, hb_script_t script) {
    bool const fits = !m_pieces.empty() && m_pieces.back().m_kind == kind && m_pieces.back().m_font == &font;
    if (!fits || !joinScript(m_pieces.back(), script)) {
      m_pieces.push_back(
          {.m_kind = kind, .m_font = &font, .m_script = script, .m_text = {}, .m_original = {}});
    }
    return m_pieces.back();
  }

  /// Common characters go with any script.
  static bool joinScript(TextPiece& piece, hb_script_t script) {
    if (script == HB_SCRIPT_COMMON || script == piece.m_script) return true;
    if (piece.m_script != HB_SCRIPT_COMMON) return false;
    piece.m_script = script;
    return true;
  }

  FontChain& m_chain;
  std::vector<TextPiece> m_pieces;
};

}  // namespace

std::vector<TextPiece> splitIntoPieces(std::u32string_view text, FontChain& chain) {
  PieceList pieces(chain);
  for (std::size_t start = 0; start < text.size();) {
    std::size_t const length = text[start] == U'\t' ? 1 : getClusterLength(text, start);
    if (text[start] == U'\t') {
      pieces.addTab();
    } else {
      pieces.addCluster(text.substr(start, length));
    }
    start += length;
  }
  return pieces.take();
}

}  // namespace qv::text
