#include "pages/pageGlyphs.h"

#include <array>
#include <cmath>

#include "text/svgNumber.h"

namespace qvToolkit {

namespace {

/// In the order of `OutlineCommand::Kind`.
constexpr std::array<char, 5> CommandLetters = {'M', 'L', 'Q', 'C', 'Z'};

}  // namespace

void PageGlyphs::add(qv::svg::Text const& text) {
  for (qv::svg::TextSpan const& span : text.m_spans) {
    if (span.m_glyphSource == nullptr) continue;
    for (qv::svg::Glyph const& glyph : span.m_glyphs) add(*span.m_glyphSource, glyph.m_index);
  }
}

void PageGlyphs::add(qv::svg::GlyphSource const& source, std::uint32_t glyph) {
  if (!m_places.try_emplace({&source, glyph}, m_glyphs.size()).second) return;
  std::size_t const font = m_fonts.try_emplace(&source, m_fonts.size()).first->second;
  m_glyphs.push_back({&source, glyph, 'f' + std::to_string(font) + 'g' + std::to_string(glyph)});
}

std::string const& PageGlyphs::getName(qv::svg::GlyphSource const& source, std::uint32_t glyph) const {
  return m_glyphs[m_places.at({&source, glyph})].m_name;
}

std::string formatGlyphOutline(qv::svg::GlyphSource const& source, std::uint32_t glyph) {
  unsigned const unitsPerEm = source.getUnitsPerEm();
  std::string data;
  for (qv::svg::OutlineCommand const& command : source.getOutline(glyph)) {
    data += CommandLetters[static_cast<std::size_t>(command.m_kind)];
    std::size_t const count = qv::svg::OutlineCommand::countPoints(command.m_kind);
    for (std::size_t i = 0; i < count; ++i) {
      if (i > 0) data += ' ';
      appendNumber(data, toFontUnits(static_cast<double>(command.m_points[i].X()), unitsPerEm));
      data += ' ';
      appendNumber(data, toFontUnits(static_cast<double>(command.m_points[i].Y()), unitsPerEm));
    }
  }
  return data;
}

double toFontUnits(double length, unsigned unitsPerEm) {
  constexpr double Steps = 100.0;
  return std::round(length * unitsPerEm * Steps) / Steps;
}

}  // namespace qvToolkit
