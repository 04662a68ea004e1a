#include "migration/color.h"

#include "rules/colors.h"

namespace qvLegacy::migration {

Color contrastColor(Color const& color) {
  return rules::takesWhiteText(color.X(), color.Y(), color.Z()) ? white : black;
}

std::string colorText(Color const& color) {
  constexpr char digits[] = "0123456789ABCDEF";
  std::string text = "#";
  for (unsigned const byte : {color.X(), color.Y(), color.Z()}) {
    text += digits[byte >> 4U];
    text += digits[byte & 0xFU];
  }
  return text;
}

}  // namespace qvLegacy::migration
