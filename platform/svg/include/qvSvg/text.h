#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "qvSvg/boundingBox.h"
#include "qvSvg/itemInterface.h"
#include "wm4/vector2.h"

namespace qv::svg {

/// How the font of a span relates to the one that was asked for.
enum class FontMatch : std::uint8_t {
  Asked,             ///< the asked family itself
  MetricCompatible,  ///< another family with the same advance widths
  Substitute,        ///< another family
  Missing,           ///< no font has the characters: the span shows the replacement glyph
};

/// Characters of one text line that are drawn with one font.
struct TextSpan {
  std::string m_text;         ///< valid UTF-8, in logical order
  std::string m_askedFamily;  ///< font family that the document names; Arial when it names none
  std::string m_family;       ///< font family that is drawn
  float m_x = 0.0F;           ///< where the span begins on the baseline
  float m_advance = 0.0F;     ///< where the next one may begin, relative to `m_x`
  FontMatch m_match = FontMatch::Asked;
  bool m_bold = false;
  bool m_italic = false;
  std::string m_original;  ///< Missing only: the document's characters, one for each replacement character
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
