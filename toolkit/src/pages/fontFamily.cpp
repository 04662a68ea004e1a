#include "pages/fontFamily.h"

#include <array>
#include <cstddef>

#include "text/utf8.h"

namespace qvToolkit {

namespace {

constexpr std::size_t MaxFamilyBytes = 128;

struct GenericFamily {
  std::string_view m_part;
  std::string_view m_generic;
};

/// The first row whose part the family's name holds decides, "Sans Mono" being monospace; sans-serif
/// otherwise.
constexpr std::array<GenericFamily, 7> GenericFamilies = {{
    {"Mono", "monospace"},
    {"Sans", "sans-serif"},
    {"Courier", "monospace"},
    {"Consolas", "monospace"},
    {"Serif", "serif"},
    {"Times", "serif"},
    {"Georgia", "serif"},
}};

std::string_view findGenericFamily(std::string_view family) {
  for (GenericFamily const& known : GenericFamilies) {
    if (family.find(known.m_part) != std::string_view::npos) return known.m_generic;
  }
  return "sans-serif";
}

bool isSafe(Utf8Step const& step) {
  char32_t const c = step.m_codePoint;
  if (!step.m_isValid) return false;
  if (c > 0xA0) return !isLayoutControl(c) && c < 0xFFFE;
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == ' ' || c == '_' ||
         c == '-';
}

}  // namespace

std::string formatFontFamily(std::string_view family) {
  std::string safe;
  while (!family.empty()) {
    Utf8Step const step = decodeUtf8(family);
    if (safe.size() + step.m_length > MaxFamilyBytes) break;
    if (isSafe(step)) safe += family.substr(0, step.m_length);
    family.remove_prefix(step.m_length);
  }
  std::string const generic(findGenericFamily(safe));
  return safe.find_first_not_of(' ') == std::string::npos ? generic : "'" + safe + "', " + generic;
}

}  // namespace qvToolkit
