#include "textPieces.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "textClusters.h"
#include "utf8.h"

namespace qv::text {

namespace {

/// Collects pieces, continuing the last one where it fits.
class PieceList {
 public:
  PieceList(FontChain& chain, bool isRightToLeft) : m_chain(chain), m_isRightToLeft(isRightToLeft) {}

  void addCluster(std::u32string_view cluster) {
    hb_script_t const script = getScript(cluster.front());
    FontLink const* const font = chooseFont(cluster, script);
    if (font != nullptr) {
      if (font->m_isLastResort && script != HB_SCRIPT_COMMON) m_lettersFont = font;
      edit(*font, false, script).m_text += cluster;
    } else if (cluster.size() > 1) {
      for (char32_t const& character : cluster) addCluster({&character, 1});
    } else {
      FontChain::Replacement const replacement = m_chain.getReplacement();
      TextPiece& piece = edit(*replacement.m_font, true, HB_SCRIPT_COMMON);
      piece.m_text += replacement.m_character;
      piece.m_original += cluster;
    }
  }

  void addUnshowable(char32_t character) {
    addCluster({&REPLACEMENT_CHARACTER, 1});
    m_pieces.back().m_unshowable.push_back(getUnshowableBytes(character));
  }

  std::vector<TextPiece> take() { return std::move(m_pieces); }

 private:
  /// A blank inside right-to-left text keeps its neighbour's font, so that the words are shaped in one go.
  /// Signs that several scripts share, such as the danda or the ideographic comma, look and stand as in the
  /// font of the letters before them; each font draws them for its own script.
  FontLink const* chooseFont(std::u32string_view cluster, hb_script_t script) {
    if (m_isRightToLeft && cluster == U" " && !m_pieces.empty() && !m_pieces.back().m_isMissing &&
        m_pieces.back().m_font->m_face->hasGlyph(U' ')) {
      return m_pieces.back().m_font;
    }
    return m_chain.findFont(cluster, script == HB_SCRIPT_COMMON ? m_lettersFont : nullptr);
  }

  TextPiece& edit(FontLink const& font, bool isMissing, hb_script_t script) {
    bool const fits =
        !m_pieces.empty() && m_pieces.back().m_isMissing == isMissing && m_pieces.back().m_font == &font;
    if (!fits || !joinScript(m_pieces.back(), script)) {
      TextPiece& piece = m_pieces.emplace_back();
      piece.m_font = &font;
      piece.m_isMissing = isMissing;
      piece.m_script = script;
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
  bool m_isRightToLeft;
  FontLink const* m_lettersFont = nullptr;  // of the last letters that no font of the chain's order has
  std::vector<TextPiece> m_pieces;
};

/// Most texts: characters without marks that the primary font has.
bool isBasic(std::u32string_view text, FontFace const& face) {
  return std::ranges::all_of(
      text, [&](char32_t character) { return character < FIRST_MARK && face.hasBasicGlyph(character); });
}

bool isBasicLetter(char32_t character) {
  return getScript(character) == HB_SCRIPT_LATIN;
}

TextPiece makeBasicPiece(std::u32string_view text, FontLink const& font) {
  TextPiece piece;
  piece.m_font = &font;
  piece.m_text = text;
  if (std::ranges::any_of(text, isBasicLetter)) piece.m_script = HB_SCRIPT_LATIN;
  return piece;
}

}  // namespace

std::vector<TextPiece> splitIntoPieces(std::u32string_view text, FontChain& chain, bool isRightToLeft) {
  FontLink const& primary = *chain.getPrimary();
  if (isBasic(text, *primary.m_face)) return {makeBasicPiece(text, primary)};
  PieceList pieces(chain, isRightToLeft);
  while (!text.empty()) {
    std::size_t const length = isUnshowable(text.front()) ? 1 : getClusterLength(text, 0);
    if (isUnshowable(text.front())) {
      pieces.addUnshowable(text.front());
    } else {
      pieces.addCluster(text.substr(0, length));
    }
    text.remove_prefix(length);
  }
  return pieces.take();
}

}  // namespace qv::text
