#include "textClusters.h"

#include <algorithm>
#include <iterator>
#include <new>

#include "utf8.h"

namespace qv::text {

namespace {

constexpr char32_t ZERO_WIDTH_JOINER = 0x200D;

struct Range {
  char32_t m_first;
  char32_t m_last;
};

/// Characters that Unicode lets a renderer leave out when it does not know them.
constexpr Range IGNORABLE[] = {
    {0x00AD, 0x00AD},   {0x034F, 0x034F},   {0x061C, 0x061C}, {0x115F, 0x1160}, {0x17B4, 0x17B5},
    {0x180B, 0x180F},   {0x200B, 0x200F},   {0x202A, 0x202E}, {0x2060, 0x206F}, {0x3164, 0x3164},
    {0xFE00, 0xFE0F},   {0xFEFF, 0xFEFF},   {0xFFA0, 0xFFA0}, {0xFFF0, 0xFFF8}, {0x1BCA0, 0x1BCA3},
    {0x1D173, 0x1D17A}, {0xE0000, 0xE0FFF},
};

static_assert(std::ranges::is_sorted(IGNORABLE, {}, &Range::m_first));

bool isMark(char32_t character) {
  if (character < FIRST_MARK || isUnshowable(character)) return false;
  switch (hb_unicode_general_category(getUnicode(), character)) {
    case HB_UNICODE_GENERAL_CATEGORY_NON_SPACING_MARK:
    case HB_UNICODE_GENERAL_CATEGORY_SPACING_MARK:
    case HB_UNICODE_GENERAL_CATEGORY_ENCLOSING_MARK:
      return true;
    default:
      return false;
  }
}

}  // namespace

hb_unicode_funcs_t* getUnicode() {
  hb_unicode_funcs_t* const unicode = hb_unicode_funcs_get_default();
  if (unicode == hb_unicode_funcs_get_empty()) throw std::bad_alloc();
  return unicode;
}

bool isIgnorable(char32_t character) {
  if (character < IGNORABLE[0].m_first) return false;
  auto const* const range = std::ranges::lower_bound(IGNORABLE, character, {}, &Range::m_last);
  return range != std::end(IGNORABLE) && character >= range->m_first;
}

char32_t compose(char32_t base, char32_t mark) {
  hb_codepoint_t composed = 0;
  return hb_unicode_compose(getUnicode(), base, mark, &composed) != 0 ? composed : 0;
}

std::size_t getClusterLength(std::u32string_view text, std::size_t start) {
  std::size_t end = start + 1;
  while (end < text.size() &&
         (text[end - 1] == ZERO_WIDTH_JOINER || isIgnorable(text[end]) || isMark(text[end]))) {
    ++end;
  }
  return end - start;
}

hb_script_t getScript(char32_t character) {
  hb_script_t const script = hb_unicode_script(getUnicode(), character);
  return script == HB_SCRIPT_INHERITED || script == HB_SCRIPT_UNKNOWN ? HB_SCRIPT_COMMON : script;
}

}  // namespace qv::text
