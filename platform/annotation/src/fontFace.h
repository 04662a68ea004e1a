#pragma once

#include <hb.h>

#include <memory>

#include "fontIndex.h"

namespace qv::text {

/// One face of a font file, ready for shaping. Immutable, so threads may share it.
class FontFace {
 public:
  /// Null when the file cannot be read or holds no such face.
  static std::shared_ptr<FontFace const> load(FontSource const& source);

  ~FontFace();
  FontFace(FontFace const&) = delete;
  FontFace& operator=(FontFace const&) = delete;

  bool hasGlyph(char32_t character) const;
  /// Distances in this font are counted in units per em.
  hb_font_t* getFont() const noexcept { return m_font; }

  /// Lengths for an em size of 1; the descender is negative.
  float getUnit() const noexcept { return m_unit; }
  float getAscender() const noexcept { return m_ascender; }
  float getDescender() const noexcept { return m_descender; }
  float getLineGap() const noexcept { return m_lineGap; }
  float getBlankAdvance() const noexcept { return m_blankAdvance; }

 private:
  explicit FontFace(hb_font_t* font);

  hb_font_t* m_font;
  float m_unit;
  float m_ascender;
  float m_descender;
  float m_lineGap;
  float m_blankAdvance;
};

}  // namespace qv::text
