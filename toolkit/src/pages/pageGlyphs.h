#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "qvSvg/glyphSource.h"
#include "qvSvg/text.h"

namespace qvToolkit {

/// A glyph that a page draws as an outline.
struct PageGlyph {
  qv::svg::GlyphSource const* m_source = nullptr;
  std::uint32_t m_index = 0;
  std::string m_name;  ///< "f0g36": number of the font on the page, glyph in the font
};

/// The glyphs of a page, each once, in the order met.
class PageGlyphs {
 public:
  void add(qv::svg::Text const& text);

  std::vector<PageGlyph> const& getGlyphs() const noexcept { return m_glyphs; }
  /// The name of a glyph that was added.
  std::string const& getName(qv::svg::GlyphSource const& source, std::uint32_t glyph) const;

 private:
  void add(qv::svg::GlyphSource const& source, std::uint32_t glyph);

  std::vector<PageGlyph> m_glyphs;
  std::map<qv::svg::GlyphSource const*, std::size_t> m_fonts;
  std::map<std::pair<qv::svg::GlyphSource const*, std::uint32_t>, std::size_t> m_places;
};

/// Path data of a glyph in font units, y up.
std::string formatGlyphOutline(qv::svg::GlyphSource const& source, std::uint32_t glyph);

/// A length of a font of `unitsPerEm`, given for an em of 1, in font units: without the noise of its
/// computation.
double toFontUnits(double length, unsigned unitsPerEm);

}  // namespace qvToolkit
