#include "spanBreaks.h"

#include <string>
#include <utility>

namespace qv::text {

namespace {

/// The byte at which a character of valid UTF-8 begins.
std::size_t findCharacter(std::string const& text, std::size_t character) {
  std::size_t byte = 0;
  for (; byte < text.size(); ++byte) {
    bool const beginsCharacter = (static_cast<unsigned char>(text[byte]) & 0xC0U) != 0x80U;
    if (beginsCharacter && character-- == 0) break;
  }
  return byte;
}

/// Takes what stands before the break off the span, which then begins at the break.
svg::TextSpan cutFront(SpanBreak const& position, svg::TextSpan& span) {
  svg::TextSpan front = span;
  std::size_t const byte = findCharacter(span.m_text, position.m_character);
  front.m_text.resize(byte);
  span.m_text.erase(0, byte);
  auto const glyph = static_cast<std::ptrdiff_t>(position.m_glyph);
  front.m_glyphs.resize(position.m_glyph);
  span.m_glyphs.erase(span.m_glyphs.begin(), span.m_glyphs.begin() + glyph);
  for (svg::Glyph& each : span.m_glyphs) each.m_x -= position.m_x;
  front.m_advance = position.m_x;
  span.m_advance -= position.m_x;
  span.m_x += position.m_x;
  return front;
}

}  // namespace

void cutLastSpan(std::vector<SpanBreak> const& breaks, std::vector<svg::TextSpan>& spans) {
  if (breaks.empty() || !spans.back().m_original.empty() || !spans.back().m_unshowable.empty()) return;
  svg::TextSpan rest = std::move(spans.back());
  spans.pop_back();
  SpanBreak done{0, 0, 0.0F};
  for (SpanBreak const& each : breaks) {
    spans.push_back(cutFront(
        {each.m_character - done.m_character, each.m_glyph - done.m_glyph, each.m_x - done.m_x}, rest));
    done = each;
  }
  spans.push_back(std::move(rest));
}

}  // namespace qv::text
