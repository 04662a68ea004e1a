#pragma once

#include <hb.h>

#include <string>
#include <string_view>
#include <vector>

#include "fontChain.h"

namespace qv::text {

/// Characters that are shaped at one go: one font, one script.
struct TextPiece {
  FontLink const* m_font = nullptr;
  bool m_isMissing = false;  ///< no font has the characters
  hb_script_t m_script = HB_SCRIPT_COMMON;
  std::u32string m_text;                  ///< what is drawn
  std::u32string m_original;              ///< missing only: the characters that no font has
  std::vector<std::string> m_unshowable;  ///< the bytes behind the replacement characters for broken text
};

/// Cuts the text where its font or script changes. All characters run in one direction, tabs are not among
/// them; the chain must have a primary font.
std::vector<TextPiece> splitIntoPieces(std::u32string_view text, FontChain& chain, bool isRightToLeft);

}  // namespace qv::text
