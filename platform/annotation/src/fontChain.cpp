#include "fontChain.h"

#include <algorithm>
#include <utility>

#include "familyNames.h"
#include "fontCatalog.h"
#include "textClusters.h"
#include "utf8.h"

namespace qv::text {

namespace {

constexpr char const* DEFAULT_FAMILY = "Arial";

/// Tried after the asked family and its like.
constexpr std::string_view FALLBACK_FAMILY = "DejaVu Sans";

/// Tried next: they hold the signs of drawings, but few letters.
constexpr std::string_view SYMBOL_FAMILIES[] = {"Noto Sans Symbols", "Noto Sans Symbols2", "Noto Sans Math"};

/// Drawn for a character that no font has; the first that some font has. No box is among them: in a drawing
/// it would be read as the sign for a square.
constexpr char32_t REPLACEMENTS[] = {REPLACEMENT_CHARACTER, U'?'};

/// A bound for what hostile text can make a chain remember.
constexpr std::size_t MAXIMUM_REMEMBERED = 50'000;

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
  addReplacement();
  addFamilyAndItsLike(m_askedFamily);
  addFamily(FALLBACK_FAMILY, svg::FontMatch::Substitute);
  if (m_candidates.empty()) addAnyFontWith(U'A');
  for (std::string_view const symbols : SYMBOL_FAMILIES) addFamily(symbols, svg::FontMatch::Substitute);
  for (std::size_t i = 0; m_primary == nullptr && i < m_candidates.size(); ++i) m_primary = getLink(i);
  if (m_primary == nullptr) m_primary = searchFont({});  // any font at all
}

FontChain::~FontChain() = default;

void FontChain::addReplacement() {
  std::string const asked = foldName(m_askedFamily);
  for (FontReplacement const& replacement : m_catalog.getOptions().m_replacements) {
    if (foldName(replacement.m_family) != asked) continue;
    addFamilyAndItsLike(replacement.m_replacement);
    return;
  }
}

void FontChain::addFamilyAndItsLike(std::string_view family) {
  addFamily(family, svg::FontMatch::Asked);
  for (std::string_view const like : findMetricClass(foldName(family))) {
    addFamily(like, svg::FontMatch::MetricCompatible);
  }
}

void FontChain::addAnyFontWith(char32_t character) {
  std::optional<FontSource> source = m_catalog.getIndex().findCluster({&character, 1}, m_style);
  if (source) m_candidates.push_back({*std::move(source), svg::FontMatch::Substitute});
}

void FontChain::addFamily(std::string_view family, svg::FontMatch match) {
  std::optional<FontSource> source = m_catalog.getIndex().findFamily(family, m_style);
  if (!source) return;
  bool const isKnown = std::ranges::any_of(m_candidates, [&](Candidate const& candidate) {
    return candidate.m_source.m_location == source->m_location;
  });
  if (!isKnown) m_candidates.push_back({*std::move(source), match});
}

std::unique_ptr<FontLink> FontChain::load(Candidate const& candidate) {
  FontSource const& source = candidate.m_source;
  std::shared_ptr<FontFace const> face = m_catalog.getFace(source.m_location);
  if (face == nullptr) return nullptr;
  auto outlines = m_catalog.getOutlines(face, source.m_synthesis.m_oblique);
  return std::make_unique<FontLink>(
      FontLink{std::move(face), std::move(outlines), source.m_family, candidate.m_match, source.m_synthesis});
}

FontLink const* FontChain::getLink(std::size_t position) {
  while (m_links.size() <= position) m_links.push_back(load(m_candidates[m_links.size()]));
  return m_links[position].get();
}

FontLink const* FontChain::findFont(std::u32string_view cluster, FontLink const* preferred) {
  if (m_primary != nullptr && hasCluster(*m_primary->m_face, cluster)) return m_primary;
  std::scoped_lock const lock(m_mutex);
  FontLink const* const font = findOtherFont(cluster);
  bool const mayBeAny = font != nullptr && font->m_isLastResort;
  return mayBeAny && preferred != nullptr && hasCluster(*preferred->m_face, cluster) ? preferred : font;
}

FontLink const* FontChain::findOtherFont(std::u32string_view cluster) {
  std::u32string key(cluster);
  if (auto const known = m_found.find(key); known != m_found.end()) return known->second;
  if (m_found.size() >= MAXIMUM_REMEMBERED) m_found.clear();
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
  std::optional<FontSource> source = m_catalog.getIndex().findCluster(cluster, m_style);
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
  link->m_isLastResort = true;
  return m_lastResorts.emplace_back(std::move(link)).get();
}

FontChain::Replacement FontChain::getReplacement() {
  std::scoped_lock const lock(m_mutex);
  if (!m_replacement) m_replacement = chooseReplacement();
  return *m_replacement;
}

FontChain::Replacement FontChain::chooseReplacement() {
  for (char32_t const character : REPLACEMENTS) {
    FontLink const* const font = findOtherFont({&character, 1});
    if (font != nullptr) return {font, character};
  }
  // Not even a question mark: the font's own sign for a missing glyph.
  return {m_primary, REPLACEMENT_CHARACTER};
}

}  // namespace qv::text
