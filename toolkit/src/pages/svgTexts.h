#pragma once

#include <span>
#include <string>

#include "pages/markup.h"
#include "pages/pageGlyphs.h"
#include "qvSvg/text.h"
#include "qvToolkit/pages/svgPage.h"

namespace qvToolkit {

/// Writes text items as live text, as outlines of their glyphs, or as both.
///
/// Live text is written so that renderers draw it alike: each span has its own x and names the one font that
/// has its characters, its direction is forced upon the characters, and what a font family lacks of bold and
/// italic is drawn by stroke and skew instead of being asked for.
class SvgTexts {
 public:
  /// `glyphs` are those of the page.
  SvgTexts(TextMode mode, PageGlyphs const& glyphs, Markup& markup)
      : m_mode(mode), m_glyphs(glyphs), m_markup(markup) {}

  /// Definitions of the glyphs that `write` refers to.
  void writeDefinitions();
  /// `fill` is the paint that the item's surroundings give to what sets none.
  void write(qv::svg::Text const& text, std::string const& fill);

 private:
  using Spans = std::span<qv::svg::TextSpan const>;

  void writeOutlines(qv::svg::Text const& text, std::string const& fill);
  void writeOutline(qv::svg::Text const& text, qv::svg::TextSpan const& span, std::string const& fill);
  void writeLive(qv::svg::Text const& text, std::string const& fill);
  void writeLine(qv::svg::Text const& text, Spans spans, std::string const& fill);
  void writeSpan(qv::svg::Text const& text, qv::svg::TextSpan const& span, std::string const& fill,
                 bool isDirected);
  void writeBoldStroke(std::string const& fill, std::string const& width);

  TextMode m_mode;
  PageGlyphs const& m_glyphs;
  Markup& m_markup;
};

}  // namespace qvToolkit
