// Which Debian packages hold the fonts that texts need. A closed list: what is not in it is not named.

#include <hb.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

#include "familyNames.h"
#include "qvAnnotation/fontOptions.h"
#include "textClusters.h"

namespace qv::text {

namespace {

struct FamilyPackage {
  std::string_view m_prefix;  // of the folded name; the longest one counts
  std::string_view m_package;
};

constexpr FamilyPackage FAMILIES[] = {
    {"arimo", "fonts-croscore"},
    {"caladea", "fonts-crosextra-caladea"},
    {"carlito", "fonts-crosextra-carlito"},
    {"comicneue", "fonts-comic-neue"},
    {"cousine", "fonts-croscore"},
    {"dejavusans", "fonts-dejavu-core"},
    {"dejavusanscondensed", "fonts-dejavu-extra"},
    {"dejavusanslight", "fonts-dejavu-extra"},
    {"dejavusansmono", "fonts-dejavu-core"},
    {"dejavuserif", "fonts-dejavu-core"},
    {"dejavuserifcondensed", "fonts-dejavu-extra"},
    {"inter", "fonts-inter"},
    {"lato", "fonts-lato"},
    {"liberationmono", "fonts-liberation2"},
    {"liberationsans", "fonts-liberation2"},
    {"liberationsansnarrow", "fonts-liberation-sans-narrow"},
    {"liberationserif", "fonts-liberation2"},
    {"nimbus", "fonts-urw-base35"},
    {"noto", "fonts-noto-core"},
    {"notocoloremoji", "fonts-noto-color-emoji"},
    {"notomono", "fonts-noto-mono"},
    {"notosanscjk", "fonts-noto-cjk"},
    {"notosansmono", "fonts-noto-mono"},
    {"notoserifcjk", "fonts-noto-cjk"},
    {"opensans", "fonts-open-sans"},
    {"osifont", "fonts-osifont"},
    {"roboto", "fonts-roboto-unhinted"},
    {"symbola", "fonts-symbola"},
    {"texgyre", "fonts-texgyre"},
    {"tinos", "fonts-croscore"},
    {"urw", "fonts-urw-base35"},
    {"p052", "fonts-urw-base35"},
    {"c059", "fonts-urw-base35"},
    {"z003", "fonts-urw-base35"},
};

std::string_view findPackage(std::string_view foldedName) {
  FamilyPackage const* best = nullptr;
  for (FamilyPackage const& family : FAMILIES) {
    if (!foldedName.starts_with(family.m_prefix)) continue;
    if (best == nullptr || family.m_prefix.size() > best->m_prefix.size()) best = &family;
  }
  return best != nullptr ? best->m_package : std::string_view();
}

struct CharacterPackage {
  char32_t m_first;
  char32_t m_last;
  std::string_view m_package;
};

constexpr std::string_view LIBERATION = "fonts-liberation2";
constexpr std::string_view DEJAVU = "fonts-dejavu-core";
constexpr std::string_view CJK = "fonts-noto-cjk";
constexpr std::string_view SYMBOLA = "fonts-symbola";

/// What is not here is in the package with the fonts of most scripts and signs.
constexpr CharacterPackage CHARACTERS[] = {
    {0x0020, 0x017F, LIBERATION}, {0x0180, 0x024F, DEJAVU},    {0x0370, 0x03FF, LIBERATION},
    {0x0400, 0x045F, LIBERATION}, {0x0460, 0x04FF, DEJAVU},    {0x1100, 0x11FF, CJK},
    {0x2190, 0x2300, DEJAVU},     {0x23E5, 0x23E5, DEJAVU},    {0x2500, 0x2688, DEJAVU},
    {0x2800, 0x28FF, DEJAVU},     {0x2E80, 0x312F, CJK},       {0x3130, 0x31EF, CJK},
    {0x31F0, 0x4DBF, CJK},        {0x4E00, 0x9FFF, CJK},       {0xA960, 0xA97F, CJK},
    {0xAC00, 0xD7FF, CJK},        {0xF900, 0xFAFF, CJK},       {0xFE30, 0xFE4F, CJK},
    {0xFF00, 0xFFEF, CJK},        {0xFFFD, 0xFFFD, DEJAVU},    {0x1F300, 0x1F64F, SYMBOLA},
    {0x1F680, 0x1F6FF, SYMBOLA},  {0x1F900, 0x1F9FF, SYMBOLA}, {0x20000, 0x3134F, CJK},
};

static_assert(std::ranges::is_sorted(CHARACTERS, {}, &CharacterPackage::m_first));

bool isAssigned(char32_t character) {
  switch (hb_unicode_general_category(getUnicode(), character)) {
    case HB_UNICODE_GENERAL_CATEGORY_CONTROL:
    case HB_UNICODE_GENERAL_CATEGORY_PRIVATE_USE:
    case HB_UNICODE_GENERAL_CATEGORY_SURROGATE:
    case HB_UNICODE_GENERAL_CATEGORY_UNASSIGNED:
      return false;
    default:
      return true;
  }
}

}  // namespace

std::string_view findPackageWithCharacter(char32_t character) noexcept {
  if (!isAssigned(character)) return {};
  auto const* const range = std::ranges::lower_bound(CHARACTERS, character, {}, &CharacterPackage::m_last);
  bool const isListed = range != std::end(CHARACTERS) && character >= range->m_first;
  return isListed ? range->m_package : "fonts-noto-core";
}

std::string_view findPackageWithFamily(std::string_view family) {
  std::string const folded = foldName(family);
  std::string_view package = findPackage(folded);
  for (std::string_view const alike : findMetricClass(folded)) {
    if (package.empty()) package = findPackage(foldName(alike));
  }
  return package;
}

}  // namespace qv::text
