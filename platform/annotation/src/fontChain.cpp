#include "fontChain.h"

#include <algorithm>
#include <utility>

#include "textClusters.h"
#include "utf8.h"

namespace qv::text {

namespace {

constexpr char const* DEFAULT_FAMILY = "Arial";

/// Tried after the asked family and its like.
constexpr char const* FALLBACK_FAMILY = "DejaVu Sans";

/// Tried next: they hold the signs of drawings, but few letters.
constexpr char const* SYMBOL_FAMILIES[] = {"Noto Sans Symbols", "Noto Sans Symbols2", "Noto Sans Math"};

/// Drawn for a character that no font has; the first that some font has.
constexpr char32_t REPLACEMENTS[] = {REPLACEMENT_CHARACTER, 0x25A1, U'?'};

/// True when the face draws the cluster: each character, or a base and a mark as one precomposed character.
bool hasCluster(FontFace const& face, std::u32string_view cluster) {
  char32_t base = 0;
  for (char32_t const character : cluster) {
    if (isIgnorable(character)) continue;
    char32_t const composed = base != 0 ? compose(base, character) : 0;
    base = composed != 0 && face.hasGlyph(composed) ? composed : character;
    if (!face.hasGlyph(base)) return false;
  }
  return true;
}

}  // namespace

FontChain::FontChain(FontCatalog& catalog, std::string const& family, FontStyle style)
    : m_catalog(catalog), m_askedFamily(family.empty() ? DEFAULT_FAMILY : family), m_style(style) {
  addFamily(m_askedFamily, svg::FontMatch::Asked);
  for (std::string const& alias : catalog.getIndex().findMetricAliases(m_askedFamily)) {
    addFamily(alias, svg::FontMatch::MetricCompatible);
  }
  addFamily(FALLBACK_FAMILY, svg::FontMatch::Substitute);
  if (m_candidates.empty()) addAnyFontWith(U'A');
  for (char const* const symbols : SYMBOL_FAMILIES) addFamily(symbols, svg::FontMatch::Substitute);
  for (std::size_t i = 0; m_primary == nullptr && i < m_candidates.size(); ++i) m_primary = getLink(i);
  if (m_primary == nullptr) m_primary = findFont(U" ");
}

void FontChain::addAnyFontWith(char32_t character) {
  std::optional<FontSource> source = m_catalog.getIndex().findCharacter(character, m_style);
  if (source) m_candidates.push_back({*std::move(source), svg::FontMatch::Substitute});
}

void FontChain::addFamily(std::string const& family, svg::FontMatch match) {
  std::optional<FontSource> source = m_catalog.getIndex().findFamily(family, m_style);
  if (!source) return;
  bool const isKnown = std::ranges::any_of(m_candidates, [&](Candidate const& candidate) {
    return candidate.m_source.m_path == source->m_path && candidate.m_source.m_index == source->m_index;
  });
  if (!isKnown) m_candidates.push_back({*std::move(source), match});
}

std::unique_ptr<FontLink> FontChain::load(Candidate const& candidate) {
  std::shared_ptr<FontFace const> face = m_catalog.getFace(candidate.m_source);
  if (face == nullptr) return nullptr;
  return std::make_unique<FontLink>(
      FontLink{std::move(face), candidate.m_source.m_family, candidate.m_match});
}

FontLink const* FontChain::getLink(std::size_t position) {
  while (m_links.size() <= position) m_links.push_back(load(m_candidates[m_links.size()]));
  return m_links[position].get();
}

FontLink const* FontChain::findFont(std::u32string_view cluster) {
  if (m_primary != nullptr && hasCluster(*m_primary->m_face, cluster)) return m_primary;
  std::u32string key(cluster);
  if (auto const known = m_found.find(key); known != m_found.end()) return known->second;
  // Stored after the search: one that ran out of memory must not be remembered as "no font".
  FontLink const* const font = searchFont(cluster);
  m_found.emplace(std::move(key), font);
  return font;
}

FontLink const* FontChain::searchFont(std::u32string_view cluster) {
  for (std::size_t i = 0; i < m_candidates.size(); ++i) {
    FontLink const* const link = getLink(i);
    if (link != nullptr && hasCluster(*link->m_face, cluster)) return link;
  }
  std::optional<FontSource> source = m_catalog.getIndex().findCharacter(cluster.front(), m_style);
  if (!source) return nullptr;
  FontLink const* const link = getLastResort({*std::move(source), svg::FontMatch::Substitute});
  return link != nullptr && hasCluster(*link->m_face, cluster) ? link : nullptr;
}

// One link for each face, so that neighbours in one font are shaped together.
FontLink const* FontChain::getLastResort(Candidate const& candidate) {
  std::unique_ptr<FontLink> link = load(candidate);
  if (link == nullptr) return nullptr;
  for (std::unique_ptr<FontLink> const& known : m_lastResorts) {
    if (known->m_face == link->m_face) return known.get();
  }
  return m_lastResorts.emplace_back(std::move(link)).get();
}

FontLink const& FontChain::getReplacementFont() {
  chooseReplacement();
  return *m_replacementFont;
}

char32_t FontChain::getReplacementCharacter() {
  chooseReplacement();
  return m_replacementCharacter;
}

void FontChain::chooseReplacement() {
  if (m_replacementFont != nullptr) return;
  for (char32_t const character : REPLACEMENTS) {
    m_replacementCharacter = character;
    m_replacementFont = findFont({&character, 1});
    if (m_replacementFont != nullptr) return;
  }
  m_replacementFont = m_primary;  // not even a question mark: the font's own sign for a missing glyph
}

}  // namespace qv::text
