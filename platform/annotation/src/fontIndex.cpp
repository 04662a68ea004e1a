#include "fontIndex.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <new>
#include <system_error>
#include <tuple>
#include <utility>

#include "familyNames.h"
#include "textClusters.h"

namespace qv::text {

struct FontIndex::Entry {
  int m_rank;  // the directory's place in the options, the last one for installed fonts
  std::string m_path;
  int m_index;
  int m_weight;
  int m_slant;
  int m_width;
  FcCharSet const* m_characters;  // owned by the configuration
  std::vector<std::string> m_families;
};

namespace {

/// Without a configuration, fonts are read from the caches that are there all the same: they only save time.
constexpr char const* CACHES_ONLY =
    "<fontconfig><cachedir>/var/cache/fontconfig</cachedir>"
    "<cachedir prefix=\"xdg\">fontconfig</cachedir></fontconfig>";

/// Private characters mean something else in each font, so no other font may stand in.
bool isPrivate(char32_t character) {
  return (character >= 0xE000 && character <= 0xF8FF) || character >= 0xF0000;
}

FcChar8 const* toFontconfig(char const* text) {
  return reinterpret_cast<FcChar8 const*>(text);
}
char const* fromFontconfig(FcChar8 const* text) {
  return reinterpret_cast<char const*>(text);
}

bool isFound(FcResult result) {
  if (result == FcResultOutOfMemory) throw std::bad_alloc();
  return result == FcResultMatch;
}

int getInteger(FcPattern const* pattern, char const* object, int fallback) {
  int value = fallback;
  return isFound(FcPatternGetInteger(pattern, object, 0, &value)) ? value : fallback;
}

bool getFlag(FcPattern const* pattern, char const* object) {
  FcBool value = FcFalse;
  return isFound(FcPatternGetBool(pattern, object, 0, &value)) && value == FcTrue;
}

std::string getText(FcPattern const* pattern, char const* object, int position) {
  FcChar8* value = nullptr;
  if (!isFound(FcPatternGetString(pattern, object, position, &value))) return {};
  return fromFontconfig(value);
}

/// Outline fonts whose glyphs take the text's colour. A variable font is listed once more for each named
/// instance.
bool isUsable(FcPattern const* pattern) {
  std::string const format = getText(pattern, FC_FONTFORMAT, 0);
  return (format == "TrueType" || format == "CFF") && getFlag(pattern, FC_SCALABLE) &&
         !getFlag(pattern, FC_COLOR) && !getFlag(pattern, FC_VARIABLE);
}

std::vector<std::string> getFamilies(FcPattern const* pattern) {
  std::vector<std::string> families;
  for (int i = 0;; ++i) {
    std::string family = getText(pattern, FC_FAMILY, i);
    if (family.empty()) return families;
    families.push_back(std::move(family));
  }
}

FcCharSet const* getCharacters(FcPattern const* pattern) {
  FcCharSet* characters = nullptr;
  return isFound(FcPatternGetCharSet(pattern, FC_CHARSET, 0, &characters)) ? characters : nullptr;
}

/// Smaller is closer; a wrong width is worse than a wrong slant, which is worse than a wrong weight.
std::tuple<int, int, int> getStyleDistance(FontIndex::Entry const& entry, FontStyle style) {
  bool const isSlanted = entry.m_slant != FC_SLANT_ROMAN;
  int const weight = style.m_bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR;
  return {std::abs(entry.m_width - FC_WIDTH_NORMAL), isSlanted != style.m_italic ? 1 : 0,
          std::abs(entry.m_weight - weight)};
}

/// Among all families, those drawn as companions of a plain sans serif face come first.
bool isPlain(FontIndex::Entry const& entry) {
  return !entry.m_families.empty() && entry.m_families.front().starts_with("Noto Sans");
}

/// What a renderer, too, would make up: faces of a medium weight or less are no substitute for a bold one.
svg::FontSynthesis getSynthesis(FontIndex::Entry const& entry, FontStyle style) {
  return {.m_bold = style.m_bold && entry.m_weight <= FC_WEIGHT_MEDIUM,
          .m_oblique = style.m_italic && entry.m_slant == FC_SLANT_ROMAN};
}

FontSource makeSource(FontIndex::Entry const& entry, std::string const& family, FontStyle style) {
  return {{entry.m_path, static_cast<unsigned>(entry.m_index)}, family, getSynthesis(entry, style)};
}

bool hasCharacters(FontIndex::Entry const& entry, std::u32string_view cluster) {
  return entry.m_characters != nullptr && std::ranges::all_of(cluster, [&](char32_t character) {
           return isIgnorable(character) || FcCharSetHasChar(entry.m_characters, character) != FcFalse;
         });
}

/// Only want of memory makes these operations fail; a configuration that is wrong is told on standard error.
template <class Result>
Result require(Result result) {
  if (!result) throw std::bad_alloc();
  return result;
}

}  // namespace

FontIndex::FontIndex(FontOptions const& options)
    : m_config(require(options.m_useSystemFonts ? FcInitLoadConfigAndFonts() : FcConfigCreate())) {
  if (!options.m_useSystemFonts)
    require(FcConfigParseAndLoadFromMemory(m_config.get(), toFontconfig(CACHES_ONLY), FcFalse));
  for (std::string const& directory : options.m_directories) addDirectory(directory);
  if (options.m_useSystemFonts) addFonts(FcConfigGetFonts(m_config.get(), FcSetSystem), 0);
  sortFonts();
}

FontIndex::~FontIndex() = default;

void FontIndex::addDirectory(std::string const& directory) {
  FcFontSet const* const before = FcConfigGetFonts(m_config.get(), FcSetApplication);
  int const first = before != nullptr ? before->nfont : 0;
  std::error_code error;
  std::string const path = std::filesystem::absolute(directory, error).lexically_normal().string();
  if (error) return;
  require(FcConfigAppFontAddDir(m_config.get(), toFontconfig(path.c_str())));
  addFonts(FcConfigGetFonts(m_config.get(), FcSetApplication), first);
}

void FontIndex::addFonts(FcFontSet const* fonts, int first) {
  ++m_rank;
  for (int i = first; fonts != nullptr && i < fonts->nfont; ++i) {
    FcPattern const* const font = fonts->fonts[i];
    if (!isUsable(font)) continue;
    m_entries.push_back(
        {m_rank, getText(font, FC_FILE, 0), getInteger(font, FC_INDEX, 0),
         getInteger(font, FC_WEIGHT, FC_WEIGHT_REGULAR), getInteger(font, FC_SLANT, FC_SLANT_ROMAN),
         getInteger(font, FC_WIDTH, FC_WIDTH_NORMAL), getCharacters(font), getFamilies(font)});
  }
}

void FontIndex::sortFonts() {
  std::ranges::sort(m_entries, {},
                    [](Entry const& entry) { return std::tie(entry.m_rank, entry.m_path, entry.m_index); });
  for (Entry const& entry : m_entries) {
    for (std::string const& family : entry.m_families) m_families.emplace(foldName(family), &entry);
  }
}

bool FontIndex::isEmpty() const noexcept {
  return m_entries.empty();
}

std::optional<FontSource> FontIndex::findFamily(std::string_view family, FontStyle style) const {
  auto const [first, last] = m_families.equal_range(foldName(family));
  auto const best = std::min_element(first, last, [style](auto const& a, auto const& b) {
    return getStyleDistance(*a.second, style) < getStyleDistance(*b.second, style);
  });
  if (best == last) return std::nullopt;
  Entry const& entry = *best->second;
  auto const name = std::ranges::find(entry.m_families, best->first,
                                      [](std::string const& text) { return foldName(text); });
  return makeSource(entry, *name, style);
}

std::optional<FontSource> FontIndex::findCluster(std::u32string_view cluster, FontStyle style) const {
  if (std::ranges::any_of(cluster, isPrivate)) return std::nullopt;
  auto const rank = [style](Entry const& entry) {
    return std::tuple_cat(std::tuple(!isPlain(entry)), getStyleDistance(entry, style));
  };
  Entry const* best = nullptr;
  for (Entry const& entry : m_entries) {
    if (entry.m_families.empty() || !hasCharacters(entry, cluster)) continue;
    if (best == nullptr || rank(entry) < rank(*best)) best = &entry;
  }
  if (best == nullptr) return std::nullopt;
  return makeSource(*best, best->m_families.front(), style);
}

}  // namespace qv::text
