#pragma once

#include <hb.h>

#include <atomic>
#include <bitset>
#include <memory>

#include "fontIndex.h"
#include "textClusters.h"

namespace qv::text {

class MemoryWatch;

/// One face of a font file, ready for shaping. Immutable, so threads may share it.
///
/// HarfBuzz reads most tables of a font when it first needs them. One that it has no memory for it takes as
/// missing from then on: such a face is spoiled, and whoever asks more of it gets `std::bad_alloc`.
class FontFace {
 public:
  /// Null when the file cannot be read or holds no such face.
  static std::shared_ptr<FontFace const> load(FaceLocation const& location);

  ~FontFace();
  FontFace(FontFace const&) = delete;
  FontFace& operator=(FontFace const&) = delete;

  FaceLocation const& getLocation() const noexcept { return m_location; }
  bool hasGlyph(char32_t character) const;
  /// The same at once for a character below `FIRST_MARK`.
  bool hasBasicGlyph(char32_t character) const noexcept { return m_basic[character]; }
  /// To be called behind each use of the font, with a watch over that use: throws `std::bad_alloc` when
  /// memory ran out in it, or did before.
  void checkMemory(MemoryWatch const& watch) const;
  bool isSpoiled() const noexcept { return m_isSpoiled; }

  /// Distances in this font are counted in units per em.
  hb_font_t* getFont() const noexcept { return m_font; }

  /// Lengths for an em size of 1; the descender is negative.
  float getUnit() const noexcept { return m_unit; }
  float getAscender() const noexcept { return m_ascender; }
  float getDescender() const noexcept { return m_descender; }
  float getLineGap() const noexcept { return m_lineGap; }
  float getBlankAdvance() const noexcept { return m_blankAdvance; }

 private:
  FontFace(hb_font_t* font, FaceLocation location);

  FaceLocation m_location;
  hb_font_t* m_font;
  mutable std::atomic<bool> m_isSpoiled = false;
  std::bitset<FIRST_MARK> m_basic;
  float m_unit;
  float m_ascender;
  float m_descender;
  float m_lineGap;
  float m_blankAdvance;
};

}  // namespace qv::text
