#include "fontIndex.h"

#include <algorithm>
#include <cstdlib>
#include <tuple>
#include <utility>

namespace qv::text {

struct FontIndex::Entry {
  std::string m_path;
  int m_index;
  int m_weight;
  int m_slant;
  int m_width;
  FcCharSet const* m_characters;  // owned by the configuration
  std::vector<std::string> m_families;
};

namespace {

/// Families drawn to the same advance widths, for configurations that do not say so.
struct MetricAlias {
  std::string_view m_family;
  std::string_view m_alias;
};

constexpr MetricAlias METRIC_ALIASES[] = {
    {"arial", "Liberation Sans"},
    {"arialmt", "Liberation Sans"},
    {"arialnarrow", "Liberation Sans Narrow"},
    {"calibri", "Carlito"},
    {"cambria", "Caladea"},
    {"courier", "Liberation Mono"},
    {"couriernew", "Liberation Mono"},
    {"couriernewpsmt", "Liberation Mono"},
    {"georgia", "Gelasio"},
    {"helvetica", "Liberation Sans"},
    {"times", "Liberation Serif"},
    {"timesnewroman", "Liberation Serif"},
    {"timesnewromanpsmt", "Liberation Serif"},
};

/// Private characters mean something else in each font, so no other font may stand in.
bool isPrivate(char32_t character) {
  return (character >= 0xE000 && character <= 0xF8FF) || character >= 0xF0000;
}

std::string foldName(std::string_view name) {
  std::string folded;
  for (char const c : name) {
    if (c == ' ') continue;
    folded.push_back(c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c);
  }
  return folded;
}

FcChar8 const* toFontconfig(char const* text) {
  return reinterpret_cast<FcChar8 const*>(text);
}
char const* fromFontconfig(FcChar8 const* text) {
  return reinterpret_cast<char const*>(text);
}

int getInteger(FcPattern const* pattern, char const* object, int fallback) {
  int value = fallback;
  return FcPatternGetInteger(pattern, object, 0, &value) == FcResultMatch ? value : fallback;
}

bool getFlag(FcPattern const* pattern, char const* object) {
  FcBool value = FcFalse;
  return FcPatternGetBool(pattern, object, 0, &value) == FcResultMatch && value == FcTrue;
}

std::string getText(FcPattern const* pattern, char const* object, int position) {
  FcChar8* value = nullptr;
  if (FcPatternGetString(pattern, object, position, &value) != FcResultMatch) return {};
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

struct PatternDeleter {
  void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};

FcCharSet const* getCharacters(FcPattern const* pattern) {
  FcCharSet* characters = nullptr;
  FcPatternGetCharSet(pattern, FC_CHARSET, 0, &characters);
  return characters;
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

}  // namespace

FontIndex::FontIndex() : m_config(FcInitLoadConfigAndFonts()) {
  if (m_config != nullptr) readFonts();
}

FontIndex::~FontIndex() = default;

void FontIndex::readFonts() {
  FcFontSet const* const fonts = FcConfigGetFonts(m_config.get(), FcSetSystem);
  if (fonts == nullptr) return;
  for (int i = 0; i < fonts->nfont; ++i) {
    FcPattern const* const font = fonts->fonts[i];
    if (!isUsable(font)) continue;
    m_entries.push_back(
        {getText(font, FC_FILE, 0), getInteger(font, FC_INDEX, 0),
         getInteger(font, FC_WEIGHT, FC_WEIGHT_REGULAR), getInteger(font, FC_SLANT, FC_SLANT_ROMAN),
         getInteger(font, FC_WIDTH, FC_WIDTH_NORMAL), getCharacters(font), getFamilies(font)});
  }
  std::ranges::sort(m_entries, {}, [](Entry const& entry) { return std::tie(entry.m_path, entry.m_index); });
  for (Entry const& entry : m_entries) {
    for (std::string const& family : entry.m_families) m_families.emplace(foldName(family), &entry);
  }
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
  return FontSource{entry.m_path, static_cast<unsigned>(entry.m_index), *name};
}

std::vector<std::string> FontIndex::findMetricAliases(std::string const& family) const {
  std::vector<std::string> aliases;
  std::string const folded = foldName(family);
  for (MetricAlias const& entry : METRIC_ALIASES) {
    if (entry.m_family == folded) aliases.emplace_back(entry.m_alias);
  }
  if (m_config == nullptr) return aliases;
  std::unique_ptr<FcPattern, PatternDeleter> const pattern(FcPatternCreate());
  FcPatternAddString(pattern.get(), FC_FAMILY, toFontconfig(family.c_str()));
  FcConfigSubstitute(m_config.get(), pattern.get(), FcMatchPattern);
  // A metric-compatible alias is bound as firmly as the name that was asked for; all other suggestions are
  // weak.
  FcValue value;
  FcValueBinding binding = FcValueBindingWeak;
  for (int i = 0; FcPatternGetWithBinding(pattern.get(), FC_FAMILY, i, &value, &binding) == FcResultMatch;
       ++i) {
    if (binding != FcValueBindingWeak) aliases.emplace_back(fromFontconfig(value.u.s));
  }
  return aliases;
}

std::optional<FontSource> FontIndex::findCharacter(char32_t character, FontStyle style) const {
  if (isPrivate(character)) return std::nullopt;
  auto const rank = [style](Entry const& entry) {
    return std::tuple_cat(std::tuple(!isPlain(entry)), getStyleDistance(entry, style));
  };
  Entry const* best = nullptr;
  for (Entry const& entry : m_entries) {
    if (entry.m_characters == nullptr || entry.m_families.empty()) continue;
    if (FcCharSetHasChar(entry.m_characters, character) == FcFalse) continue;
    if (best == nullptr || rank(entry) < rank(*best)) best = &entry;
  }
  if (best == nullptr) return std::nullopt;
  return FontSource{best->m_path, static_cast<unsigned>(best->m_index), best->m_families.front()};
}

}  // namespace qv::text
