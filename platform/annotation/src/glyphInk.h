#pragma once

#include <hb.h>

#include <array>

#include "fontChain.h"
#include "inkBox.h"

namespace qv::text {

/// The ink of single glyphs. Remembers what was asked lately: not for two threads at once.
class GlyphInk {
 public:
  /// The ink for an em of 1, with what the font's synthesis adds; empty when there is none. Valid until the
  /// next call. A font must not be replaced by another one at its address.
  InkBox const& get(FontLink const& font, hb_codepoint_t glyph);

 private:
  struct Place {
    FontLink const* m_font = nullptr;
    hb_codepoint_t m_glyph = 0;
    InkBox m_ink;
  };

  std::array<Place, 512> m_places;
};

}  // namespace qv::text
