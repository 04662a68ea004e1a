#pragma once

#include <cstddef>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "faceOutlines.h"
#include "fontFace.h"
#include "fontIndex.h"
#include "qvSvg/text.h"

namespace qv::text {

class FontCatalog;

/// A font that characters are drawn with.
struct FontLink {
  std::shared_ptr<FontFace const> m_face;
  std::shared_ptr<FaceOutlines const> m_outlines;
  std::string m_family;
  svg::FontMatch m_match = svg::FontMatch::Substitute;
  svg::FontSynthesis m_synthesis;
  bool m_isLastResort = false;  ///< found for a single cluster that no font of the chain's order has
};

/// The fonts that serve one asked family and style, in the order in which they are tried: the family that the
/// options name instead, the asked family itself, families with the same advance widths, a font with many
/// scripts, fonts with the signs of drawings, and at last any font that has the character.
///
/// Faces are loaded when they are first needed. Threads may share it.
class FontChain {
 public:
  FontChain(FontCatalog& catalog, std::string const& family, FontStyle style);
  ~FontChain();

  std::string const& getAskedFamily() const noexcept { return m_askedFamily; }
  FontStyle getStyle() const noexcept { return m_style; }

  /// The first font of the chain, which sets the measure of lines and blanks; null when no font can be
  /// loaded.
  FontLink const* getPrimary() const noexcept { return m_primary; }
  /// The first font that has the base character and all marks of the cluster; null when there is none. Where
  /// any font would do, `preferred` is taken if it has them, too; it may be null. Stays valid as long as the
  /// chain.
  FontLink const* findFont(std::u32string_view cluster, FontLink const* preferred);

  /// What is drawn for a character that no font has.
  struct Replacement {
    FontLink const* m_font;
    char32_t m_character;
  };
  /// The chain must have a primary font.
  Replacement getReplacement();

 private:
  struct Candidate {
    FontSource m_source;
    svg::FontMatch m_match;
  };

  void addReplacement();
  void addFamilyAndItsLike(std::string_view family);
  void addFamily(std::string_view family, svg::FontMatch match);
  void addAnyFontWith(char32_t character);
  std::unique_ptr<FontLink> load(Candidate const& candidate);
  FontLink const* getLink(std::size_t position);
  FontLink const* searchFont(std::u32string_view cluster);
  FontLink const* findOtherFont(std::u32string_view cluster);
  FontLink const* getLastResort(Candidate const& candidate);
  Replacement chooseReplacement();

  FontCatalog& m_catalog;
  std::string m_askedFamily;
  FontStyle m_style;
  FontLink const* m_primary = nullptr;
  std::mutex m_mutex;  // guards all below once the chain is made
  std::vector<Candidate> m_candidates;
  std::vector<std::unique_ptr<FontLink>> m_links;        // of the first candidates; null when not loadable
  std::vector<std::unique_ptr<FontLink>> m_lastResorts;  // found for single clusters
  std::unordered_map<std::u32string, FontLink const*> m_found;  // for clusters that the primary font lacks
  std::optional<Replacement> m_replacement;
};

}  // namespace qv::text
