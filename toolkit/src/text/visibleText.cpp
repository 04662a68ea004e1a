#include "text/visibleText.h"

#include <algorithm>
#include <iterator>

#include "text/utf8.h"

namespace qvToolkit {

namespace {

struct Range {
  char32_t m_first;
  char32_t m_last;
};

/// White space, and what Unicode lets a renderer leave out.
constexpr Range Invisible[] = {
    {0x0009, 0x0009},   {0x0020, 0x0020},   {0x00A0, 0x00A0},   {0x00AD, 0x00AD},   {0x034F, 0x034F},
    {0x061C, 0x061C},   {0x115F, 0x1160},   {0x1680, 0x1680},   {0x17B4, 0x17B5},   {0x180B, 0x180F},
    {0x2000, 0x200F},   {0x2028, 0x202F},   {0x205F, 0x206F},   {0x2800, 0x2800},   {0x3000, 0x3000},
    {0x3164, 0x3164},   {0xFE00, 0xFE0F},   {0xFEFF, 0xFEFF},   {0xFFA0, 0xFFA0},   {0xFFF0, 0xFFF8},
    {0x1BCA0, 0x1BCA3}, {0x1D159, 0x1D159}, {0x1D173, 0x1D17A}, {0xE0000, 0xE0FFF},
};
static_assert(std::ranges::is_sorted(Invisible, {}, &Range::m_first));

bool isVisible(char32_t character) {
  auto const* const range = std::ranges::lower_bound(Invisible, character, {}, &Range::m_last);
  return range == std::end(Invisible) || character < range->m_first;
}

}  // namespace

std::size_t countVisibleCharacters(std::string_view bytes) {
  std::size_t count = 0;
  while (!bytes.empty()) {
    Utf8Step const step = takeUtf8(bytes);
    if (!step.m_isValid || isVisible(step.m_codePoint)) ++count;
  }
  return count;
}

}  // namespace qvToolkit
