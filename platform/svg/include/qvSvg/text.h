#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "qvSvg/boundingBox.h"
#include "qvSvg/glyphSource.h"
#include "qvSvg/itemInterface.h"
#include "wm4/vector2.h"

namespace qv::svg {

/// How the font of a span relates to the one that was asked for.
enum class FontMatch : std::uint8_t {
  Asked,             ///< the asked family itself, or the one that the font options name instead of it
  MetricCompatible,  ///< another family with the same advance widths
  Substitute,        ///< another family
  Missing,           ///< no font has the characters: the span shows the replacement glyph
};

/// What has to be made up because the family has no such face. Renderers that are asked for the missing face
/// make it up each in another way, and some not at all; so it is drawn from the face that is there.
struct FontSynthesis {
  bool m_bold = false;     ///< filled and stroked in the fill's colour with round joins, `BOLD_STROKE` wide
  bool m_oblique = false;  ///< each point (x, y) of an upright glyph is drawn at (x + `SLANT` * y, y)

  static constexpr float BOLD_STROKE = 1.0F / 24.0F;  ///< in em
  static constexpr float SLANT = 0.2F;

  friend bool operator==(FontSynthesis const&, FontSynthesis const&) = default;
};

/// A glyph of a span. Positions are in layout units, y up, relative to the span's start on its baseline: the
/// glyph's origin lies at (m_x + x of the span, m_y + baseline of the item).
struct Glyph {
  std::uint32_t m_index = 0;  ///< in the font of the span's glyph source
  float m_x = 0.0F;
  float m_y = 0.0F;
};

/// Characters of one text line that are drawn with one font in one direction.
struct TextSpan {
  std::string m_text;         ///< valid UTF-8, in logical order; a tab is one blank
  std::string m_askedFamily;  ///< font family that the document names; Arial when it names none
  std::string m_family;       ///< font family that is drawn
  float m_x = 0.0F;           ///< left end on the baseline, also of right-to-left text
  float m_advance = 0.0F;     ///< where the next one may begin, relative to `m_x`
  FontMatch m_match = FontMatch::Asked;
  /// Asked by the document. A renderer must be asked for it to get the very face, but not for what
  /// `m_synthesis` makes up.
  bool m_bold = false;
  bool m_italic = false;  ///< likewise
  bool m_rightToLeft = false;
  FontSynthesis m_synthesis;
  std::string m_original;  ///< Missing only: the document's characters, one for each replacement character
  /// What the document holds where `m_text` has U+FFFD because it cannot be shown (control characters, lone
  /// surrogates, ill-formed UTF-8): the bytes for each of them, in order. The document's own U+FFFD are not
  /// among them.
  std::vector<std::string> m_unshowable;

  /// In visual order, from left to right. Glyphs without ink, such as blanks, are left out.
  std::vector<Glyph> m_glyphs;
  /// Outlines of the glyphs, slanted where `m_synthesis` says so, but without the stroke that makes them
  /// bold. Null only in spans that no layout made.
  std::shared_ptr<GlyphSource const> m_glyphSource;
};

/// Characters on one baseline and of one size. The item's own coordinates are layout coordinates: y up, so
/// the glyphs stand upright towards +y; whoever shows them in SVG coordinates mirrors them.
class QV_EXPORT Text : public ItemInterface {
 public:
  Text();
  ~Text() override;
  ItemKind getKind() const noexcept override;

  float m_baseline = 0.0F;        ///< y of the baseline
  float m_size = 0.0F;            ///< em size
  std::vector<TextSpan> m_spans;  ///< from left to right
  BoundingBox m_box;              ///< union of the ink and of the advance box, in layout coordinates
};

}  // namespace qv::svg
