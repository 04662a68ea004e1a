#pragma once

#include <cstdint>

namespace qvLegacy::rules {

/// Whether text on a background of this colour is white; it is black on all others.
constexpr bool takesWhiteText(std::uint8_t red, std::uint8_t green, std::uint8_t blue) noexcept {
  float const luminance =
      static_cast<float>(red) * 0.3F + static_cast<float>(green) * 0.59F + static_cast<float>(blue) * 0.11F;
  // KEEP: the luminance runs from 0 to 255, so white is taken for all but black colours only: established
  // documents look that way.
  return luminance < 0.3F;
}

}  // namespace qvLegacy::rules
