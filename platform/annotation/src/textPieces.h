#pragma once

#include <hb.h>

#include <string>
#include <string_view>
#include <vector>

#include "fontChain.h"

namespace qv::text {

/// Characters that are shaped at one go: one font, one script, one direction.
struct TextPiece {
  enum class Kind { Drawn, Missing, Tab };

  Kind m_kind = Kind::Drawn;
  FontLink const* m_font = nullptr;
  hb_script_t m_script = HB_SCRIPT_COMMON;
  std::u32string m_text;      ///< what is drawn
  std::u32string m_original;  ///< Missing only: the characters that no font has

  bool isRightToLeft() const { return hb_script_get_horizontal_direction(m_script) == HB_DIRECTION_RTL; }
};

/// Cuts the text where its font or script changes; each tab is a piece of its own. The chain must have a
/// primary font.
std::vector<TextPiece> splitIntoPieces(std::u32string_view text, FontChain& chain);

}  // namespace qv::text
