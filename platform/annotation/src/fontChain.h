#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "fontCatalog.h"
#include "qvSvg/text.h"

namespace qv::text {

/// A font that characters are drawn with.
struct FontLink {
  std::shared_ptr<FontFace const> m_face;
  std::string m_family;
  svg::FontMatch m_match;
};

/// The fonts that serve one asked family and style, in the order in which they are tried: the family itself,
/// families with the same advance widths, fonts with the signs of drawings, and at last any font that has the
/// character.
///
/// Faces are loaded when they are first needed.
class FontChain {
 public:
  FontChain(FontCatalog& catalog, std::string const& family, FontStyle style);

  std::string const& getAskedFamily() const noexcept { return m_askedFamily; }
  FontStyle getStyle() const noexcept { return m_style; }

  /// The first font of the chain, which sets the measure of lines and blanks; null when no font can be
  /// loaded.
  FontLink const* getPrimary() const noexcept { return m_primary; }
  /// The first font that has the base character and all marks of the cluster; null when there is none. Stays
  /// valid as long as the chain.
  FontLink const* findFont(std::u32string_view cluster);

  /// What is drawn for a character that no font has; the chain must have a primary font.
  FontLink const& getReplacementFont();
  char32_t getReplacementCharacter();

 private:
  struct Candidate {
    FontSource m_source;
    svg::FontMatch m_match;
  };

  void addFamily(std::string const& family, svg::FontMatch match);
  void addAnyFontWith(char32_t character);
  std::unique_ptr<FontLink> load(Candidate const& candidate);
  FontLink const* getLink(std::size_t position);
  FontLink const* searchFont(std::u32string_view cluster);
  FontLink const* getLastResort(Candidate const& candidate);
  void chooseReplacement();

  FontCatalog& m_catalog;
  std::string m_askedFamily;
  FontStyle m_style;
  std::vector<Candidate> m_candidates;
  std::vector<std::unique_ptr<FontLink>> m_links;        // of the first candidates; null when not loadable
  std::vector<std::unique_ptr<FontLink>> m_lastResorts;  // found for single clusters
  std::unordered_map<std::u32string, FontLink const*> m_found;  // for clusters that the primary font lacks
  FontLink const* m_primary = nullptr;
  FontLink const* m_replacementFont = nullptr;
  char32_t m_replacementCharacter = 0;
};

}  // namespace qv::text
