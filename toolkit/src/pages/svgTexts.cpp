#include "pages/svgTexts.h"

#include <algorithm>

#include "pages/affine.h"
#include "pages/fontFamily.h"
#include "pages/itemMarkup.h"
#include "pages/pathData.h"

namespace qvToolkit {

namespace {

/// Of text that lies over its own outlines. Not seen, but not 0 either: what is quite transparent is left out
/// of a PDF and could not be found there.
constexpr char const* UnseenOpacity = "0.004";

/// The size of all text on the page, which is scaled to the item's size. Live text: renderers that lay text
/// out in pixels round sizes and advances, and what they draw for a few pixels ends elsewhere. Larger ones
/// would take the longest lines beyond the numbers that renderers count in. Outlines: some renderers draw
/// nothing at all below a scale of 1/4096, which one step from font units to small letters would need.
constexpr unsigned PageEm = 100;

/// Unicode's controls that force a direction upon characters, and end it. Renderers agree on them, other than
/// on the attributes that say the same.
constexpr char const* ForceLeftToRight = "\u202D";  // NOLINT(misc-misleading-bidirectional): meant
constexpr char const* ForceRightToLeft = "\u202E";  // NOLINT(misc-misleading-bidirectional): meant
constexpr char const* EndForce = "\u202C";
/// Blanks at the end would go to the other side without it.
constexpr char const* RightToLeftMark = "\u200F";

bool isOblique(qv::svg::TextSpan const& span) {
  return span.m_synthesis.m_oblique;
}

/// The text of a span in a line that has several directions.
std::string forceDirection(qv::svg::TextSpan const& span) {
  if (!span.m_rightToLeft) return ForceLeftToRight + span.m_text + EndForce;
  return ForceRightToLeft + span.m_text + (span.m_text.ends_with(' ') ? RightToLeftMark : "") + EndForce;
}

double getScale(qv::svg::Text const& text) {
  return static_cast<double>(text.m_size / static_cast<float>(PageEm));
}

/// The item's y axis points up, but letters grow against y in SVG, so the text mirrors itself about its
/// baseline.
std::string formatLiveBaseline(qv::svg::Text const& text, bool isSlanted) {
  double const scale = getScale(text);
  double const slant = isSlanted ? static_cast<double>(-qv::svg::FontSynthesis::SLANT) : 0.0;
  return formatTransform({scale, 0.0, slant * scale, -scale, 0.0, static_cast<double>(text.m_baseline)});
}

/// Outlines have y up like the item.
std::string formatOutlineBaseline(qv::svg::Text const& text) {
  double const scale = getScale(text);
  return formatTransform({scale, 0.0, 0.0, scale, 0.0, static_cast<double>(text.m_baseline)});
}

/// Where the span begins in a text of the page's size.
double getStart(qv::svg::Text const& text, qv::svg::TextSpan const& span) {
  return toFontUnits(static_cast<double>(span.m_x) / static_cast<double>(text.m_size), PageEm);
}

}  // namespace

void SvgTexts::writeDefinitions() {
  for (PageGlyph const& glyph : m_glyphs.getGlyphs()) {
    m_markup.open("path").rawAttribute("id", glyph.m_name);
    m_markup.rawAttribute("d", formatGlyphOutline(*glyph.m_source, glyph.m_index)).close();
  }
}

void SvgTexts::write(qv::svg::Text const& text, std::string const& fill) {
  if (text.m_spans.empty() || !(text.m_size > 0.0F)) return;
  std::string const& ownFill = isPaint(text.m_backgroundColor) ? *text.m_backgroundColor : fill;
  bool const hasOutlines =
      m_mode != TextMode::Live && std::ranges::all_of(text.m_spans, [](qv::svg::TextSpan const& span) {
        return span.m_glyphSource != nullptr;
      });
  if (hasOutlines) writeOutlines(text, ownFill);
  if (!hasOutlines || m_mode == TextMode::Both) writeLive(text, hasOutlines ? std::string() : ownFill);
}

void SvgTexts::writeOutlines(qv::svg::Text const& text, std::string const& fill) {
  std::string transform = formatItemTransform(text);
  appendTransform(transform, formatOutlineBaseline(text));
  m_markup.open("g");
  writeTransform(m_markup, transform);
  writePaint(m_markup, text);
  for (qv::svg::TextSpan const& span : text.m_spans) {
    if (!span.m_glyphs.empty()) writeOutline(text, span, fill);
  }
  m_markup.close();
}

/// In font units.
void SvgTexts::writeOutline(qv::svg::Text const& text, qv::svg::TextSpan const& span,
                            std::string const& fill) {
  unsigned const unitsPerEm = span.m_glyphSource->getUnitsPerEm();
  auto const size = static_cast<double>(text.m_size);
  double const scale = static_cast<double>(PageEm) / unitsPerEm;
  m_markup.open("g");
  writeTransform(m_markup, formatTransform({scale, 0.0, 0.0, scale, getStart(text, span), 0.0}));
  if (span.m_synthesis.m_bold) {
    writeBoldStroke(fill, formatNumber(toFontUnits(static_cast<double>(qv::svg::FontSynthesis::BOLD_STROKE),
                                                   unitsPerEm)));
  }
  for (qv::svg::Glyph const& glyph : span.m_glyphs) {
    double const x = toFontUnits(static_cast<double>(glyph.m_x) / size, unitsPerEm);
    double const y = toFontUnits(static_cast<double>(glyph.m_y) / size, unitsPerEm);
    m_markup.open("use");
    if (x != 0.0) m_markup.rawAttribute("x", formatNumber(x));
    if (y != 0.0) m_markup.rawAttribute("y", formatNumber(y));
    m_markup.rawAttribute("href", '#' + m_glyphs.getName(*span.m_glyphSource, glyph.m_index)).close();
  }
  m_markup.close();
}

/// One line for each change between upright and slanted spans, since only a whole line can be skewed.
void SvgTexts::writeLive(qv::svg::Text const& text, std::string const& fill) {
  for (auto first = text.m_spans.begin(); first != text.m_spans.end();) {
    auto const last = std::find_if(first, text.m_spans.end(), [first](qv::svg::TextSpan const& span) {
      return isOblique(span) != isOblique(*first);
    });
    writeLine(text, Spans(first, last), fill);
    first = last;
  }
}

void SvgTexts::writeLine(qv::svg::Text const& text, Spans spans, std::string const& fill) {
  std::string transform = formatItemTransform(text);
  appendTransform(transform, formatLiveBaseline(text, isOblique(spans.front())));
  m_markup.open("text");
  writeTransform(m_markup, transform);
  writePaint(m_markup, text);
  if (fill.empty()) m_markup.rawAttribute("fill-opacity", UnseenOpacity);
  m_markup.rawAttribute("font-size", std::to_string(PageEm)).rawAttribute("xml:space", "preserve");
  bool const isDirected = std::ranges::any_of(spans, &qv::svg::TextSpan::m_rightToLeft);
  for (qv::svg::TextSpan const& span : spans) writeSpan(text, span, fill, isDirected);
  m_markup.close();
}

void SvgTexts::writeSpan(qv::svg::Text const& text, qv::svg::TextSpan const& span, std::string const& fill,
                         bool isDirected) {
  m_markup.open("tspan").rawAttribute("x", formatNumber(getStart(text, span)));
  m_markup.attribute("font-family", formatFontFamily(span.m_family));
  if (span.m_bold && !span.m_synthesis.m_bold) m_markup.rawAttribute("font-weight", "bold");
  if (span.m_italic && !span.m_synthesis.m_oblique) m_markup.rawAttribute("font-style", "italic");
  if (span.m_synthesis.m_bold && !fill.empty()) {
    writeBoldStroke(fill, formatNumber(PageEm * qv::svg::FontSynthesis::BOLD_STROKE));
  }
  m_markup.text(isDirected ? forceDirection(span) : span.m_text).close();
}

void SvgTexts::writeBoldStroke(std::string const& fill, std::string const& width) {
  m_markup.rawAttribute("stroke", fill).rawAttribute("stroke-width", width);
  m_markup.rawAttribute("stroke-linejoin", "round");
}

}  // namespace qvToolkit
