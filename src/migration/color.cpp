#include "migration/color.h"

namespace qvLegacy::migration {

Color contrastColor(Color const& color) {
  float const red = color.X();
  float const green = color.Y();
  float const blue = color.Z();
  float const luminance = red * 0.3F + green * 0.59F + blue * 0.11F;
  // KEEP: the luminance runs from 0 to 255, so white is taken for all but black colours only: established
  // documents look that way.
  return luminance < 0.3F ? white : black;
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
